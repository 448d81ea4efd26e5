#include <grafel/structure/StyleSequence.h>

#include <grafel/structure/ObjStyle.h>
#include <grafel/structure/ObjectBase.h>
#include <grafel/structure/detail/StyleWalk.h>

namespace Grafel {

using Arbor::Token;

void StyleSequence::collect(const PlotElement* object) const {
    const auto* self = static_cast<const ObjectBase*>(object);
    const Arbor::Variant* type = self->findAttribute(tok_Type);
    typed_ = type != nullptr;
    // The record is a token: the descriptor's check admits nothing else.
    type_ = typed_ ? static_cast<const Arbor::TokenVariant*>(type)->val() : Token();
    entries_.clear();
    detail::walkStyles(const_cast<ObjectBase*>(self), [this](ObjStyle* style) {
        const Arbor::Variant* t = style->findAttribute(tok_Type);
        entries_.push_back(
            {style, t ? static_cast<const Arbor::TokenVariant*>(t)->val() : Token(), t != nullptr});
        return false;
    });
    object_ = object;
    const Arbor::Document* document = object->ownerDocument();
    stamp_ = document ? document->structureCount() : 0;
}

Token StyleSequence::missingType(const Entry& entry) {
    return entry.style->getType();
}

Token StyleSequence::missingOwnType() const {
    return static_cast<const ObjectBase*>(object_)->getType();
}

ObjStyle* StyleSequence::find(Token attribute, const Arbor::Variant** value) const {
    const Token type = ownType();
    // Every style of the type goes before every Default one, so the first Default style met
    // that holds the value is kept until the sequence ends without one of the type.
    ObjStyle* fallback = nullptr;
    const Arbor::Variant* fallbackValue = nullptr;
    for (const Entry& e : entries_) {
        const Token t = typeOf(e);
        if (t == type) {
            if (const Arbor::Variant* found = e.style->findAttribute(attribute)) {
                if (value) *value = found;
                return e.style;
            }
        } else if (t == tok_Default && !fallback) {
            if ((fallbackValue = e.style->findAttribute(attribute))) fallback = e.style;
        }
    }
    if (value) *value = fallbackValue;
    return fallback;
}

void StyleSequence::appendChain(std::vector<PlotElement*>& chain) const {
    const Token type = ownType();
    for (const Entry& e : entries_)
        if (typeOf(e) == type) chain.push_back(e.style);
    for (const Entry& e : entries_)
        if (typeOf(e) == tok_Default) chain.push_back(e.style);
}

} // namespace Grafel
