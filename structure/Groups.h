// The groups of 2D and 3D coordinate systems.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/structure/GroupBase.h>

namespace Grafel {

/// A group of 2D objects: takes Obj2d, Group2d, Transform2d and ObjStyle.
class Group2d : public ElementClass<Group2d, id_Group2d, GroupBase> {
    friend ElementClass;

protected:
    explicit Group2d(Arbor::Document* document) : ElementClass(document) {}
    bool allowedContentChild(Arbor::Token tag) const override;
};

/// A group of 3D objects: takes Obj3d, Group3d, Transform3d and ObjStyle, but no camera,
/// light or clipping box, and no object whose Type is not set yet.
class Group3d : public ElementClass<Group3d, id_Group3d, GroupBase> {
    friend ElementClass;

protected:
    explicit Group3d(Arbor::Document* document) : ElementClass(document) {}
    bool allowedContentChild(Arbor::Node* child) const override;
    bool allowedContentChild(Arbor::Token tag) const override;
};

} // namespace Grafel
