// Where a viewer looks at a 3D scene from: a camera in the image of an Obj3d of Type Camera.
#pragma once

#include <grafel/primitives/PrimitiveClass.h>

// The constructor holds the angle in degrees and the descriptor's default in radians: a viewer
// reads the unit it needs. KeepUpVector starts false and turns true (or the style's value) once
// the camera stands in a tree.
#define GRAFEL_CAMERA_TABLE(P)                                                                     \
    P(Mandatory, P3Property, Position, (P3(10, 0, 0)), (P3(10, 0, 0)))                             \
    P(Mandatory, P3Property, FocalPoint, (P3(0, 0, 0)), (P3(0, 0, 0)))                             \
    P(Optional, P3Property, UpVector, (P3(0, 0, 1)), (P3(0, 0, 1)))                                \
    P(Mandatory, DoubleProperty, ViewingAngle, 30.0, 0.5235987755982989)                           \
    P(Inherited, BoolProperty, OrthogonalProjection, false, false)                                 \
    P(Inherited, BoolProperty, KeepUpVector, false, true)

namespace Grafel {

/// A camera at Position looking at FocalPoint, with UpVector up and an opening of
/// ViewingAngle. A copy made by cloneNode starts over from the constructor's values.
class Camera : public ElementClass<Camera, id_Camera, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_MEMBER_PROPERTIES(Camera, GRAFEL_CAMERA_TABLE)

public:
    Camera(const Camera& other) = default;

protected:
    explicit Camera(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
