// The common part of the scenes Scene2d and Scene3d: a rectangle on the page with its own
// margins, background, border, header, footer and legend, holding the coordinate systems of
// one dimension.
#pragma once

#include <grafel/properties/LibraryElement.h>
#include <grafel/properties/OptionChildTable.h>
#include <grafel/structure/SceneStyleGetter.h>

#include <vector>

namespace Grafel {

/// A scene. Its style values come in one step: the scene's own value, else the value of the
/// page's style of its kind (Scene2dStyle or Scene3dStyle, the first such child of its parent)
/// when that holds one, else the descriptor's default. Its place (Bottom, Left) is in
/// millimetres, or in fractions of the page while the page's Layout is Relative. A copy made
/// by cloneNode starts without values, as the page's does.
class SceneBase : public LibraryElement, public SceneStyleGetter {
public:
    SceneBase(const SceneBase& other);
    SceneBase& operator=(const SceneBase& other);

    GRAFEL_LIST_GETTERS(GRAFEL_SCENE_POSITION_ROWS)

    /// Converts the place and size of the scene between millimetres and fractions of a page of
    /// `width` by `height`: divides (`relative`) or multiplies Left and Width by `width`, Bottom
    /// and Height by `height`, and sets them through setProperty, in the order Bottom, Left,
    /// Height, Width. The values read are the resolved ones, so an inherited size becomes the
    /// scene's own. Nothing happens unless both page sizes are above 0.
    void setPositionRelative(bool relative, double width, double height);

    /// "plot::TAG(", the values, the children, ")"; Bottom and Left go through the output unit,
    /// or as bare fractions under a page whose Layout is Relative. Width and Height always go
    /// through the output unit.
    void putCmd(CmdOStream& out) override;

    // Both bases can name the element the table getters read; it is this one either way.
    using LibraryElement::listElement_;

protected:
    explicit SceneBase(Arbor::Document* document);

    /// The option children of both dimensions; what a class admits is its
    /// allowedOptionChildren.
    int tagNameToOptionChildFlag(Arbor::Token tag) const override;

    /// The page's style named `styleTag`: the first child of that name of the parent, or null.
    PlotElement* pageStyle(Arbor::Token styleTag) const;

    /// The option children of scenes of both dimensions.
    static constexpr OptionChildTable optionChildFlags{{
        {id_Header, 1},
        {id_Footer, 2},
        {id_View2d, 4},
        {id_View3d, 8},
        {id_CoordinateSystem2dStyle, 16},
        {id_CoordinateSystem3dStyle, 32},
    }};
};

} // namespace Grafel
