#include <grafel/catalogue/Prop.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Prop, GRAFEL_PROP_TABLE)

} // namespace Grafel
