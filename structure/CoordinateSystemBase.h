// The common part of the coordinate systems CoordinateSystem2d and CoordinateSystem3d: the
// axes, ticks, grid and viewing box of a scene, holding the objects, groups and transforms of
// one dimension.
#pragma once

#include <grafel/properties/LibraryElement.h>
#include <grafel/properties/OptionChildTable.h>
#include <grafel/structure/CoordinateSystemStyleGetter.h>

#include <vector>

namespace Grafel {

/// A coordinate system. Its style values come from its own attributes, else from the style of
/// its kind that is an option child of its scene, else from the one of the page (each only
/// when it holds the value), else from the descriptor's default. The viewing box limits are
/// option children; AutoViewingBox marks those the viewer found itself.
class CoordinateSystemBase : public LibraryElement, public CoordinateSystemStyleGetter {
public:
    CoordinateSystemBase(const CoordinateSystemBase& other);
    CoordinateSystemBase& operator=(const CoordinateSystemBase& other);

    /// Whether the axes keep one scale: Scaling Constrained is true and Unconstrained false;
    /// otherwise (Automatic, or a word outside the set) the Scaling of the Hints child decides,
    /// true only for Constrained. Without Hints: false.
    bool getConstrainedScaling() const;

    // Both bases can name the element the table getters read; it is this one either way.
    using LibraryElement::listElement_;

protected:
    explicit CoordinateSystemBase(Arbor::Document* document);

    /// The option children of both dimensions; what a class admits is its
    /// allowedOptionChildren.
    int tagNameToOptionChildFlag(Arbor::Token tag) const override;
    int mandatoryOptionChildren() const override { return 0; }

    /// What inheritingFrom answers for a system whose style has the tag `styleTag`: the
    /// scene's style, then the page's, the first that holds `name`.
    PlotElement* inheritingFromStyles(Arbor::Token styleTag, Arbor::Token name) const;
    /// What getInheritanceChain appends for such a system: the scene's style and the page's,
    /// those that exist.
    void appendStyles(Arbor::Token styleTag, std::vector<PlotElement*>& chain) const;

    /// The option children of coordinate systems of both dimensions; a 3D system admits them
    /// all.
    static constexpr OptionChildTable optionChildFlags{{
        {id_ViewingBoxXMin, 1},     {id_ViewingBoxXMax, 2},    {id_ViewingBoxYMin, 4},
        {id_ViewingBoxYMax, 8},     {id_ViewingBoxZMin, 16},   {id_ViewingBoxZMax, 32},
        {id_AxesOriginX, 64},       {id_AxesOriginY, 128},     {id_AxesOriginZ, 256},
        {id_XAxisTitle, 512},       {id_YAxisTitle, 1024},     {id_ZAxisTitle, 2048},
        {id_XTicksAnchor, 4096},    {id_XTicksDistance, 8192}, {id_YTicksAnchor, 16384},
        {id_YTicksDistance, 32768}, {id_ZTicksAnchor, 65536},  {id_ZTicksDistance, 131072},
        {id_XTicksAt, 262144},      {id_YTicksAt, 524288},     {id_ZTicksAt, 1048576},
        {id_Hints, 2097152},
    }};
    /// The option children that concern the third axis, which a 2D system refuses.
    static constexpr int zOptionChildren =
        optionChildFlags.mask(id_ViewingBoxZMin, id_ViewingBoxZMax, id_AxesOriginZ, id_ZAxisTitle,
                              id_ZTicksAnchor, id_ZTicksDistance, id_ZTicksAt);
};

} // namespace Grafel
