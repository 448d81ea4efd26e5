#include <grafel/structure/ObjectBase.h>

#include <grafel/foundation/ValueVariants.h>
#include <grafel/properties/Property.h>
#include <grafel/properties/VExpr.h>
#include <grafel/structure/ObjStyle.h>

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
    bool haveBegin = false, haveEnd = false;
    for (Node* n = firstChild(); n; n = n->nextSibling()) {
        const Token tag = n->nodeName();
        const bool isBegin = tag == tok_ParameterBegin;
        if (!isBegin && tag != tok_ParameterEnd) continue;
        const auto* bound = dynamic_cast<const VExpr*>(n);
        if (!bound) continue;
        double& value = isBegin ? begin : end;
        value = bound->getVal();
        if (std::isnan(value)) return false;
        (isBegin ? haveBegin : haveEnd) = true;
        if (haveBegin && haveEnd) return true;
    }
    return false;
}

int ObjectBase::tagNameToOptionChildFlag(Token tag) const {
    static const struct {
        const Token& tag;
        int flag;
    } flags[] = {
        {tok_ParameterName, ParameterNameFlag},
        {tok_ParameterBegin, ParameterBeginFlag},
        {tok_ParameterEnd, ParameterEndFlag},
        {tok_Title, TitleFlag},
        {tok_TitlePositionX, TitlePositionXFlag},
        {tok_TitlePositionY, TitlePositionYFlag},
        {tok_TitlePositionZ, TitlePositionZFlag},
        {tok_LegendText, LegendTextFlag},
        {tok_Points2d, Points2dFlag},
        {tok_Points3d, Points3dFlag},
        {tok_TextOrientation, TextOrientationFlag},
    };
    for (const auto& f : flags)
        if (f.tag == tag) return f.flag;
    return 0;
}

void ObjectBase::normalizeInheritingAttributes(Token name) {
    for (Node* n = firstChild(); n; n = n->nextSibling())
        if (PlotElement* child = PlotElement::from(n)) child->normalizeAttribute(this, name);
}

void ObjectBase::putCmdName(CmdOStream& out) {
    out << getType();
}

} // namespace Grafel
