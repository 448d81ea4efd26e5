#include <grafel/primitives/Arrow2d.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Arrow2d, GRAFEL_ARROW2D_TABLE)

} // namespace Grafel
