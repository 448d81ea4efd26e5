#include <grafel/catalogue/PropInfo.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(PropInfo, GRAFEL_PROPINFO_TABLE)

} // namespace Grafel
