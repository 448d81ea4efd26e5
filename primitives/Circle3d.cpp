#include <grafel/primitives/Circle3d.h>

namespace Grafel {

GRAFEL_DEFINE_PRIMITIVE(Circle3d, GRAFEL_CIRCLE3D_TABLE)

} // namespace Grafel
