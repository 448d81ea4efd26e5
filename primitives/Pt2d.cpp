#include <grafel/primitives/Pt2d.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Pt2d, GRAFEL_PT2D_TABLE)

} // namespace Grafel
