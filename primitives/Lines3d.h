// Line segments in space: a list of points that its Type pairs into segments.
#pragma once

#include <grafel/document/P3List.h>
#include <grafel/primitives/PrimitiveClass.h>

#include <cstddef>
#include <utility>

// Colours start opaque black and the tokens but Type null.
#define GRAFEL_LINES3D_TABLE(P)                                                                    \
    P(Mandatory, Lines3dTypeType, Type, getToken(id_Lines), getToken(id_Lines))                    \
    P(Inherited, LineStyleType, LineStyle, ::Arbor::Token(), getToken(id_Solid))                   \
    P(Inherited, PosOutputSizeType, LineWidth, 0.5, 0.5)                                           \
    P(Inherited, ColorProperty, LineColor, RGBA(), RGBA::Black)                                    \
    P(Inherited, ColorType, LineColorType, ::Arbor::Token(), getToken(id_Flat))                    \
    P(Inherited, ColorProperty, LineColor2, RGBA(), (RGBA(0, 0, 255, 255)))                        \
    P(Inherited, PointStyleType, PointStyle, ::Arbor::Token(), getToken(id_Squares))               \
    P(Inherited, PosOutputSizeType, PointSize, 2.0, 2.0)                                           \
    P(Inherited, BoolProperty, PointsVisible, false, false)                                        \
    P(Inherited, DoubleProperty, LineColorDirectionX, 0.0, 0.0)                                    \
    P(Inherited, DoubleProperty, LineColorDirectionY, 0.0, 0.0)                                    \
    P(Inherited, DoubleProperty, LineColorDirectionZ, 1.0, 1.0)

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
