// The property tables of plot objects and object styles: the style values that every object
// has, those of one dimension only, and the few that belong to an object and never to a style.
// Each table is written here once; the descriptor tables and the typed getters both come from
// it (see ListTable.h for the form of a row).
#pragma once

#include <grafel/foundation/FontStyle.h>
#include <grafel/foundation/Rgba.h>
#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ListTable.h>

// Style values of objects of both dimensions. Sizes are millimetres; colours are given as
// red, green, blue, alpha.
#define GRAFEL_OBJECT_STYLE_TABLE(P)                                                               \
    P(Mandatory, TypeListPropertyImpl, Type, ::Arbor::Token())                                     \
    P(Inherited, StyleMeshTypeL, XMesh, 20)                                                        \
    P(Inherited, StyleMeshTypeL, YMesh, 20)                                                        \
    P(Inherited, StyleMeshTypeL, UMesh, 20)                                                        \
    P(Inherited, SubmeshTypeL, XSubmesh, 0)                                                        \
    P(Inherited, SubmeshTypeL, YSubmesh, 0)                                                        \
    P(Inherited, SubmeshTypeL, USubmesh, 0)                                                        \
    P(Inherited, SubmeshTypeL, VSubmesh, 0)                                                        \
    P(Inherited, NonNegLongTypeL, AdaptiveMesh, 0)                                                 \
    P(Inherited, BoolListProperty, DiscontinuitySearch, true)                                      \
    P(Inherited, FramesTypeL, Frames, 0)                                                           \
    P(Inherited, BoolListProperty, VisibleBeforeBegin, true)                                       \
    P(Inherited, BoolListProperty, VisibleAfterEnd, true)                                          \
    P(Inherited, BoolListProperty, Closed, false)                                                  \
    P(Inherited, DoubleListProperty, TimeBegin, 0.0)                                               \
    P(Inherited, DoubleListProperty, TimeEnd, 4.0)                                                 \
    P(Inherited, LineStyleTypeL, LineStyle, ::Grafel::getToken(::Grafel::id_Solid))                \
    P(Inherited, PosOutputSizeListPropertyImpl, LineWidth, 0.5)                                    \
    P(Inherited, ColorListProperty, LineColor, ::Grafel::RGBA::Black)                              \
    P(Inherited, PointStyleTypeL, PointStyle, ::Grafel::getToken(::Grafel::id_Squares))            \
    P(Inherited, PosOutputSizeListPropertyImpl, PointSize, 2.0)                                    \
    P(Inherited, ColorListProperty, PointColor, ::Grafel::RGBA::Black)                             \
    P(Inherited, ColorTypeL, LineColorType, ::Grafel::getToken(::Grafel::id_Flat))                 \
    P(Inherited, ColorListProperty, LineColor2, (::Grafel::RGBA(0, 0, 255, 255)))                  \
    P(Inherited, BoolListProperty, Filled, true)                                                   \
    P(Inherited, ColorListProperty, FillColor, ::Grafel::RGBA::Black)                              \
    P(Inherited, ColorTypeL, FillColorType, ::Grafel::getToken(::Grafel::id_Flat))                 \
    P(Inherited, ColorListProperty, FillColor2, (::Grafel::RGBA(0, 0, 255, 255)))                  \
    P(Inherited, ArrowLengthTypeL, ArrowLength, ::Grafel::getToken(::Grafel::id_Fixed))            \
    P(Inherited, BoolListProperty, LegendEntry, true)                                              \
    P(Inherited, FontListProperty, TitleFont, ::Grafel::FontStyle::standard())                     \
    P(Inherited, TipStyleTypeL, TipStyle, ::Grafel::getToken(::Grafel::id_Filled))                 \
    P(Inherited, NonNegOutputSizeListPropertyImpl, TipLength, 4.0)                                 \
    P(Inherited, DoubleListProperty, TipAngle, 0.17453292519943295)                                \
    P(Inherited, BoolListProperty, LinesVisible, true)                                             \
    P(Inherited, BoolListProperty, PointsVisible, true)                                            \
    P(Inherited, HorizontalAlignmentTypeL, HorizontalAlignment,                                    \
      ::Grafel::getToken(::Grafel::id_Left))                                                       \
    P(Inherited, VerticalAlignmentTypeL, VerticalAlignment,                                        \
      ::Grafel::getToken(::Grafel::id_BaseLine))                                                   \
    P(Inherited, FontListProperty, TextFont, ::Grafel::FontStyle::standard())                      \
    P(Inherited, LegendColorTypeL, LegendColor, ::Arbor::Token())                                  \
    P(Inherited, HorizontalAlignmentTypeL, TitleAlignment,                                         \
      ::Grafel::getToken(::Grafel::id_Center))                                                     \
    P(Inherited, DoubleListProperty, LineColorDirectionX, 0.0)                                     \
    P(Inherited, BoolListProperty, AffectViewingBox, true)                                         \
    P(Inherited, ExtensionTypeL, Extension, ::Grafel::getToken(::Grafel::id_Finite))

