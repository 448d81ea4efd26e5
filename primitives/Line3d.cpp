#include <grafel/primitives/Line3d.h>

namespace Grafel {

GRAFEL_DEFINE_PRIMITIVE(Line3d, GRAFEL_LINE3D_TABLE)

} // namespace Grafel
