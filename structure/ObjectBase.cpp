#include <grafel/structure/ObjectBase.h>

#include <grafel/foundation/ValueVariants.h>
#include <grafel/properties/Property.h>
#include <grafel/structure/ObjStyle.h>
#include <grafel/structure/detail/AnimationStep.h>
#include <grafel/structure/detail/ParameterRange.h>

#include <cmath>

namespace Grafel {

using Arbor::Node;
using Arbor::Token;

ObjectBase::ObjectBase(Arbor::Document* document)
    : LibraryElement(document), ObjectStyleGetter(this) {}

ObjectBase::ObjectBase(const ObjectBase& other) : LibraryElement(other), ObjectStyleGetter(this) {}

ObjectBase& ObjectBase::operator=(const ObjectBase& other) {
    LibraryElement::operator=(other);
    return *this;
}

PlotElement* ObjectBase::inheritingFrom(Token name) const {
    return styles_.of(this).find(name);
}

const Arbor::Variant& ObjectBase::propertyRef(Token name) const {
    if (const Arbor::Variant* own = this->findAttribute(name)) return *own;
    Property* p = propertyInfo(name);
    // Unknown, Mandatory and Optional properties resolve as in every list element.
    if (!p || !p->isInherited()) return LibraryElement::propertyRef(name);
    // The style found holds the value, and the walk has its record already.
    const Arbor::Variant* inherited;
    if (styles_.of(this).find(name, &inherited)) return *inherited;
    return p->defaultRef();
}

void ObjectBase::getInheritanceChain(std::vector<PlotElement*>& chain) const {
    styles_.of(this).appendChain(chain);
}

bool ObjectBase::getLegendColor(RGBA& out) const {
    const Token source = getLegendColor();
    if (!hasProperty(source)) return false;
    const auto* colour = propertyRef(source).as<RGBAVariant>();
    if (!colour) return false;
    out = colour->val();
    return true;
}

bool ObjectBase::getParameterRange(double& begin, double& end) const {
    return detail::parameterRange(this, begin, end);
}

void ObjectBase::getNextAnimationTime(double time, bool backward, double& best) {
    const double timeBegin = getTimeBegin();
    if (std::isnan(timeBegin)) return;
    const double timeEnd = getTimeEnd();
    if (std::isnan(timeEnd) || detail::spanIsBehind(time, backward, timeBegin, timeEnd)) return;
    double paramBegin, paramEnd;
    if (!getParameterRange(paramBegin, paramEnd)) return;
    for (Node* n = firstChild(); n; n = n->nextSibling()) {
        const Token tag = n->nodeName();
        if (tag != tok_Img2d && tag != tok_Img3d) continue;
        PlotElement* image = PlotElement::from(n);
        if (!image) continue;
        const double frame = image->getFrameTime(timeBegin, timeEnd, paramBegin, paramEnd);
        if (std::isnan(frame)) continue;
        if (detail::offerFrame(frame, time, backward, best)) return;
    }
}

int ObjectBase::tagNameToOptionChildFlag(Token tag) const {
    return optionChildFlags.flagOf(tag);
}

void ObjectBase::normalizeInheritingAttributes(Token name) {
    for (Node* n = firstChild(); n; n = n->nextSibling())
        if (PlotElement* child = PlotElement::from(n)) child->normalizeAttribute(this, name);
}

void ObjectBase::putCmdName(CmdOStream& out) {
    out << getType();
}

} // namespace Grafel
