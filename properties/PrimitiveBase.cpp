#include <grafel/properties/PrimitiveBase.h>

namespace Grafel {

bool PrimitiveBase::mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) {
    return !newFirst && (!first || count == 0);
}

PlotElement* PrimitiveBase::source() const {
    return parent_ ? PlotElement::from(parent_->parentNode()) : nullptr;
}

PlotElement* PrimitiveBase::inheritingFrom(Arbor::Token name) const {
    PlotElement* up = source();
    if (!up || up->hasAttribute(name)) return up;
    return up->inheritingFrom(name);
}

void PrimitiveBase::getInheritanceChain(std::vector<PlotElement*>& chain) const {
    if (PlotElement* up = source()) {
        chain.push_back(up);
        up->getInheritanceChain(chain);
    }
}

} // namespace Grafel
