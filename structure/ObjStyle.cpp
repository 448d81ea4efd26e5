#include <grafel/structure/ObjStyle.h>

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/Property.h>
#include <grafel/structure/detail/StyleWalk.h>

namespace Grafel {

using Arbor::Node;
using Arbor::Token;

namespace {

/// The value of Type of an element of the object family: the record when there is one, else
/// what getType() does without it, which is to report and throw. The record is a token: the
/// descriptor's check admits nothing else.
template <class E> Token typeOf(const E* element) {
    if (const Arbor::Variant* v = element->findAttribute(tok_Type))
        return static_cast<const Arbor::TokenVariant*>(v)->val();
    return element->getType();
}

} // namespace

ObjStyle::ObjStyle(Arbor::Document* document) : StyleElement(document), ObjectStyleGetter(this) {}

ObjStyle::ObjStyle(const ObjStyle& other) : StyleElement(other), ObjectStyleGetter(this) {}

PlotElement* ObjStyle::create(Arbor::Document* document) {
    return new ObjStyle(document);
}

Node* ObjStyle::cloneNode(bool) const {
    ObjStyle* copy = new ObjStyle(document_);
    copyAttributes(copy);
    return copy;
}

Token ObjStyle::tagName() const {
    return tok_ObjStyle;
}

Property* ObjStyle::propertyInfo(Token name) const {
    return findObjectProperty<objectStylePropertyList, object2dStylePropertyList,
                              object3dStylePropertyList>(name);
}

ObjStyle* ObjStyle::findInherited(Node* start, Token type, Token attribute) {
    return detail::walkStyles(start, [type, attribute](ObjStyle* style) {
        return typeOf(style) == type && style->findAttribute(attribute);
    });
}

void ObjStyle::getInheritanceChain(Node* start, Token type, std::vector<PlotElement*>& chain) {
    detail::walkStyles(start, [type, &chain](ObjStyle* style) {
        if (typeOf(style) == type) chain.push_back(style);
        return false;
    });
}

ObjStyle* ObjStyle::findStyle(Node* start, Token type, Token attribute,
                              const Arbor::Variant** value) {
    // Every style of the type goes before every Default one, so the first Default style met
    // that holds the value is kept until the walk ends without one of the type.
    ObjStyle* fallback = nullptr;
    const Arbor::Variant* fallbackValue = nullptr;
    const Arbor::Variant* found = nullptr;
    ObjStyle* style = detail::walkStyles(start, [&](ObjStyle* s) {
        const Token t = typeOf(s);
        if (t == type) return (found = s->findAttribute(attribute)) != nullptr;
        if (t == tok_Default && !fallback)
            if ((fallbackValue = s->findAttribute(attribute))) fallback = s;
        return false;
    });
    if (!style) {
        style = fallback;
        found = fallbackValue;
    }
    if (value) *value = found;
    return style;
}

PlotElement* ObjStyle::inheritingFrom(Token name) const {
    return parent_ ? findStyle(parent_, typeOf(this), name) : nullptr;
}

void ObjStyle::getInheritanceChain(std::vector<PlotElement*>& chain) const {
    if (!parent_) return;
    const Token type = typeOf(this);
    if (type != tok_Default) getInheritanceChain(parent_, type, chain);
    getInheritanceChain(parent_, tok_Default, chain);
}

void ObjStyle::putCmd(CmdOStream& out) {
    const Token type = getCmdType();
    const bool plain = type == tok_Default;
    for (const AttributeValue& a : attributes()) {
        if (a.name == tok_Type) continue;
        if (Property* p = propertyInfo(a.name)) {
            if (plain)
                p->putCmdValue(out, a.value);
            else
                p->putCmdPrefixed(out, type, a.value);
        }
    }
}

Token ObjStyle::getCmdType() {
    return getType();
}

GRAFEL_REGISTER_ELEMENT_CLASS(ObjStyle, StyleElement);

} // namespace Grafel
