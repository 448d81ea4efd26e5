#include <grafel/catalogue/PropInfo.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(PropInfo, GRAFEL_PROPINFO_TABLE)
GRAFEL_REGISTER_ELEMENT_CLASS(PropInfo);

} // namespace Grafel
