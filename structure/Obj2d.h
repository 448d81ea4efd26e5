// The 2D plot object: one function graph, curve, surface or other plotted thing of a 2D scene.
#pragma once

#include <grafel/structure/ObjectBase.h>

namespace Grafel {

/// A 2D plot object: takes the 2D style values, images Img2d and symbolic points Points2d.
/// Its properties are the common style values, the 2D ones and the object's own, in this
/// order of lookup; the style values of 3D objects are unknown to it.
class Obj2d : public ObjectBase {
public:
    Obj2d(const Obj2d& other) = default;

    /// Copies the attributes, and the children for `deep`.
    Arbor::Node* cloneNode(bool deep) const override;
    Arbor::Token tagName() const override;
    Property* propertyInfo(Arbor::Token name) const override;

    /// A new object for `document`; the caller takes the first reference.
    static PlotElement* create(Arbor::Document* document);

protected:
    explicit Obj2d(Arbor::Document* document) : ObjectBase(document) {}

    /// Expressions, colour functions, named options and images Img2d.
    bool allowedContentChild(Arbor::Token tag) const override;
    int allowedOptionChildren() const override {
        return commonOptionChildren | optionChildFlags.mask(id_Points2d);
    }
    int mandatoryOptionChildren() const override { return 0; }
};

} // namespace Grafel
