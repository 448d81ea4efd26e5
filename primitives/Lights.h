// The lights of a 3D scene, each in the image of an Obj3d of the Type of its tag. Each kind
// adds to the one before: a light's own properties are looked up and written first, then its
// bases', down to AmbientLight.
#pragma once

#include <grafel/primitives/PrimitiveClass.h>

// LightIntensity clamps to 0 to 1 and refuses nothing. LightColor starts black and takes the
// style's colour (white without one) once the light stands in a tree.
#define GRAFEL_AMBIENTLIGHT_TABLE(P)                                                               \
    P(Mandatory, LightIntensityType, LightIntensity, 1.0, 1.0)                                     \
    P(Inherited, ColorProperty, LightColor, RGBA::Black, RGBA::White)

#define GRAFEL_POINTLIGHT_TABLE(P)                                                                 \
    P(Mandatory, P3Property, Position, (P3(1, 1, 1)), (P3(0, 10, 0)))                              \
    P(Inherited, BoolProperty, CameraCoordinates, false, false)

// The flag first: it fills the end of AmbientLight, which the colour leaves free.
#define GRAFEL_POINTLIGHT_MEMBERS(M) M(CameraCoordinates) M(Position)

#define GRAFEL_DISTANTLIGHT_TABLE(P) P(Mandatory, P3Property, Target, (P3(0, 0, 0)), (P3(0, 0, 0)))

// The constructor holds the angle in degrees, the descriptor's default in radians.
#define GRAFEL_SPOTLIGHT_TABLE(P) P(Mandatory, DoubleProperty, SpotAngle, 15.0, 0.26179938779914946)

namespace Grafel {

/// Light of LightColor from everywhere, at LightIntensity.
class AmbientLight : public ElementClass<AmbientLight, id_AmbientLight, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_MEMBER_PROPERTIES(AmbientLight, GRAFEL_AMBIENTLIGHT_TABLE)

public:
    AmbientLight(const AmbientLight& other) = default;

protected:
    explicit AmbientLight(Arbor::Document* document) : ElementClass(document) {}
};

/// Light from Position in all directions; Position is in the camera's frame when
/// CameraCoordinates is set.
class PointLight : public ElementClass<PointLight, id_PointLight, AmbientLight> {
    friend ElementClass;
    GRAFEL_MEMBER_PROPERTIES_EXTENDING_ORDERED(PointLight, AmbientLight, GRAFEL_POINTLIGHT_TABLE,
                                               GRAFEL_POINTLIGHT_MEMBERS)

public:
    PointLight(const PointLight& other) = default;

protected:
    explicit PointLight(Arbor::Document* document) : ElementClass(document) {}
};

/// Parallel light along the direction from Position to Target.
class DistantLight : public ElementClass<DistantLight, id_DistantLight, PointLight> {
    friend ElementClass;
    GRAFEL_MEMBER_PROPERTIES_EXTENDING(DistantLight, PointLight, GRAFEL_DISTANTLIGHT_TABLE)

public:
    DistantLight(const DistantLight& other) = default;

protected:
    explicit DistantLight(Arbor::Document* document) : ElementClass(document) {}
};

/// A cone of light from Position towards Target, SpotAngle wide.
class SpotLight : public ElementClass<SpotLight, id_SpotLight, DistantLight> {
    friend ElementClass;
    GRAFEL_MEMBER_PROPERTIES_EXTENDING(SpotLight, DistantLight, GRAFEL_SPOTLIGHT_TABLE)

public:
    SpotLight(const SpotLight& other) = default;

protected:
    explicit SpotLight(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
