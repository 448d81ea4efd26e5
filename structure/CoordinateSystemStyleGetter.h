// Typed reading of the resolved values of a coordinate system or a coordinate-system style: one
// getter per property of the style tables, and the mask of the automatic viewing box limits.
#pragma once

#include <grafel/properties/AttributeListElement.h>
#include <grafel/structure/CoordinateSystemTables.h>

namespace Grafel {

/// Mixed into CoordinateSystem2d, CoordinateSystem3d and their styles: `get` plus the name of
/// each style property of both dimensions, and getAutoViewingBox. A getter reads through the
/// served element's own descriptors, so it resolves, defaults and fails as getProperty does
/// there: a property the element's class does not know (getZAxisVisible of a 2D system,
/// getAutoViewingBox of a style) reports "unknown property" and throws DomException 15. Fonts
/// come back by reference into the record or descriptor that holds them, valid until the tree
/// changes.
class CoordinateSystemStyleGetter {
public:
    /// Serves `element`, for good; `element` is the element this getter is part of.
    explicit CoordinateSystemStyleGetter(PlotElement* element) : elem(element) {}
    /// A copy would serve the wrong element: the class mixing this in passes its own `this`.
    CoordinateSystemStyleGetter(const CoordinateSystemStyleGetter&) = delete;
    /// Keeps the element served.
    CoordinateSystemStyleGetter& operator=(const CoordinateSystemStyleGetter&) { return *this; }

    /// The element served.
    PlotElement* thisElem() const { return elem; }
    /// The element whose values the getters read.
    const AttributeListElement* listElement_() const { return elem->asAttributeList(); }

    GRAFEL_LIST_GETTERS(GRAFEL_COORDINATE_SYSTEM_VIEW_ROWS)
    GRAFEL_LIST_GETTERS(GRAFEL_COORDINATE_SYSTEM_STYLE_TABLE)
    GRAFEL_LIST_GETTERS(GRAFEL_COORDINATE_SYSTEM2D_STYLE_TABLE)
    GRAFEL_LIST_GETTERS(GRAFEL_COORDINATE_SYSTEM3D_STYLE_TABLE)

protected:
    PlotElement* const elem;
};

} // namespace Grafel
