// The 2D scene: a rectangle of the page that holds 2D coordinate systems.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/structure/SceneBase.h>

namespace Grafel {

/// A 2D scene. Its properties are those of every scene and the style values of every scene,
/// in this order of lookup; its style is the page's Scene2dStyle. It takes coordinate systems
/// CoordinateSystem2d and object styles, and at most one each of Header, Footer, View2d and
/// CoordinateSystem2dStyle.
class Scene2d : public ElementClass<Scene2d, id_Scene2d, SceneBase> {
    friend ElementClass;

public:
    Scene2d(const Scene2d& other) = default;

    /// The page's Scene2dStyle when it holds `name`, else null.
    PlotElement* inheritingFrom(Arbor::Token name) const override;
    /// The page's Scene2dStyle, when there is one, whatever it holds.
    void getInheritanceChain(std::vector<PlotElement*>& chain) const override;
    Property* propertyInfo(Arbor::Token name) const override;

protected:
    explicit Scene2d(Arbor::Document* document) : ElementClass(document) {}
    bool allowedContentChild(Arbor::Token tag) const override;
    int allowedOptionChildren() const override {
        return optionChildFlags.mask(id_Header, id_Footer, id_View2d, id_CoordinateSystem2dStyle);
    }
    int mandatoryOptionChildren() const override { return 0; }
};

} // namespace Grafel
