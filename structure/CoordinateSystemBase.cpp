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
    static const struct {
        const Token& tag;
        int flag;
    } flags[] = {
        {tok_ViewingBoxXMin, ViewingBoxXMinFlag},
        {tok_ViewingBoxXMax, ViewingBoxXMaxFlag},
        {tok_ViewingBoxYMin, ViewingBoxYMinFlag},
        {tok_ViewingBoxYMax, ViewingBoxYMaxFlag},
        {tok_ViewingBoxZMin, ViewingBoxZMinFlag},
        {tok_ViewingBoxZMax, ViewingBoxZMaxFlag},
        {tok_AxesOriginX, AxesOriginXFlag},
        {tok_AxesOriginY, AxesOriginYFlag},
        {tok_AxesOriginZ, AxesOriginZFlag},
        {tok_XAxisTitle, XAxisTitleFlag},
        {tok_YAxisTitle, YAxisTitleFlag},
        {tok_ZAxisTitle, ZAxisTitleFlag},
        {tok_XTicksAnchor, XTicksAnchorFlag},
        {tok_XTicksDistance, XTicksDistanceFlag},
        {tok_YTicksAnchor, YTicksAnchorFlag},
        {tok_YTicksDistance, YTicksDistanceFlag},
        {tok_ZTicksAnchor, ZTicksAnchorFlag},
        {tok_ZTicksDistance, ZTicksDistanceFlag},
        {tok_XTicksAt, XTicksAtFlag},
        {tok_YTicksAt, YTicksAtFlag},
        {tok_ZTicksAt, ZTicksAtFlag},
        {tok_Hints, HintsFlag},
    };
    for (const auto& f : flags)
        if (f.tag == tag) return f.flag;
    return 0;
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
