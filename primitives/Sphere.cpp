#include <grafel/primitives/Sphere.h>

namespace Grafel {

GRAFEL_DEFINE_PRIMITIVE(Sphere, GRAFEL_SPHERE_TABLE)

} // namespace Grafel
