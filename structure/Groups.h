// The groups of 2D and 3D coordinate systems.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/structure/GroupBase.h>

namespace Grafel {

/// A group of 2D objects: takes Obj2d, Group2d, Transform2d and ObjStyle.
class Group2d : public GroupBase {
    GRAFEL_ELEMENT_CLASS(Group2d)

protected:
    explicit Group2d(Arbor::Document* document) : GroupBase(document) {}
    bool allowedContentChild(Arbor::Token tag) const override;
};

/// A group of 3D objects: takes Obj3d, Group3d, Transform3d and ObjStyle, but no camera,
/// light or clipping box, and no object whose Type is not set yet.
class Group3d : public GroupBase {
    GRAFEL_ELEMENT_CLASS(Group3d)

protected:
    explicit Group3d(Arbor::Document* document) : GroupBase(document) {}
    bool allowedContentChild(Arbor::Node* child) const override;
    bool allowedContentChild(Arbor::Token tag) const override;
};

} // namespace Grafel
