// The property tables of coordinate systems and their styles: what a coordinate system alone
// has (identity and the mask of the viewing box limits found automatically), the style values
// of every coordinate system, and those of one dimension only. Each table is written here
// once; the descriptor tables and the typed getters both come from it (see ListTable.h for the
// form of a row).
#pragma once

#include <grafel/foundation/FontStyle.h>
#include <grafel/foundation/Rgba.h>
#include <grafel/structure/LibraryTables.h>

// Which limits of the viewing box the viewer found itself: the partFlag() bits of the six
// ViewingBox parts. The default holds every limit but ViewingBoxZMax.
#define GRAFEL_COORDINATE_SYSTEM_VIEW_ROWS(P) P(Optional, AutoViewingBoxTypeL, AutoViewingBox, 31L)

// What a coordinate system has and no style gives.
#define GRAFEL_COORDINATE_SYSTEM_TABLE(P)                                                          \
    GRAFEL_LIBRARY_IDENTITY_ROWS(P) GRAFEL_COORDINATE_SYSTEM_VIEW_ROWS(P)

// Style values of coordinate systems of both dimensions: axes, ticks and grid. Sizes are
// millimetres.
#define GRAFEL_COORDINATE_SYSTEM_STYLE_TABLE(P)                                                    \
    P(Inherited, ScalingTypeL, Scaling, ::Grafel::getToken(::Grafel::id_Automatic))                \
    P(Inherited, AxesTypeL, Axes, ::Grafel::getToken(::Grafel::id_Boxed))                          \
    P(Inherited, AxesBoolProperty, XAxisVisible, true)                                             \
    P(Inherited, AxesBoolProperty, YAxisVisible, true)                                             \
    P(Inherited, PosOutputSizeListPropertyImpl, AxesLineWidth, 0.2)                                \
    P(Inherited, ColorListProperty, AxesLineColor, ::Grafel::RGBA::Black)                          \
    P(Inherited, AxesBoolProperty, AxesTips, true)                                                 \
    P(Inherited, AxisTitleAlignmentTypeL, XAxisTitleAlignment,                                     \
      ::Grafel::getToken(::Grafel::id_Center))                                                     \
    P(Inherited, AxisTitleAlignmentTypeL, YAxisTitleAlignment,                                     \
      ::Grafel::getToken(::Grafel::id_Center))                                                     \
    P(Inherited, FontListProperty, AxesTitleFont, ::Grafel::FontStyle::standard())                 \
    P(Inherited, TicksBoolProperty, XTicksVisible, true)                                           \
    P(Inherited, TicksBoolProperty, YTicksVisible, true)                                           \
    P(Inherited, PosOutputSizeListPropertyImpl, TicksLength, 1.5)                                  \
    P(Inherited, TicksLabelStyleTypeL, XTicksLabelStyle,                                           \
      ::Grafel::getToken(::Grafel::id_Horizontal))                                                 \
    P(Inherited, TicksLabelStyleTypeL, YTicksLabelStyle,                                           \
      ::Grafel::getToken(::Grafel::id_Horizontal))                                                 \
    P(Inherited, TicksNumberTypeL, XTicksNumber, ::Grafel::getToken(::Grafel::id_Normal))          \
    P(Inherited, TicksNumberTypeL, YTicksNumber, ::Grafel::getToken(::Grafel::id_Normal))          \
    P(Inherited, TicksLongProperty, XTicksBetween, 0L)                                             \
    P(Inherited, TicksLongProperty, YTicksBetween, 0L)                                             \
    P(Inherited, FontListProperty, TicksLabelFont, ::Grafel::FontStyle::standard())                \
    P(Inherited, TicksBoolProperty, XTicksLabelsVisible, true)                                     \
    P(Inherited, TicksBoolProperty, YTicksLabelsVisible, true)                                     \
    P(Inherited, GridBoolProperty, XGridVisible, false)                                            \
    P(Inherited, GridBoolProperty, YGridVisible, false)                                            \
    P(Inherited, LineStyleTypeL, GridLineStyle, ::Grafel::getToken(::Grafel::id_Dotted))           \
    P(Inherited, PosOutputSizeListPropertyImpl, GridLineWidth, 0.2)                                \
    P(Inherited, ColorListProperty, GridLineColor, ::Grafel::RGBA::Black)                          \
    P(Inherited, GridBoolProperty, XSubgridVisible, false)                                         \
    P(Inherited, GridBoolProperty, YSubgridVisible, false)                                         \
    P(Inherited, LineStyleTypeL, SubgridLineStyle, ::Grafel::getToken(::Grafel::id_Dotted))        \
    P(Inherited, PosOutputSizeListPropertyImpl, SubgridLineWidth, 0.2)                             \
    P(Inherited, ColorListProperty, SubgridLineColor, ::Grafel::RGBA::Black)

// Style values of 2D coordinate systems only.
#define GRAFEL_COORDINATE_SYSTEM2D_STYLE_TABLE(P)                                                  \
    P(Inherited, CoordinateType2dTypeL, CoordinateType, ::Grafel::getToken(::Grafel::id_LinLin))   \
    P(Inherited, AxesBoolProperty, AxesInFront, true)                                              \
    P(Inherited, YAxisTitleOrientationTypeL, YAxisTitleOrientation,                                \
      ::Grafel::getToken(::Grafel::id_Horizontal))                                                 \
    P(Inherited, GridBoolProperty, GridInFront, false)

// Style values of 3D coordinate systems only: the third axis.
#define GRAFEL_COORDINATE_SYSTEM3D_STYLE_TABLE(P)                                                  \
    P(Inherited, AxesBoolProperty, ZAxisVisible, true)                                             \
    P(Inherited, AxisTitleAlignmentTypeL, ZAxisTitleAlignment,                                     \
      ::Grafel::getToken(::Grafel::id_Center))                                                     \
    P(Inherited, TicksBoolProperty, ZTicksVisible, true)                                           \
    P(Inherited, TicksLabelStyleTypeL, ZTicksLabelStyle,                                           \
      ::Grafel::getToken(::Grafel::id_Horizontal))                                                 \
    P(Inherited, TicksNumberTypeL, ZTicksNumber, ::Grafel::getToken(::Grafel::id_Normal))          \
    P(Inherited, TicksLongProperty, ZTicksBetween, 0L)                                             \
    P(Inherited, GridBoolProperty, ZGridVisible, false)                                            \
    P(Inherited, GridBoolProperty, ZSubgridVisible, false)                                         \
    P(Inherited, TicksBoolProperty, ZTicksLabelsVisible, true)

namespace Grafel {

/// The descriptors of GRAFEL_COORDINATE_SYSTEM_TABLE, filled on first use.
PropertyListMgr& coordinateSystemPropertyList();
/// The descriptors of GRAFEL_COORDINATE_SYSTEM_STYLE_TABLE, filled on first use.
PropertyListMgr& coordinateSystemStylePropertyList();
/// The descriptors of GRAFEL_COORDINATE_SYSTEM2D_STYLE_TABLE, filled on first use.
PropertyListMgr& coordinateSystem2dStylePropertyList();
/// The descriptors of GRAFEL_COORDINATE_SYSTEM3D_STYLE_TABLE, filled on first use.
PropertyListMgr& coordinateSystem3dStylePropertyList();

} // namespace Grafel
