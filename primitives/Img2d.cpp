#include <grafel/primitives/Img2d.h>

namespace Grafel {

Property* Img2d::propertyInfo(Arbor::Token name) const {
    return name == tok_TitlePositionZ ? nullptr : ImgBase::propertyInfo(name);
}

bool Img2d::allowedContentChild(Arbor::Token tag) const {
    static const Arbor::Token* const tags[] = {
        &tok_Poly2d,  &tok_Arc2d,        &tok_Pt2d,          &tok_Pts2d,
        &tok_Line2d,  &tok_Arrow2d,      &tok_Text2d,        &tok_VerticalAsymptote,
        &tok_Field2d, &tok_ColorArray2d, &tok_DensityArray2d};
    for (const Arbor::Token* t : tags)
        if (*t == tag) return true;
    return false;
}

} // namespace Grafel
