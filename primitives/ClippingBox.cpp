#include <grafel/primitives/ClippingBox.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(ClippingBox, GRAFEL_CLIPPINGBOX_TABLE)

} // namespace Grafel
