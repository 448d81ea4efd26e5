#include <grafel/primitives/Ellipsoid.h>

namespace Grafel {

GRAFEL_DEFINE_PRIMITIVE(Ellipsoid, GRAFEL_ELLIPSOID_TABLE)

} // namespace Grafel
