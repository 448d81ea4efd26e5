// The common part of the coordinate systems CoordinateSystem2d and CoordinateSystem3d: the
// axes, ticks, grid and viewing box of a scene, holding the objects, groups and transforms of
// one dimension.
#pragma once

#include <grafel/properties/LibraryElement.h>
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

    /// The flags of tagNameToOptionChildFlag().
    enum OptionChild : int {
        ViewingBoxXMinFlag = 1,
        ViewingBoxXMaxFlag = 2,
        ViewingBoxYMinFlag = 4,
        ViewingBoxYMaxFlag = 8,
        ViewingBoxZMinFlag = 16,
        ViewingBoxZMaxFlag = 32,
        AxesOriginXFlag = 64,
        AxesOriginYFlag = 128,
        AxesOriginZFlag = 256,
        XAxisTitleFlag = 512,
        YAxisTitleFlag = 1024,
        ZAxisTitleFlag = 2048,
        XTicksAnchorFlag = 4096,
        XTicksDistanceFlag = 8192,
        YTicksAnchorFlag = 16384,
        YTicksDistanceFlag = 32768,
        ZTicksAnchorFlag = 65536,
        ZTicksDistanceFlag = 131072,
        XTicksAtFlag = 262144,
        YTicksAtFlag = 524288,
        ZTicksAtFlag = 1048576,
        HintsFlag = 2097152,
    };
    /// Every option child; a 3D system admits them all.
    static constexpr int allOptionChildren = 2 * HintsFlag - 1;
    /// The option children that concern the third axis, which a 2D system refuses.
    static constexpr int zOptionChildren = ViewingBoxZMinFlag | ViewingBoxZMaxFlag |
                                           AxesOriginZFlag | ZAxisTitleFlag | ZTicksAnchorFlag |
                                           ZTicksDistanceFlag | ZTicksAtFlag;
};

} // namespace Grafel
