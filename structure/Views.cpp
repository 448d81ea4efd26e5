#include <grafel/structure/Views.h>

namespace Grafel {

bool ViewBase::mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) {
    return !newFirst && (!first || count == 0);
}

GRAFEL_DEFINE_MEMBER_TABLE(View2d, GRAFEL_VIEW2D_TABLE)
GRAFEL_DEFINE_MEMBER_TABLE(View3d, GRAFEL_VIEW3D_TABLE)

// A view inherits nothing, and an absent value keeps what the constructor gave it wherever the
// view stands: a new View3d looks up the z axis, though its descriptor's default is NaN.
void View2d::afterParentChanged() {}
void View3d::afterParentChanged() {}

} // namespace Grafel
