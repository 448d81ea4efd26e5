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
    putCmdNamedExpr(out, nodeName());
}

void SeqExprElement::putCmd(CmdOStream& out) {
    if (isEmpty(true))
        out << "NIL";
    else
        putCmdPCData(out);
}

// The leaves are made here, so that each registers itself with the factory once.
template class TextLeaf<id_Title, StringElement>;
template class TextLeaf<id_Header, StringElement>;
template class TextLeaf<id_Footer, StringElement>;
template class TextLeaf<id_LegendText, StringElement>;
template class TextLeaf<id_XAxisTitle, StringElement>;
template class TextLeaf<id_YAxisTitle, StringElement>;
template class TextLeaf<id_ZAxisTitle, StringElement>;
template class TextLeaf<id_ParameterName, NamedExprElement>;
template class TextLeaf<id_TitlePositionX, NamedExprElement>;
template class TextLeaf<id_TitlePositionY, NamedExprElement>;
template class TextLeaf<id_TitlePositionZ, NamedExprElement>;
template class TextLeaf<id_IExpr, SeqExprElement>;

} // namespace Grafel
