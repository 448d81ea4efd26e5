#include <grafel/structure/CoordinateSystem3d.h>

#include <grafel/structure/LibraryTables.h>

namespace Grafel {

using Arbor::Token;

PlotElement* CoordinateSystem3d::inheritingFrom(Token name) const {
    return inheritingFromStyles(tok_CoordinateSystem3dStyle, name);
}

void CoordinateSystem3d::getInheritanceChain(std::vector<PlotElement*>& chain) const {
    appendStyles(tok_CoordinateSystem3dStyle, chain);
}

Property* CoordinateSystem3d::propertyInfo(Token name) const {
    return findInTables<coordinateSystemStylePropertyList, coordinateSystem3dStylePropertyList,
                        coordinateSystemPropertyList>(name);
}

bool CoordinateSystem3d::allowedContentChild(Token tag) const {
    return tag == tok_Obj3d || tag == tok_Group3d || tag == tok_Transform3d || tag == tok_ObjStyle;
}

} // namespace Grafel
