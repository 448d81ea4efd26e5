// What groups and transforms share: each is one level of a nesting that a plot may make as deep
// as it likes, so the walks that pass through them run over the whole nesting in one loop
// instead of calling themselves once per level.
#pragma once

#include <grafel/foundation/CmdOStream.h>
#include <grafel/properties/PlotElement.h>

namespace Grafel {

/// Mixed into GroupBase and TransformBase. Each walk below does, at every group or transform
/// of the nesting, that level's own part, and asks every other element with the element's own
/// operation; the levels are found by tag.
class NestingLevel {
public:
    /// The group or transform that `node` is, or null.
    static NestingLevel* from(Arbor::Node* node);

protected:
    NestingLevel() = default;
    ~NestingLevel() = default;

    /// afterParentChanged of this level and below.
    void afterParentChangedNested();
    /// normalizeAttribute(source, name) of this level and below.
    void normalizeNested(Arbor::Element* source, Arbor::Token name);
    /// normalizeAttributes() of this level and below.
    void normalizeAllNested();
    /// The command item of this level with everything below it.
    void putCmdNested(CmdOStream& out);
    /// The animation step of this level and below.
    void stepNested(double time, bool backward, double& best);

    /// The membership check of a 3D level for a child named Obj3d: the object must have its
    /// Type already, and a camera, a light or a clipping box stands only directly in a
    /// coordinate system.
    static bool admitsSpaceObject(const Arbor::Node* object);

    /// The element this level is.
    virtual PlotElement* levelElement() = 0;
    /// This level's own part of each walk.
    virtual void refreshOwn() = 0;
    void normalizeOwn(Arbor::Element* source, Arbor::Token name);
    virtual void normalizeAllOwn() = 0;
    /// Opens the item: "plot::", the level's name, "(", a line end and the level's values.
    virtual void openCmd(CmdOStream& out) = 0;
    /// Offers this level's own frames to `best`; answers whether the elements below count.
    virtual bool stepOwnFrames(double time, bool backward, double& best) = 0;
};

} // namespace Grafel
