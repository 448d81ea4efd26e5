#include <grafel/primitives/Points2d.h>

#include <grafel/properties/detail/ExprItems.h>

namespace Grafel {

bool SymbolicPoints::mayReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newFirst) {
    return contentOnly(newFirst);
}

void SymbolicPoints::putCmd(CmdOStream& out) {
    out.beginItem();
    out << nodeName() << '=';
    if (!firstChild()) {
        out << "NIL";
    } else {
        out << '[';
        out.putNl();
        for (Arbor::Node* n = firstChild(); n; n = n->nextSibling())
            if (PlotElement* point = PlotElement::from(n)) point->putCmd(out);
        out << ']';
    }
    out.endItem();
}

} // namespace Grafel
