#include <grafel/structure/CoordinateSystemStyles.h>

#include <grafel/structure/LibraryTables.h>
#include <grafel/structure/detail/StyleLookup.h>

namespace Grafel {

using Arbor::Token;

// A style looks one level above its parent: from a scene to the page, from the page to
// nothing.
template <TokenId Tag> PlotElement* CoordinateSystemStyle<Tag>::inheritingFrom(Token name) const {
    return detail::holding(detail::styleAt(detail::parentOf(this->parent_), getToken(Tag)), name);
}

template <TokenId Tag>
void CoordinateSystemStyle<Tag>::getInheritanceChain(std::vector<PlotElement*>& chain) const {
    if (PlotElement* style = detail::styleAt(detail::parentOf(this->parent_), getToken(Tag)))
        chain.push_back(style);
}

template <TokenId Tag> Property* CoordinateSystemStyle<Tag>::propertyInfo(Token name) const {
    if constexpr (Tag == id_CoordinateSystem2dStyle)
        return findInTables<coordinateSystem2dStylePropertyList, coordinateSystemStylePropertyList>(
            name);
    else
        return findInTables<coordinateSystem3dStylePropertyList, coordinateSystemStylePropertyList>(
            name);
}

template <TokenId Tag> Token CoordinateSystemStyle<Tag>::getCmdType() {
    return Tag == id_CoordinateSystem2dStyle ? tok_CoordinateSystem2d : tok_CoordinateSystem3d;
}

template class CoordinateSystemStyle<id_CoordinateSystem2dStyle>;
template class CoordinateSystemStyle<id_CoordinateSystem3dStyle>;

} // namespace Grafel
