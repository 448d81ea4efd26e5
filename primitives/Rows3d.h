// Row groups that several 3D primitives share, in the order their tables register them.
#pragma once

#include <grafel/primitives/PrimitiveClass.h>

// A segment from From to To; the defaults run along the diagonal of the unit cube.
#define GRAFEL_3D_SEGMENT_ROWS(P)                                                                  \
    P(Mandatory, P3Property, From, (P3(0, 0, 0)), (P3(0, 0, 0)))                                   \
    P(Mandatory, P3Property, To, (P3(1, 1, 1)), (P3(1, 1, 1)))

// How a line is stroked.
#define GRAFEL_3D_LINE_ROWS(P)                                                                     \
    P(Inherited, LineStyleType, LineStyle, ::Arbor::Token(), getToken(id_Solid))                   \
    P(Inherited, PosOutputSizeType, LineWidth, 0.5, 0.5)                                           \
    P(Inherited, ColorProperty, LineColor, RGBA(), RGBA::Black)

// A line drawn as a tube of the given diameter on the page.
#define GRAFEL_3D_TUBE_ROWS(P)                                                                     \
    P(Inherited, BoolProperty, Tubular, true, true)                                                \
    P(Inherited, PosOutputSizeType, TubeDiameter, 2.0, 2.0)

// The outline and the filling of a surface primitive.
#define GRAFEL_3D_OUTLINED_FILL_ROWS(P)                                                            \
    GRAFEL_3D_LINE_ROWS(P)                                                                         \
    P(Inherited, BoolProperty, Filled, true, true)                                                 \
    P(Inherited, ColorProperty, FillColor, RGBA(), RGBA::Black)

#define GRAFEL_3D_LINES_VISIBLE_ROW(P) P(Inherited, BoolProperty, LinesVisible, true, true)

// The filling of a closed solid without outline.
#define GRAFEL_3D_SHADED_FILL_ROWS(P)                                                              \
    P(Inherited, ColorProperty, FillColor, RGBA(), RGBA::Black)                                    \
    P(Inherited, ShadingType, Shading, ::Arbor::Token(), getToken(id_Flat))

// The members of GRAFEL_3D_OUTLINED_FILL_ROWS and LinesVisible that are narrower than a word,
// for a layout that packs them behind the presence word.
#define GRAFEL_3D_OUTLINED_FILL_NARROW(F) F(LineColor) F(FillColor) F(Filled) F(LinesVisible)

// Lines coloured flat or by a function running from LineColor to LineColor2.
#define GRAFEL_3D_COLORED_LINE_ROWS(P)                                                             \
    GRAFEL_3D_LINE_ROWS(P)                                                                         \
    P(Inherited, ColorType, LineColorType, ::Arbor::Token(), getToken(id_Flat))                    \
    P(Inherited, ColorProperty, LineColor2, RGBA(), (RGBA(0, 0, 255, 255)))

// How the points of a list are marked.
#define GRAFEL_3D_POINT_MARK_ROWS(P)                                                               \
    P(Inherited, PointStyleType, PointStyle, ::Arbor::Token(), getToken(id_Squares))               \
    P(Inherited, PosOutputSizeType, PointSize, 2.0, 2.0)

// Faces coloured flat or by a function running from FillColor to FillColor2, and shaded.
#define GRAFEL_3D_COLORED_FACE_ROWS(P)                                                             \
    P(Inherited, ShadingType, Shading, ::Arbor::Token(), getToken(id_Flat))                        \
    P(Inherited, ColorProperty, FillColor, RGBA(), (RGBA(255, 0, 0, 255)))                         \
    P(Inherited, ColorType, FillColorType, ::Arbor::Token(), getToken(id_Flat))                    \
    P(Inherited, ColorProperty, FillColor2, RGBA(), (RGBA(255, 255, 0, 255)))

// The direction along which a colour function runs; by default up the z axis.
#define GRAFEL_3D_DIRECTION_ROWS(P, Prefix)                                                        \
    P(Inherited, DoubleProperty, Prefix##DirectionX, 0.0, 0.0)                                     \
    P(Inherited, DoubleProperty, Prefix##DirectionY, 0.0, 0.0)                                     \
    P(Inherited, DoubleProperty, Prefix##DirectionZ, 1.0, 1.0)
