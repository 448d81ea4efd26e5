#include <grafel/structure/CoordinateSystemBase.h>

#include <grafel/structure/Hints.h>
#include <grafel/structure/detail/StyleLookup.h>

namespace Grafel {

using Arbor::Node;
using Arbor::Token;
using detail::holding;
using detail::styleAt;

CoordinateSystemBase::CoordinateSystemBase(Arbor::Document* document)
    : LibraryElement(document), CoordinateSystemStyleGetter(this) {}

CoordinateSystemBase::CoordinateSystemBase(const CoordinateSystemBase& other)
    : LibraryElement(other), CoordinateSystemStyleGetter(this) {}

CoordinateSystemBase& CoordinateSystemBase::operator=(const CoordinateSystemBase& other) {
    LibraryElement::operator=(other);
    return *this;
}

int CoordinateSystemBase::tagNameToOptionChildFlag(Token tag) const {
    return optionChildFlags.flagOf(tag);
}

PlotElement* CoordinateSystemBase::inheritingFromStyles(Token styleTag, Token name) const {
    if (!parent_) return nullptr;
    if (PlotElement* sceneStyle = holding(styleAt(parent_, styleTag), name)) return sceneStyle;
    return holding(styleAt(parent_->parentNode(), styleTag), name);
}

void CoordinateSystemBase::appendStyles(Token styleTag, std::vector<PlotElement*>& chain) const {
    if (!parent_) return;
    if (PlotElement* sceneStyle = styleAt(parent_, styleTag)) chain.push_back(sceneStyle);
    if (PlotElement* pageStyle = styleAt(parent_->parentNode(), styleTag))
        chain.push_back(pageStyle);
}

bool CoordinateSystemBase::getConstrainedScaling() const {
    const Token scaling = getScaling();
    if (scaling == tok_Constrained) return true;
    if (scaling == tok_Unconstrained) return false;
    // The member is read as it stands: a Hints that was never given a value says no.
    const auto* hints = dynamic_cast<const Hints*>(findChild(tok_Hints));
    return hints && hints->getScaling() == tok_Constrained;
}

} // namespace Grafel
