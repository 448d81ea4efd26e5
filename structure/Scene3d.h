// The 3D scene: a rectangle of the page that holds 3D coordinate systems, with the background
// gradient and the lighting of a 3D view.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/structure/SceneBase.h>

namespace Grafel {

/// A 3D scene. Its properties are those of every scene, the style values of every scene and
/// those of 3D scenes, in this order of lookup; its style is the page's Scene3dStyle. It takes
/// coordinate systems CoordinateSystem3d and object styles, and at most one each of Header,
/// Footer, View3d and CoordinateSystem3dStyle.
class Scene3d : public ElementClass<Scene3d, id_Scene3d, SceneBase> {
    friend ElementClass;

public:
    Scene3d(const Scene3d& other) = default;

    /// The page's Scene3dStyle when it holds `name`, else null.
    PlotElement* inheritingFrom(Arbor::Token name) const override;
    /// The page's Scene3dStyle, when there is one, whatever it holds.
    void getInheritanceChain(std::vector<PlotElement*>& chain) const override;
    Property* propertyInfo(Arbor::Token name) const override;

    /// KeepUpVector of the camera's object style: the first ObjStyle of Type Camera that holds
    /// it, among the children of this scene, then of each level above, in document order;
    /// failing that the first of Type Default found so; failing that false (not the objects'
    /// default).
    bool getKeepUpVector() const;
    /// OrthogonalProjection, found as getKeepUpVector() finds KeepUpVector.
    bool getOrthogonalProjection() const;

protected:
    explicit Scene3d(Arbor::Document* document) : ElementClass(document) {}
    bool allowedContentChild(Arbor::Token tag) const override;
    int allowedOptionChildren() const override {
        return optionChildFlags.mask(id_Header, id_Footer, id_View3d, id_CoordinateSystem3dStyle);
    }
    int mandatoryOptionChildren() const override { return 0; }

private:
    /// The camera's flag `name` as the getters above describe it.
    bool cameraFlag(Arbor::Token name) const;
};

} // namespace Grafel
