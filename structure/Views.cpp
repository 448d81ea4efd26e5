#include <grafel/structure/Views.h>

namespace Grafel {

bool ViewBase::mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) {
    return !newFirst && (!first || count == 0);
}

GRAFEL_DEFINE_MEMBER_PROPERTIES(View2d, GRAFEL_VIEW2D_TABLE)
GRAFEL_DEFINE_MEMBER_PROPERTIES(View3d, GRAFEL_VIEW3D_TABLE)

} // namespace Grafel
