#include <grafel/primitives/Field2d.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Field2d, GRAFEL_FIELD2D_TABLE)

} // namespace Grafel
