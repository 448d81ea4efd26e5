#include <grafel/structure/Hints.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Hints, GRAFEL_HINTS_TABLE)

} // namespace Grafel
