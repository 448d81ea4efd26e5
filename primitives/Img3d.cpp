#include <grafel/primitives/Img3d.h>

namespace Grafel {

bool Img3d::allowedContentChild(Arbor::Token tag) const {
    static const Arbor::Token* const tags[] = {
        &tok_Mesh3d,     &tok_Pts3d,        &tok_Line3d,     &tok_Lines3d,      &tok_Surf3d,
        &tok_Field3d,    &tok_Arrow3d,      &tok_Box,        &tok_Circle3d,     &tok_Cone,
        &tok_Sphere,     &tok_Ellipsoid,    &tok_Plane,      &tok_Text3d,       &tok_Poly3d,
        &tok_Camera,     &tok_AmbientLight, &tok_PointLight, &tok_DistantLight, &tok_SpotLight,
        &tok_ClippingBox};
    for (const Arbor::Token* t : tags)
        if (*t == tag) return true;
    return false;
}

} // namespace Grafel
