#include <grafel/properties/TicksAt.h>

#include <grafel/properties/detail/ExprItems.h>

namespace Grafel {

bool XTicksAt::mayReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newFirst) {
    return contentOnly(newFirst);
}

void XTicksAt::putCmd(CmdOStream& out) {
    out.beginItem();
    out << nodeName() << '=';
    if (firstChild()) {
        // Each tick is an item of its own and brings its own separator.
        out << '[';
        for (Arbor::Node* n = firstChild(); n; n = n->nextSibling())
            if (auto* tick = dynamic_cast<PlotElement*>(n)) tick->putCmd(out);
        out << ']';
    } else {
        out << "NIL";
    }
    out.endItem();
}

} // namespace Grafel
