#include <grafel/primitives/Pt2d.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Pt2d, GRAFEL_PT2D_TABLE)
GRAFEL_REGISTER_ELEMENT_CLASS(Pt2d);

} // namespace Grafel
