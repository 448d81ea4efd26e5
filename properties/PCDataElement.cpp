#include <grafel/properties/PCDataElement.h>

#include <grafel/arbor/Text.h>
#include <grafel/tessel/FlexBuff.h>
#include <grafel/tessel/Utf.h>

#include <cstdint>
#include <ostream>

namespace Grafel {

bool PCDataElement::mayReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newFirst) {
    // Later nodes of the chain are deliberately left unchecked.
    if (!newFirst || newFirst->nodeType() == Arbor::Node::TextNode) return true;
    domError("not a text node child [parent '%s']\n", nodeName().text());
    return false;
}

bool PCDataElement::isEmpty(bool ignoreBlank) const {
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling()) {
        const Arbor::Text* text = n->asText();
        if (!text) return false;
        for (const wchar_t* c = text->data(); *c; ++c)
            if (!ignoreBlank || static_cast<std::uint32_t>(*c) > 32u) return false;
    }
    return true;
}

void PCDataElement::putCmdPCData(CmdOStream& out) const {
    Tessel::FlexBuff<char> utf8;
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling()) {
        const Arbor::Text* text = n->asText();
        if (!text) continue;
        const long length = Tessel::utf16ToUtf8(text->data(), -1, utf8);
        out.stream().write(utf8.data(), length);
    }
}

void PCDataElement::putCmdExprValue(CmdOStream& out) const {
    if (isEmpty(true)) {
        out << "NIL";
        return;
    }
    out << '(';
    putCmdPCData(out);
    out << ')';
}

void PCDataElement::putCmdNamedExpr(CmdOStream& out, Arbor::Token name) const {
    out.beginItem();
    out << name << '=';
    putCmdExprValue(out);
    out.endItem();
}

} // namespace Grafel
