// The property tables of scenes and scene styles: what a scene alone has (identity and place on
// the page), the style values of every scene, and those of 3D scenes only. Each table is
// written here once; the descriptor tables and the typed getters both come from it (see
// ListTable.h for the form of a row).
#pragma once

#include <grafel/foundation/FontStyle.h>
#include <grafel/foundation/Rgba.h>
#include <grafel/structure/LibraryTables.h>

// The place of a scene on the page: millimetres, or fractions of the page under the Relative
// layout. The scene writes them itself, so their descriptors write no command text.
#define GRAFEL_SCENE_POSITION_ROWS(P)                                                              \
    P(Optional, PositionTypeL, Bottom, 0.0)                                                        \
    P(Optional, PositionTypeL, Left, 0.0)

// What a scene has and no style gives.
#define GRAFEL_SCENE_TABLE(P) GRAFEL_LIBRARY_IDENTITY_ROWS(P) GRAFEL_SCENE_POSITION_ROWS(P)

// Style values of scenes of both dimensions. Sizes are millimetres; the ratios are declared as
// sizes too, so that their command form is scaled by the output unit.
#define GRAFEL_SCENE_STYLE_TABLE(P)                                                                \
    P(Inherited, PosOutputSizeListPropertyImpl, Width, 100.0)                                      \
    P(Inherited, PosOutputSizeListPropertyImpl, Height, 75.0)                                      \
    P(Inherited, NonNegOutputSizeListPropertyImpl, TopMargin, 0.0)                                 \
    P(Inherited, NonNegOutputSizeListPropertyImpl, BottomMargin, 0.0)                              \
    P(Inherited, NonNegOutputSizeListPropertyImpl, LeftMargin, 0.0)                                \
    P(Inherited, NonNegOutputSizeListPropertyImpl, RightMargin, 0.0)                               \
    P(Inherited, ColorListProperty, BackgroundColor, ::Grafel::RGBA::White)                        \
    P(Inherited, NonNegOutputSizeListPropertyImpl, BorderWidth, 0.0)                               \
    P(Inherited, ColorListProperty, BorderColor, ::Grafel::RGBA::Black)                            \
    P(Inherited, BoolListProperty, BackgroundTransparent, false)                                   \
    P(Inherited, LegendPlacementTypeL, LegendPlacement, ::Grafel::getToken(::Grafel::id_Bottom))   \
    P(Inherited, HorizontalAlignmentTypeL, LegendAlignment,                                        \
      ::Grafel::getToken(::Grafel::id_Center))                                                     \
    P(Inherited, HorizontalAlignmentTypeL, HeaderAlignment,                                        \
      ::Grafel::getToken(::Grafel::id_Center))                                                     \
    P(Inherited, HorizontalAlignmentTypeL, FooterAlignment,                                        \
      ::Grafel::getToken(::Grafel::id_Center))                                                     \
    P(Inherited, FontListProperty, HeaderFont, ::Grafel::FontStyle::standard())                    \
    P(Inherited, FontListProperty, FooterFont, ::Grafel::FontStyle::standard())                    \
    P(Inherited, FontListProperty, LegendFont, ::Grafel::FontStyle::standard())                    \
    P(Inherited, NonNegOutputSizeListPropertyImpl, YXRatio, 0.0)                                   \
    P(Inherited, BoolListProperty, LegendVisible, true)

// Style values of 3D scenes only.
#define GRAFEL_SCENE3D_STYLE_TABLE(P)                                                              \
    P(Inherited, BackgroundStyleTypeL, BackgroundStyle, ::Grafel::getToken(::Grafel::id_Flat))     \
    P(Inherited, ColorListProperty, BackgroundColor2, ::Grafel::RGBA::White)                       \
    P(Inherited, LightingTypeL, Lighting, ::Grafel::getToken(::Grafel::id_Explicit))               \
    P(Inherited, NonNegOutputSizeListPropertyImpl, ZXRatio, 0.0)

namespace Grafel {

/// The descriptors of GRAFEL_SCENE_TABLE, filled on first use.
PropertyListMgr& scenePropertyList();
/// The descriptors of GRAFEL_SCENE_STYLE_TABLE, filled on first use.
PropertyListMgr& sceneStylePropertyList();
/// The descriptors of GRAFEL_SCENE3D_STYLE_TABLE, filled on first use.
PropertyListMgr& scene3dStylePropertyList();

} // namespace Grafel
