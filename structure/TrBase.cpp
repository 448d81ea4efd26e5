#include <grafel/structure/TrBase.h>

#include <grafel/structure/TransformBase.h>
#include <grafel/structure/detail/FrameTime.h>

#include <cmath>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_TABLE(TrBase, GRAFEL_TRBASE_TABLE)

// A frame inherits nothing; only its time depends on where it stands.
void TrBase::afterParentChanged() {
    time_ = NaN();
}

bool TrBase::mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) {
    return !newFirst && (!first || count == 0);
}

bool TrBase::afterAttributeChange(Arbor::Element* source, Arbor::Token name) {
    time_ = NaN();
    return PlotElement::afterAttributeChange(source, name);
}

double TrBase::getTime() {
    if (!std::isnan(time_)) return time_;
    if (std::isnan(m_Param)) return NaN();
    Arbor::Node* up = parentNode();
    if (!up || (up->nodeName() != tok_Transform2d && up->nodeName() != tok_Transform3d))
        return NaN();
    const auto* transform = dynamic_cast<const TransformBase*>(up);
    if (!transform) return NaN();
    return detail::frameTimeIn(*transform, time_, m_Param);
}

double TrBase::getTime(double timeBegin, double timeEnd, double paramBegin, double paramEnd) {
    return detail::frameTime(time_, m_Param, timeBegin, timeEnd, paramBegin, paramEnd);
}

} // namespace Grafel
