// The parameter range of an animated element: the values of its ParameterBegin and
// ParameterEnd children.
#pragma once

#include <grafel/properties/VExpr.h>

#include <cmath>

namespace Grafel::detail {

/// Walks the children of `holder` in order and copies the values of ParameterBegin and
/// ParameterEnd. True as soon as both were seen; false when either is missing, or as soon as
/// one of them is NaN (which is then left in its argument).
inline bool parameterRange(const Arbor::Node* holder, double& begin, double& end) {
    bool haveBegin = false, haveEnd = false;
    for (Arbor::Node* n = holder->firstChild(); n; n = n->nextSibling()) {
        const Arbor::Token tag = n->nodeName();
        const bool isBegin = tag == tok_ParameterBegin;
        if (!isBegin && tag != tok_ParameterEnd) continue;
        const auto* bound = dynamic_cast<const VExpr*>(n);
        if (!bound) continue;
        double& value = isBegin ? begin : end;
        value = bound->getVal();
        if (std::isnan(value)) return false;
        (isBegin ? haveBegin : haveEnd) = true;
        if (haveBegin && haveEnd) return true;
    }
    return false;
}

} // namespace Grafel::detail
