#include <grafel/properties/AttributeListElement.h>

#include <grafel/arbor/Document.h>
#include <grafel/arbor/DomException.h>
#include <grafel/properties/Property.h>

#include <algorithm>

namespace Grafel {

using Arbor::DomException;
using Arbor::Token;
using Arbor::Variant;

bool AttributeListElement::hasAttribute(Token name) const {
    return findAttribute(name) != nullptr;
}

Variant AttributeListElement::getAttribute(Token name) const {
    if (const Variant* v = findAttribute(name)) return *v;
    refuse(DomException::InvalidAccessErr, "illegal attribute '%s' [node '%s']\n", name.text(),
           nodeName().text());
}

bool AttributeListElement::hasProperty(Token name) const {
    return findAttribute(name) || propertyInfo(name);
}

const Variant& AttributeListElement::propertyRef(Token name) const {
    if (const Variant* v = findAttribute(name)) return *v;
    Property* p = requireProperty(name);
    if (p->isMandatory()) {
        refuse(DomException::InvalidAccessErr, "mandatory property '%s' missing [node '%s']\n",
               name.text(), nodeName().text());
    }
    if (p->isInherited())
        if (PlotElement* from = inheritingFrom(name)) {
            if (AttributeListElement* list = from->asAttributeList())
                return list->propertyRef(name);
            thread_local Variant slot;
            slot = from->getProperty(name);
            return slot;
        }
    return p->defaultRef();
}

const Variant& AttributeListElement::defaultRef(Token name) const {
    return requireProperty(name)->defaultRef();
}

Variant AttributeListElement::getProperty(Token name) const {
    return propertyRef(name);
}

// The raw stores count their change themselves: they are also reached without the kernel's
// guarded operations (copies, readers), and what is derived from the tree must hear of them.
void AttributeListElement::setAttributeRaw(Token name, const Variant& value) {
    auto it = attributes_.begin() + (lowerBound(name) - attributes_.cbegin());
    if (it != attributes_.end() && it->name == name)
        it->value = value;
    else
        attributes_.insert(it, AttributeValue{name, value});
    if (document_) document_->noteChangeOf(this, name);
}

void AttributeListElement::removeAttributeRaw(Token name) {
    auto it = lowerBound(name);
    if (it != attributes_.end() && it->name == name) attributes_.erase(it);
    if (document_) document_->noteChangeOf(this, name);
}

AttributeListElement& AttributeListElement::operator=(const AttributeListElement& other) {
    OptionedPlotElement::operator=(other);
    attributes_ = other.attributes_;
    noteChange();
    return *this;
}

void AttributeListElement::noteChange() const {
    if (document_) document_->noteChangeOf(this);
}

void AttributeListElement::setProperty(Token name, const Variant& value) {
    Property* p = requireProperty(name);
    PlotElement* from = p->isInherited() ? inheritingFrom(name) : nullptr;
    if (from && from->getProperty(name) == value) {
        if (!hasAttribute(name)) return;
        removeAttribute(name);
    } else {
        setAttribute(name, value);
    }
    normalizeInheritingAttributes(name);
}

void AttributeListElement::normalizeAttribute(Arbor::Element* from, Token name) {
    if (inheritingFrom(name) == from) {
        Property* p = propertyInfo(name);
        const Variant* own = findAttribute(name);
        if (p && p->isInherited() && own &&
            *own == static_cast<PlotElement*>(from)->getProperty(name))
            removeAttribute(name);
    }
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling())
        if (auto* child = PlotElement::from(n)) child->normalizeAttribute(from, name);
}

void AttributeListElement::normalizeAttributes() {
    for (size_t i = 0; i < attributes_.size();) {
        const Token name = attributes_[i].name;
        Property* p = propertyInfo(name);
        PlotElement* from = p && p->isInherited() ? inheritingFrom(name) : nullptr;
        if (from && from->getProperty(name) == attributes_[i].value) {
            removeAttribute(name); // the next record moves into place i
            continue;
        }
        ++i;
    }
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling())
        if (auto* child = PlotElement::from(n)) child->normalizeAttributes();
}

void AttributeListElement::afterParentChanged() {
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling()) n->afterParentChanged();
}

std::ostream& AttributeListElement::putAttributesXml(std::ostream& out) {
    for (const AttributeValue& a : attributes_)
        if (Property* p = propertyInfo(a.name)) p->putXmlValue(out, a.value);
    return out;
}

void AttributeListElement::copyAttributes(AttributeListElement* other) const {
    other->attributes_ = attributes_;
    other->noteChange();
}

} // namespace Grafel
