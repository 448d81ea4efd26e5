// The 3D plot object: one function graph, curve, surface or other plotted thing of a 3D scene.
#pragma once

#include <grafel/structure/ObjectBase.h>

namespace Grafel {

/// A 3D plot object: takes the 3D style values, images Img3d, symbolic points Points3d, a z title
/// position and a text orientation. Its properties are the common style values, the 3D ones and the
/// object's own, in this order of lookup; the style values of 2D objects are unknown to it.
class Obj3d : public ObjectBase {
public:
    Obj3d(const Obj3d& other) = default;

    /// Copies the attributes, and the children for `deep`.
    Arbor::Node* cloneNode(bool deep) const override;
    Arbor::Token tagName() const override;
    Property* propertyInfo(Arbor::Token name) const override;

    /// A new object for `document`; the caller takes the first reference.
    static PlotElement* create(Arbor::Document* document);

protected:
    explicit Obj3d(Arbor::Document* document) : ObjectBase(document) {}

    /// Expressions, colour functions, named options and images Img3d.
    bool allowedContentChild(Arbor::Token tag) const override;
    int allowedOptionChildren() const override {
        return commonOptionChildren |
               optionChildFlags.mask(id_TitlePositionZ, id_Points3d, id_TextOrientation);
    }
    int mandatoryOptionChildren() const override { return 0; }
};

} // namespace Grafel
