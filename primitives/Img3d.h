// The image of a 3D plot object: it holds the 3D primitives, cameras, lights and clipping
// boxes.
#pragma once

#include <grafel/primitives/ImgBase.h>
#include <grafel/properties/ElementClass.h>

namespace Grafel {

/// An image under an Obj3d, with all four properties of ImgBase. Cameras, lights and clipping
/// boxes stand in images like geometry, so that they can change with the animation parameter.
class Img3d : public ElementClass<Img3d, id_Img3d, ImgBase> {
    friend ElementClass;

protected:
    explicit Img3d(Arbor::Document* document) : ElementClass(document) {}
    /// The 3D primitives, cameras, lights and clipping boxes.
    bool allowedContentChild(Arbor::Token tag) const override;
};

} // namespace Grafel
