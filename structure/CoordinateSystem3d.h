// The 3D coordinate system: axes, ticks, grid and viewing box of a 3D scene, holding its
// objects, groups and transforms.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/structure/CoordinateSystemBase.h>

namespace Grafel {

/// A 3D coordinate system. Its properties are the style values of every coordinate system,
/// those of 3D systems and the system's own, in this order of lookup; its styles are the
/// CoordinateSystem3dStyle of its scene, then that of the page. It takes Obj3d, Group3d,
/// Transform3d and object styles, and at most one of each option child. A copy keeps the values.
class CoordinateSystem3d : public ElementClass<CoordinateSystem3d, id_CoordinateSystem3d,
                                               CoordinateSystemBase, CloneBy::copy> {
    friend ElementClass;

public:
    CoordinateSystem3d(const CoordinateSystem3d& other) = default;

    /// The scene's CoordinateSystem3dStyle when it holds `name`, else the page's when that
    /// does, else null.
    PlotElement* inheritingFrom(Arbor::Token name) const override;
    /// The scene's CoordinateSystem3dStyle and the page's, those that exist.
    void getInheritanceChain(std::vector<PlotElement*>& chain) const override;
    Property* propertyInfo(Arbor::Token name) const override;

protected:
    explicit CoordinateSystem3d(Arbor::Document* document) : ElementClass(document) {}
    bool allowedContentChild(Arbor::Token tag) const override;
    int allowedOptionChildren() const override { return optionChildFlags.all(); }
};

} // namespace Grafel
