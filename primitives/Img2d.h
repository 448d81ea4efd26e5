// The image of a 2D plot object: it holds the 2D primitives.
#pragma once

#include <grafel/primitives/ImgBase.h>
#include <grafel/properties/ElementClass.h>

namespace Grafel {

/// An image under an Obj2d. It has the properties of ImgBase but TitlePositionZ.
class Img2d : public ElementClass<Img2d, id_Img2d, ImgBase> {
    friend ElementClass;

public:
    /// What ImgBase knows, but none for TitlePositionZ: a plane image has no z title position.
    Property* propertyInfo(Arbor::Token name) const override;

protected:
    explicit Img2d(Arbor::Document* document) : ElementClass(document) {}
    /// The 2D primitives.
    bool allowedContentChild(Arbor::Token tag) const override;
};

} // namespace Grafel
