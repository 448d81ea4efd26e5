#include <grafel/primitives/Poly2d.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Poly2d, GRAFEL_POLY2D_TABLE)

} // namespace Grafel
