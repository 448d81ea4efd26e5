#include <grafel/properties/VExpr.h>

#include <grafel/arbor/DomException.h>
#include <grafel/foundation/NumberFormat.h>
#include <grafel/properties/PropertyTypes.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <ostream>

namespace Grafel {

using Arbor::DomException;
using Arbor::Token;
using Arbor::Variant;

namespace {

constexpr double viewingBoxBound = 1e30;

} // namespace

Property* ValAttribute::descriptor() {
    static DoubleListProperty<Kind::Optional> val(NaN(), id_Val);
    return &val;
}

void VExpr::setAttributeString(Token name, const char* text) {
    checkName(name);
    if (!text) text = "";
    double value = NaN();
    // An infinite limit means "none given": the text is not parsed at all, so that "-inf" and
    // the like stand for NaN just as "inf" does.
    if (!std::strstr(text, "inf")) {
        if (std::sscanf(text, " %lf ", &value) != 1) {
            refuse(DomException::InvalidAccessErr, "illegal value string [Val='%s']\n", text);
        }
        // The comparisons are false for a NaN, which thus stays as it is.
        const Token tag = tagName();
        if ((tag == tok_ViewingBoxXMax || tag == tok_ViewingBoxYMax || tag == tok_ViewingBoxZMax) &&
            value > viewingBoxBound)
            value = viewingBoxBound;
        if ((tag == tok_ViewingBoxXMin || tag == tok_ViewingBoxYMin || tag == tok_ViewingBoxZMin) &&
            value < -viewingBoxBound)
            value = -viewingBoxBound;
    }
    setAttribute(tok_Val, Arbor::DoubleVariant(value));
}

std::ostream& VExpr::putAttributesXml(std::ostream& out) {
    if (std::isnan(value_)) return out;
    out << " Val=\"";
    putNumber(out, value_);
    out << '"';
    return out;
}

void NamedVExprElement::putCmd(CmdOStream& out) {
    putCmdNamedExpr(out, nodeName());
}

void ViewingBoxExprElement::putCmd(CmdOStream& out) {
    auto* system = dynamic_cast<PlotElement*>(parentNode());
    if (system &&
        (system->tagName() == tok_CoordinateSystem2d ||
         system->tagName() == tok_CoordinateSystem3d) &&
        system->hasProperty(tok_AutoViewingBox)) {
        const Variant mask = system->getProperty(tok_AutoViewingBox);
        if (const auto* bits = mask.as<Arbor::LongVariant>(); bits && (bits->val() & partFlag()))
            return;
    }
    NamedVExprElement::putCmd(out);
}

// The leaves are made here, so that each registers itself with the factory once.
template class TextLeaf<id_AxesOriginX, NamedVExprElement>;
template class TextLeaf<id_AxesOriginY, NamedVExprElement>;
template class TextLeaf<id_AxesOriginZ, NamedVExprElement>;
template class TextLeaf<id_ParameterBegin, NamedVExprElement>;
template class TextLeaf<id_ParameterEnd, NamedVExprElement>;
template class TextLeaf<id_XTicksAnchor, NamedVExprElement>;
template class TextLeaf<id_YTicksAnchor, NamedVExprElement>;
template class TextLeaf<id_ZTicksAnchor, NamedVExprElement>;
template class TextLeaf<id_XTicksDistance, NamedVExprElement>;
template class TextLeaf<id_YTicksDistance, NamedVExprElement>;
template class TextLeaf<id_ZTicksDistance, NamedVExprElement>;
template class TextLeaf<id_ViewingBoxXMin, ViewingBoxPart<1>>;
template class TextLeaf<id_ViewingBoxXMax, ViewingBoxPart<2>>;
template class TextLeaf<id_ViewingBoxYMin, ViewingBoxPart<4>>;
template class TextLeaf<id_ViewingBoxYMax, ViewingBoxPart<8>>;
template class TextLeaf<id_ViewingBoxZMin, ViewingBoxPart<16>>;
template class TextLeaf<id_ViewingBoxZMax, ViewingBoxPart<32>>;

} // namespace Grafel
