#include <grafel/primitives/Cone.h>

namespace Grafel {

GRAFEL_DEFINE_PRIMITIVE(Cone, GRAFEL_CONE_TABLE)

} // namespace Grafel
