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

GRAFEL_REGISTER_ELEMENT_CLASS(Title);
GRAFEL_REGISTER_ELEMENT_CLASS(Header);
GRAFEL_REGISTER_ELEMENT_CLASS(Footer);
GRAFEL_REGISTER_ELEMENT_CLASS(LegendText);
GRAFEL_REGISTER_ELEMENT_CLASS(XAxisTitle);
GRAFEL_REGISTER_ELEMENT_CLASS(YAxisTitle);
GRAFEL_REGISTER_ELEMENT_CLASS(ZAxisTitle);
GRAFEL_REGISTER_ELEMENT_CLASS(ParameterName);
GRAFEL_REGISTER_ELEMENT_CLASS(TitlePositionX);
GRAFEL_REGISTER_ELEMENT_CLASS(TitlePositionY);
GRAFEL_REGISTER_ELEMENT_CLASS(TitlePositionZ);
GRAFEL_REGISTER_ELEMENT_CLASS(IExpr);

} // namespace Grafel
