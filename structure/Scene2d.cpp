#include <grafel/structure/Scene2d.h>

#include <grafel/structure/LibraryTables.h>
#include <grafel/structure/detail/StyleLookup.h>

namespace Grafel {

using Arbor::Token;

PlotElement* Scene2d::inheritingFrom(Token name) const {
    return detail::holding(pageStyle(tok_Scene2dStyle), name);
}

void Scene2d::getInheritanceChain(std::vector<PlotElement*>& chain) const {
    if (PlotElement* style = pageStyle(tok_Scene2dStyle)) chain.push_back(style);
}

Property* Scene2d::propertyInfo(Token name) const {
    return findInTables<scenePropertyList, sceneStylePropertyList>(name);
}

bool Scene2d::allowedContentChild(Token tag) const {
    return tag == tok_CoordinateSystem2d || tag == tok_ObjStyle;
}

} // namespace Grafel
