#include <grafel/primitives/Arc2d.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Arc2d, GRAFEL_ARC2D_TABLE)

} // namespace Grafel
