// The 2D coordinate system: axes, ticks, grid and viewing box of a 2D scene, holding its
// objects, groups and transforms.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/structure/CoordinateSystemBase.h>

namespace Grafel {

/// A 2D coordinate system. Its properties are the style values of every coordinate system,
/// those of 2D systems and the system's own, in this order of lookup; its styles are the
/// CoordinateSystem2dStyle of its scene, then that of the page. It takes Obj2d, Group2d,
/// Transform2d and object styles, and at most one of each option child but those of the third
/// axis. A copy keeps the values.
class CoordinateSystem2d : public ElementClass<CoordinateSystem2d, id_CoordinateSystem2d,
                                               CoordinateSystemBase, CloneBy::copy> {
    friend ElementClass;

public:
    CoordinateSystem2d(const CoordinateSystem2d& other) = default;

    /// The scene's CoordinateSystem2dStyle when it holds `name`, else the page's when that
    /// does, else null.
    PlotElement* inheritingFrom(Arbor::Token name) const override;
    /// The scene's CoordinateSystem2dStyle and the page's, those that exist.
    void getInheritanceChain(std::vector<PlotElement*>& chain) const override;
    Property* propertyInfo(Arbor::Token name) const override;

protected:
    explicit CoordinateSystem2d(Arbor::Document* document) : ElementClass(document) {}
    bool allowedContentChild(Arbor::Token tag) const override;
    int allowedOptionChildren() const override { return optionChildFlags.all() & ~zOptionChildren; }
};

} // namespace Grafel
