#include <grafel/primitives/Pts2d.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Pts2d, GRAFEL_PTS2D_TABLE)

} // namespace Grafel
