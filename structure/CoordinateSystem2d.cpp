#include <grafel/structure/CoordinateSystem2d.h>

#include <grafel/structure/LibraryTables.h>

namespace Grafel {

using Arbor::Token;

PlotElement* CoordinateSystem2d::inheritingFrom(Token name) const {
    return inheritingFromStyles(tok_CoordinateSystem2dStyle, name);
}

void CoordinateSystem2d::getInheritanceChain(std::vector<PlotElement*>& chain) const {
    appendStyles(tok_CoordinateSystem2dStyle, chain);
}

Property* CoordinateSystem2d::propertyInfo(Token name) const {
    return findInTables<coordinateSystemStylePropertyList, coordinateSystem2dStylePropertyList,
                        coordinateSystemPropertyList>(name);
}

bool CoordinateSystem2d::allowedContentChild(Token tag) const {
    return tag == tok_Obj2d || tag == tok_Group2d || tag == tok_Transform2d || tag == tok_ObjStyle;
}

} // namespace Grafel
