#include <grafel/primitives/Line2d.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Line2d, GRAFEL_LINE2D_TABLE)

} // namespace Grafel
