#include <grafel/structure/CoordinateSystemStyles.h>

#include <grafel/structure/LibraryTables.h>
#include <grafel/structure/detail/StyleLookup.h>

namespace Grafel {

using Arbor::Token;

/// The definitions of a style declared with GRAFEL_COORDINATE_SYSTEM_STYLE_CLASS that styles
/// the systems tagged System and takes its own dimension's values from DimensionTable. A style
/// looks one level above its parent: from a scene to the page, from the page to nothing.
#define GRAFEL_DEFINE_COORDINATE_SYSTEM_STYLE(Class, System, DimensionTable)                       \
    PlotElement* Class::inheritingFrom(Token name) const {                                         \
        return detail::holding(detail::styleAt(detail::parentOf(parent_), tok_##Class), name);     \
    }                                                                                              \
    void Class::getInheritanceChain(std::vector<PlotElement*>& chain) const {                      \
        if (PlotElement* style = detail::styleAt(detail::parentOf(parent_), tok_##Class))          \
            chain.push_back(style);                                                                \
    }                                                                                              \
    Property* Class::propertyInfo(Token name) const {                                              \
        return findInTables<DimensionTable, coordinateSystemStylePropertyList>(name);              \
    }                                                                                              \
    Token Class::getCmdType() {                                                                    \
        return tok_##System;                                                                       \
    }

GRAFEL_DEFINE_COORDINATE_SYSTEM_STYLE(CoordinateSystem2dStyle, CoordinateSystem2d,
                                      coordinateSystem2dStylePropertyList)
GRAFEL_DEFINE_COORDINATE_SYSTEM_STYLE(CoordinateSystem3dStyle, CoordinateSystem3d,
                                      coordinateSystem3dStylePropertyList)

} // namespace Grafel
