#include <grafel/structure/TimeRange.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(TimeRange, GRAFEL_TIMERANGE_TABLE)

} // namespace Grafel
