// The transforms of 2D and 3D coordinate systems.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/structure/TransformBase.h>

namespace Grafel {

/// A 2D transform: takes Expr, its frames Tr2d, Obj2d, Group2d and Transform2d, and the
/// options ParameterName, ParameterBegin, ParameterEnd and Matrix2d.
class Transform2d : public ElementClass<Transform2d, id_Transform2d, TransformBase> {
    friend ElementClass;

protected:
    explicit Transform2d(Arbor::Document* document) : ElementClass(document) {}
    bool allowedContentChild(Arbor::Token tag) const override;
    int allowedOptionChildren() const override {
        return parameterOptions | optionChildFlags.mask(id_Matrix2d);
    }
    int mandatoryOptionChildren() const override { return 0; }
};

/// A 3D transform: takes Expr, its frames Tr3d, Obj3d, Group3d and Transform3d, and the
/// options ParameterName, ParameterBegin, ParameterEnd and Matrix3d. As a Group3d, it refuses
/// cameras, lights, clipping boxes and objects without Type.
class Transform3d : public ElementClass<Transform3d, id_Transform3d, TransformBase> {
    friend ElementClass;

protected:
    explicit Transform3d(Arbor::Document* document) : ElementClass(document) {}
    bool allowedContentChild(Arbor::Node* child) const override;
    bool allowedContentChild(Arbor::Token tag) const override;
    int allowedOptionChildren() const override {
        return parameterOptions | optionChildFlags.mask(id_Matrix3d);
    }
    int mandatoryOptionChildren() const override { return 0; }
};

} // namespace Grafel
