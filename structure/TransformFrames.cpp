#include <grafel/structure/TransformFrames.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_TABLE(Tr2d, GRAFEL_TR2D_TABLE)
GRAFEL_DEFINE_MEMBER_TABLE(Tr3d, GRAFEL_TR3D_TABLE)

// A move forgets the time, as for every frame; the maps inherit nothing.
void Tr2d::afterParentChanged() {
    TrBase::afterParentChanged();
}

void Tr3d::afterParentChanged() {
    TrBase::afterParentChanged();
}

} // namespace Grafel
