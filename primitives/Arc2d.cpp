#include <grafel/primitives/Arc2d.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Arc2d, GRAFEL_ARC2D_TABLE)
GRAFEL_REGISTER_ELEMENT_CLASS(Arc2d);

} // namespace Grafel
