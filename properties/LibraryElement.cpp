#include <grafel/properties/LibraryElement.h>

#include <grafel/foundation/ValueVariants.h>
#include <grafel/properties/Property.h>

namespace Grafel {

using Arbor::Token;

bool LibraryElement::afterAttributeChange(Arbor::Element* source, Token name) {
    if (source == this) {
        fireAfterPropertyChange(name);
        return true;
    }
    // A change that does not reach this element's value may still reach something below.
    if (!inheritingElement(source, name)) return true;
    if (hasAttribute(name)) return false; // this element's own value stands for everything below
    Property* p = propertyInfo(name);
    if (!p || !p->isInherited()) return false;
    fireAfterPropertyChange(name);
    return true;
}

void LibraryElement::putCmdName(CmdOStream& out) {
    out << nodeName();
}

void LibraryElement::putCmd(CmdOStream& out) {
    out.beginItem();
    out << "plot::";
    putCmdName(out);
    out << '(';
    out.putNl();
    for (const AttributeValue& a : attributes())
        if (Property* p = propertyInfo(a.name)) p->putCmdValue(out, a.value);
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling())
        if (auto* child = PlotElement::from(n)) child->putCmd(out);
    out << ')';
    out.endItem();
}

void LibraryElement::getNextAnimationTime(double time, bool backward, double& next) {
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling())
        if (auto* child = PlotElement::from(n)) child->getNextAnimationTime(time, backward, next);
}

Tessel::FixedStringBase<char> LibraryElement::getId() const {
    return typedProperty<Arbor::FixedStringVariant>(tok_id);
}

Tessel::FixedStringBase<wchar_t> LibraryElement::getName() const {
    return typedProperty<Arbor::FixedUStringVariant>(tok_Name);
}

bool LibraryElement::getConsistent() const {
    return typedProperty<Arbor::BoolVariant>(tok_Consistent);
}

bool StyleElement::afterAttributeChange(Arbor::Element* source, Token name) {
    if (source != this && !inheritingElement(source, name)) return false;
    if (source != this && hasAttribute(name)) return false;
    Property* p = propertyInfo(name);
    if (!p || !p->isInherited()) return false;
    fireAfterPropertyChange(name);
    // A style styles its siblings: the change goes to them and below, not to its own children.
    if (parent_)
        for (Arbor::Node* n = parent_->firstChild(); n; n = n->nextSibling())
            if (auto* sibling = PlotElement::from(n); sibling && !sibling->isStyle())
                sibling->propagateAfterAttributeChange(source, name);
    return false;
}

void StyleElement::normalizeInheritingAttributes(Token name) {
    if (!parent_) return;
    for (Arbor::Node* n = parent_->firstChild(); n; n = n->nextSibling())
        if (auto* sibling = PlotElement::from(n); sibling && !sibling->isStyle())
            sibling->normalizeAttribute(this, name);
}

void StyleElement::putCmd(CmdOStream& out) {
    const Token type = getCmdType();
    for (const AttributeValue& a : attributes())
        if (Property* p = propertyInfo(a.name)) p->putCmdPrefixed(out, type, a.value);
}

} // namespace Grafel
