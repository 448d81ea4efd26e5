// The root element of every plot: the page with its size, margins, background, border, header
// and footer, holding the scenes, the document-wide styles and the animation settings.
#pragma once

#include <grafel/foundation/NaN.h>
#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/LibraryElement.h>
#include <grafel/properties/ListTable.h>
#include <grafel/properties/OptionChildTable.h>

// The page's properties, in registration order.
#define GRAFEL_CANVAS_TABLE(P)                                                                     \
    P(Optional, IdListPropertyImpl, id, (Tessel::FixedStringBase<char>()), Id)                     \
    P(Optional, PosLongTypeL, version, 1L, Version)                                                \
    P(Optional, MStringListProperty, Name, (Tessel::FixedStringBase<wchar_t>()))                   \
    P(Optional, ConsistentListPropertyImpl, Consistent, false)                                     \
    P(Optional, LayoutTypeL, Layout, getToken(id_Tabular))                                         \
    P(Optional, NonNegOutputSizeTypeL, Spacing, 0.0)                                               \
    P(Optional, OutputUnitsTypeL, OutputUnits, getToken(id_MM))                                    \
    P(Optional, NonNegOutputSizeTypeL, TopMargin, 0.0)                                             \
    P(Optional, NonNegOutputSizeTypeL, BottomMargin, 0.0)                                          \
    P(Optional, NonNegOutputSizeTypeL, LeftMargin, 0.0)                                            \
    P(Optional, NonNegOutputSizeTypeL, RightMargin, 0.0)                                           \
    P(Optional, ColorListProperty, BackgroundColor, RGBA::White)                                   \
    P(Optional, PosOutputSizeTypeL, Width, 100.0)                                                  \
    P(Optional, PosOutputSizeTypeL, Height, 75.0)                                                  \
    P(Inherited, HorizontalAlignmentTypeL, HeaderAlignment, getToken(id_Center))                   \
    P(Inherited, HorizontalAlignmentTypeL, FooterAlignment, getToken(id_Center))                   \
    P(Optional, FontListProperty, HeaderFont, FontStyle::standard())                               \
    P(Optional, FontListProperty, FooterFont, FontStyle::standard())                               \
    P(Optional, NonNegOutputSizeTypeL, BorderWidth, 0.0)                                           \
    P(Optional, ColorListProperty, BorderColor, RGBA::Black)                                       \
    P(Optional, NonNegLongTypeL, Rows, 0L)                                                         \
    P(Optional, NonNegLongTypeL, Columns, 0L)                                                      \
    P(Optional, AnimationStyleTypeL, AnimationStyle, getToken(id_RunOnce))                         \
    P(Optional, TimeOrNaNTypeL, InitialTime, NaN())                                                \
    P(Optional, TimeOrNaNTypeL, CurrentTime, NaN())                                                \
    P(Optional, BoolListProperty, AutoPlay, false)

namespace Grafel {

/// The page. Its children are scenes (2D or 3D, not both in one change), object styles and
/// object types, and at most one each of Header, Footer, the scene and coordinate-system
/// styles and TimeRange. It inherits from nothing: its inherited properties take their
/// defaults.
class Canvas : public ElementClass<Canvas, id_Canvas, LibraryElement> {
    friend ElementClass;

public:
    GRAFEL_LIST_GETTERS(GRAFEL_CANVAS_TABLE)

    Canvas(const Canvas& other) = default;

    Property* propertyInfo(Arbor::Token name) const override;
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    void getNextAnimationTime(double time, bool backward, double& best) override;

    /// Sets Layout; a change into or out of Relative converts the place and size of every
    /// scene between millimetres and fractions of the page's width and height (see
    /// SceneBase::setPositionRelative), and leaves them alone when the page has no positive
    /// size. A plain setProperty of Layout converts nothing.
    void setLayout(Arbor::Token layout);
    /// Fills the page with the standard attributes and style library. Nothing that is there is
    /// checked, so a second call appends the children again (and its option children fail).
    /// Styles of classes this build lacks are left out.
    void setDefaults() override;

protected:
    explicit Canvas(Arbor::Document* document) : ElementClass(document) {}
    bool allowedContentChild(Arbor::Token tag) const override;
    int tagNameToOptionChildFlag(Arbor::Token tag) const override {
        return optionChildFlags.flagOf(tag);
    }
    int allowedOptionChildren() const override { return optionChildFlags.all(); }
    int mandatoryOptionChildren() const override { return 0; }

    /// The option children of the page: its texts and the styles of its scenes and systems.
    static constexpr OptionChildTable optionChildFlags{{
        {id_Header, 1},
        {id_Footer, 2},
        {id_Scene2dStyle, 4},
        {id_Scene3dStyle, 8},
        {id_CoordinateSystem2dStyle, 16},
        {id_CoordinateSystem3dStyle, 32},
        {id_TimeRange, 64},
    }};
};

} // namespace Grafel
