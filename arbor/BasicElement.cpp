#include <grafel/arbor/BasicElement.h>

#include <grafel/tessel/CData.h>

#include <algorithm>
#include <ostream>

namespace Arbor {

Node* BasicElement::cloneNode(bool deep) const {
    auto* copy = new BasicElement(*this);
    if (deep) cloneChildren(copy);
    return copy;
}

std::vector<BasicElement::Entry>::const_iterator BasicElement::find(Token name) const {
    return std::lower_bound(attributes_.begin(), attributes_.end(), name,
                            [](const Entry& e, Token t) { return e.first < t; });
}

Variant BasicElement::getAttribute(Token name) const {
    auto it = find(name);
    return it != attributes_.end() && it->first == name ? it->second : Variant();
}

bool BasicElement::hasAttribute(Token name) const {
    auto it = find(name);
    return it != attributes_.end() && it->first == name;
}

bool BasicElement::maySetAttribute(Token name, const Variant&) {
    return !name.isNull();
}

bool BasicElement::mayRemoveAttribute(Token) {
    return true;
}

void BasicElement::setAttributeRaw(Token name, const Variant& value) {
    auto it = attributes_.begin() + (find(name) - attributes_.cbegin());
    if (it != attributes_.end() && it->first == name)
        it->second = value;
    else
        attributes_.insert(it, Entry(name, value));
}

void BasicElement::removeAttributeRaw(Token name) {
    auto it = find(name);
    if (it != attributes_.end() && it->first == name) attributes_.erase(it);
}

std::ostream& BasicElement::putAttributesXml(std::ostream& out) {
    for (const auto& [name, value] : attributes_) {
        out << ' ' << name << "=\"";
        if (auto* v = value.as<LongVariant>())
            out << v->val();
        else if (auto* v = value.as<DoubleVariant>())
            out << v->val();
        else if (auto* v = value.as<BoolVariant>())
            out << (v->val() ? '1' : '0');
        else if (auto* v = value.as<TokenVariant>())
            Tessel::putCData(out, v->val().text());
        else if (auto* v = value.as<FixedStringVariant>())
            Tessel::putCData(out, v->val().text());
        else if (auto* v = value.as<FixedUStringVariant>())
            Tessel::putCData(out, v->val().text());
        out << '"';
    }
    return out;
}

Element* BasicDocument::createElement(Token tagName) {
    return tagName.isNull() ? nullptr : new BasicElement(this, tagName);
}

} // namespace Arbor
