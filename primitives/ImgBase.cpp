#include <grafel/primitives/ImgBase.h>

#include <grafel/structure/ObjectBase.h>

#include <cmath>
#include <limits>

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
    const double timeBegin = object->getTimeBegin();
    const double timeEnd = object->getTimeEnd();
    if (std::isnan(timeBegin) || std::isnan(timeEnd)) return NaN();
    double paramBegin, paramEnd;
    if (!object->getParameterRange(paramBegin, paramEnd)) return NaN();
    return getTime(timeBegin, timeEnd, paramBegin, paramEnd);
}

double ImgBase::getTime(double timeBegin, double timeEnd, double paramBegin, double paramEnd) {
    if (!std::isnan(time_)) return time_;
    if (std::isnan(m_Param)) return NaN();
    // A parameter range of one value puts every image at the start, without a division by 0;
    // that answer depends on the arguments only, so it is not kept.
    if (std::fabs(paramEnd - paramBegin) <= std::numeric_limits<double>::epsilon())
        return timeBegin;
    time_ = (m_Param - paramBegin) / (paramEnd - paramBegin) * (timeEnd - timeBegin) + timeBegin;
    return time_;
}

} // namespace Grafel
