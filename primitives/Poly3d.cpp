#include <grafel/primitives/Poly3d.h>

namespace Grafel {

GRAFEL_DEFINE_PRIMITIVE(Poly3d, GRAFEL_POLY3D_TABLE)

} // namespace Grafel
