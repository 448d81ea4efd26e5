// Line segments in space: a list of points that its Type pairs into segments.
#pragma once

#include <grafel/document/P3List.h>
#include <grafel/primitives/Rows3d.h>

#include <cstddef>
#include <utility>

// Colours start opaque black and the tokens but Type null.
#define GRAFEL_LINES3D_TABLE(P)                                                                    \
    P(Mandatory, Lines3dTypeType, Type, getToken(id_Lines), getToken(id_Lines))                    \
    GRAFEL_3D_COLORED_LINE_ROWS(P)                                                                 \
    GRAFEL_3D_POINT_MARK_ROWS(P)                                                                   \
    P(Inherited, BoolProperty, PointsVisible, false, false)                                        \
    GRAFEL_3D_DIRECTION_ROWS(P, LineColor)

namespace Grafel {

/// Lines joins points 2k and 2k+1, LineStrip each point to the next, LineLoop also the last to
/// the first. The first colour list, when there is one, colours the lines. A copy keeps the
/// points.
class Lines3d : public ElementClass<Lines3d, id_Lines3d, P3List, CloneBy::copy> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Lines3d, GRAFEL_LINES3D_TABLE, lineAttributeFlags)

public:
    /// The segments the points make under Type; 0 for a Type that is none of the three.
    std::size_t numSegments() const;
    /// The end points of segment `k`, as indices into the points; std::out_of_range unless
    /// `k < numSegments()`.
    std::pair<std::size_t, std::size_t> segment(std::size_t k) const;
    /// The colours of the lines, one per point, or null.
    const RGBA* lineColors() const { return firstColors(); }

protected:
    explicit Lines3d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
