#include <grafel/primitives/Camera.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Camera, GRAFEL_CAMERA_TABLE)

} // namespace Grafel
