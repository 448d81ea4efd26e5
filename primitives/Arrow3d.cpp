#include <grafel/primitives/Arrow3d.h>

namespace Grafel {

GRAFEL_DEFINE_PRIMITIVE(Arrow3d, GRAFEL_ARROW3D_TABLE)

} // namespace Grafel
