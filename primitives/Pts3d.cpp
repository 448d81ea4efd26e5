#include <grafel/primitives/Pts3d.h>

namespace Grafel {

GRAFEL_DEFINE_PRIMITIVE(Pts3d, GRAFEL_PTS3D_TABLE)

} // namespace Grafel
