#include <grafel/structure/TrBase.h>

#include <grafel/structure/TransformBase.h>

#include <cmath>
#include <limits>

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
    const double timeBegin = transform->getTimeBegin();
    const double timeEnd = transform->getTimeEnd();
    if (std::isnan(timeBegin) || std::isnan(timeEnd)) return NaN();
    double paramBegin, paramEnd;
    if (!transform->getParameterRange(paramBegin, paramEnd)) return NaN();
    return getTime(timeBegin, timeEnd, paramBegin, paramEnd);
}

double TrBase::getTime(double timeBegin, double timeEnd, double paramBegin, double paramEnd) {
    if (!std::isnan(time_)) return time_;
    if (std::isnan(m_Param)) return NaN();
    // A parameter range of one value puts every frame at the start, without a division by 0;
    // that answer depends on the arguments only, so it is not kept.
    if (std::fabs(paramEnd - paramBegin) <= std::numeric_limits<double>::epsilon())
        return timeBegin;
    time_ = (m_Param - paramBegin) / (paramEnd - paramBegin) * (timeEnd - timeBegin) + timeBegin;
    return time_;
}

} // namespace Grafel
