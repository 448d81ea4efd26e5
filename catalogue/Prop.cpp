#include <grafel/catalogue/Prop.h>

#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/FontStyle.h>
#include <grafel/foundation/Rgba.h>
#include <grafel/foundation/ScalarText.h>
#include <grafel/structure/ObjType.h>
#include <grafel/tessel/Utf.h>

#include <string>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Prop, GRAFEL_PROP_TABLE)

using Arbor::Node;
using Arbor::Token;

namespace {

Token tokenAttribute(const Arbor::Element* e, Token name) {
    const PlotElement* p = PlotElement::from(const_cast<Arbor::Element*>(e));
    if (!p || !p->hasAttribute(name)) return {};
    const Arbor::Variant v = p->getAttribute(name);
    const auto* t = v.as<Arbor::TokenVariant>();
    return t ? t->val() : Token();
}

// Depth first through categories: the Type of the first PropInfo of Dom Prop with Opt `opt`.
bool findOption(Node* node, Token opt, Token& type) {
    const Token tag = node->nodeName();
    if (tag == tok_PropInfo) {
        const Arbor::Element* e = node->asElement();
        if (tokenAttribute(e, tok_Dom) != tok_Prop || tokenAttribute(e, tok_Opt) != opt)
            return false;
        type = tokenAttribute(e, tok_Type);
        return true;
    }
    if (tag != tok_PropCat && tag != tok_ObjType) return false;
    for (Node* child = node->firstChild(); child; child = child->nextSibling())
        if (findOption(child, opt, type)) return true;
    return false;
}

std::string utf8(const Tessel::FixedStringBase<wchar_t>& text) {
    if (text.isNull() || text.empty()) return {};
    Tessel::FlexBuff<char> buffer;
    const long n = Tessel::utf16ToUtf8(text.c_str(), -1, buffer);
    return std::string(buffer.data(), static_cast<std::size_t>(n > 0 ? n : 0));
}

// Every colour that follows a '#' in the text, until one does not parse.
void putColorList(std::ostream& out, const std::string& text) {
    out << '[';
    bool first = true;
    for (std::size_t at = text.find('#'); at != std::string::npos; at = text.find('#', at + 1)) {
        RGBA colour; // opaque black where the text leaves a part out
        if (!colour.parse(text.c_str() + at)) break;
        if (!first) out << ',';
        putCmdValue(out, colour);
        first = false;
    }
    out << ']';
}

} // namespace

Token Prop::type() const {
    Node* parent = parentNode();
    const Token parentTag = parent ? parent->nodeName() : Token();
    if (parentTag != tok_Obj2d && parentTag != tok_Obj3d) return {};
    const Token objectType = tokenAttribute(parent->asElement(), tok_Type);
    Token result;
    if (Arbor::Document* doc = ownerDocument()) {
        if (Arbor::Element* root = doc->documentElement()) {
            for (Node* child = root->firstChild(); child; child = child->nextSibling()) {
                if (child->nodeName() != tok_ObjType ||
                    tokenAttribute(child->asElement(), tok_Type) != objectType)
                    continue;
                findOption(child, getOpt(), result);
                return result;
            }
        }
        if (auto* plot = dynamic_cast<PlotDocument*>(doc))
            if (PlotElement* entry = plot->getStdObjType(objectType))
                findOption(entry, getOpt(), result);
    }
    return result;
}

void Prop::putCmd(CmdOStream& out) {
    out.beginItem();
    out << getOpt().text() << "=";
    const Token valueType = type();
    const std::string text = utf8(getVal());
    std::ostream& stream = out.stream();
    if (valueType == tok_Bool) {
        bool value = false;
        if (parseValue(text.c_str(), value)) putCmdValue(stream, value);
    } else if (valueType == tok_String) {
        putCmdValue(stream, getVal());
    } else if (valueType == tok_Color) {
        RGBA colour;
        if (colour.parse(text.c_str())) putCmdValue(stream, colour);
    } else if (valueType == tok_Font) {
        FontStyle font;
        if (font.parse(text.c_str())) putCmdValue(stream, font);
    } else if (valueType == tok_ColorList) {
        putColorList(stream, text);
    } else {
        stream << text;
    }
    out.endItem();
}

} // namespace Grafel