// Style values of 2D objects only.
#define GRAFEL_OBJECT2D_STYLE_TABLE(P)                                                             \
    P(Inherited, FillStyleTypeL, FillStyle, ::Grafel::getToken(::Grafel::id_Winding))              \
    P(Inherited, FillPatternTypeL, FillPattern, ::Grafel::getToken(::Grafel::id_Solid))            \
    P(Inherited, BoolListProperty, VerticalAsymptotesVisible, false)                               \
    P(Inherited, LineStyleTypeL, VerticalAsymptotesStyle, ::Grafel::getToken(::Grafel::id_Dashed)) \
    P(Inherited, PosOutputSizeListPropertyImpl, VerticalAsymptotesWidth, 0.5)                      \
    P(Inherited, ColorListProperty, VerticalAsymptotesColor, ::Grafel::RGBA::Black)                \
    P(Inherited, DoubleListProperty, LineColorDirectionY, 1.0)                                     \
    P(Inherited, BoolListProperty, AntiAliased, true)

// Style values of 3D objects only. LineColorDirectionY stands in the 2D table too, with another
// default: an object finds the row of its own dimension, a style always the 2D one.
#define GRAFEL_OBJECT3D_STYLE_TABLE(P)                                                             \
    P(Inherited, StyleMeshTypeL, ZMesh, 20)                                                        \
    P(Inherited, StyleMeshTypeL, VMesh, 20)                                                        \
    P(Inherited, BoolListProperty, OrthogonalProjection, false)                                    \
    P(Inherited, BoolListProperty, KeepUpVector, true)                                             \
    P(Inherited, BoolListProperty, CameraCoordinates, false)                                       \
    P(Inherited, BoolListProperty, XLinesVisible, true)                                            \
    P(Inherited, BoolListProperty, YLinesVisible, true)                                            \
    P(Inherited, BoolListProperty, ULinesVisible, true)                                            \
    P(Inherited, BoolListProperty, VLinesVisible, true)                                            \
    P(Inherited, ShadingTypeL, Shading, ::Grafel::getToken(::Grafel::id_Flat))                     \
    P(Inherited, ColorListProperty, LightColor, ::Grafel::RGBA::White)                             \
    P(Inherited, PosOutputSizeListPropertyImpl, TubeDiameter, 2.0)                                 \
    P(Inherited, BoolListProperty, Tubular, true)                                                  \
    P(Inherited, BoolListProperty, MeshVisible, false)                                             \
    P(Inherited, BoolListProperty, Billboarding, true)                                             \
    P(Inherited, DoubleListProperty, LineColorDirectionY, 0.0)                                     \
    P(Inherited, DoubleListProperty, LineColorDirectionZ, 1.0)                                     \
    P(Inherited, DoubleListProperty, FillColorDirectionX, 0.0)                                     \
    P(Inherited, DoubleListProperty, FillColorDirectionY, 0.0)                                     \
    P(Inherited, DoubleListProperty, FillColorDirectionZ, 1.0)

// The values of an object that no style gives: its address, its name and its state.
#define GRAFEL_OBJECT_TABLE(P)                                                                     \
    P(Optional, IdListPropertyImpl, id, (::Tessel::FixedStringBase<char>()), Id)                   \
    P(Optional, MStringListProperty, Name, (::Tessel::FixedStringBase<wchar_t>()))                 \
    P(Optional, ConsistentListPropertyImpl, Consistent, false)                                     \
    P(Optional, BoolListProperty, Visible, true)

namespace Grafel {

/// The descriptors of GRAFEL_OBJECT_STYLE_TABLE, filled on first use.
PropertyListMgr& objectStylePropertyList();
/// The descriptors of GRAFEL_OBJECT2D_STYLE_TABLE, filled on first use.
PropertyListMgr& object2dStylePropertyList();
/// The descriptors of GRAFEL_OBJECT3D_STYLE_TABLE, filled on first use.
PropertyListMgr& object3dStylePropertyList();
/// The descriptors of GRAFEL_OBJECT_TABLE, filled on first use.
PropertyListMgr& objectPropertyList();

/// The first descriptor of `name` in the table of First, then of Second, then of Third: how
/// an object or a style chains the tables it takes its properties from. A table is only
/// reached when the ones before it have no such descriptor.
template <PropertyListMgr& (*First)(), PropertyListMgr& (*Second)(), PropertyListMgr& (*Third)()>
Property* findObjectProperty(Arbor::Token name) {
    if (Property* p = First().find(name)) return p;
    if (Property* p = Second().find(name)) return p;
    return Third().find(name);
}

} // namespace Grafel
