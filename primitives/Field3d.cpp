#include <grafel/primitives/Field3d.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Field3d, GRAFEL_FIELD3D_TABLE)

} // namespace Grafel
