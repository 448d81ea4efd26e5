#include <grafel/properties/TextElements.h>

#include <grafel/arbor/Text.h>
#include <grafel/foundation/CmdString.h>

#include <ostream>

namespace Grafel {

void StringElement::putCmd(CmdOStream& out) {
    out.beginItem();
    out << nodeName() << '=';
    putCmdString(out);
    out.endItem();
}

void StringElement::putCmdString(CmdOStream& out) {
    out << '"';
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling())
        if (const Arbor::Text* text = n->asText()) Grafel::putCmdString(out.stream(), text->data());
    out << '"';
}

void NamedExprElement::putCmd(CmdOStream& out) {
    out.beginItem();
    out << nodeName() << '=';
    putCmdExprValue(out);
    out.endItem();
}

void SeqExprElement::putCmd(CmdOStream& out) {
    if (isEmpty(true))
        out << "NIL";
    else
        putCmdPCData(out);
}

} // namespace Grafel
