#include <grafel/primitives/Plane.h>

namespace Grafel {

GRAFEL_DEFINE_PRIMITIVE(Plane, GRAFEL_PLANE_TABLE)

} // namespace Grafel
