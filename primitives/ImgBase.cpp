#include <grafel/primitives/ImgBase.h>

#include <grafel/structure/ObjectBase.h>
#include <grafel/structure/detail/FrameTime.h>

#include <cmath>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_TABLE(ImgBase, GRAFEL_IMGBASE_TABLE)

// An image inherits nothing, so nothing of its own needs refreshing when it moves; but its
// primitives now inherit from another object.
void ImgBase::afterParentChanged() {
    time_ = NaN();
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling()) n->afterParentChanged();
}

bool ImgBase::afterAttributeChange(Arbor::Element* source, Arbor::Token name) {
    time_ = NaN();
    return PlotElement::afterAttributeChange(source, name) || source != this;
}

double ImgBase::getTime() {
    if (!std::isnan(time_)) return time_;
    if (std::isnan(m_Param)) return NaN();
    Arbor::Node* up = parentNode();
    if (!up || (up->nodeName() != tok_Obj2d && up->nodeName() != tok_Obj3d)) return NaN();
    const auto* object = dynamic_cast<const ObjectBase*>(up);
    if (!object) return NaN();
    return detail::frameTimeIn(*object, time_, m_Param);
}

double ImgBase::getTime(double timeBegin, double timeEnd, double paramBegin, double paramEnd) {
    return detail::frameTime(time_, m_Param, timeBegin, timeEnd, paramBegin, paramEnd);
}

} // namespace Grafel
