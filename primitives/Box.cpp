#include <grafel/primitives/Box.h>

namespace Grafel {

GRAFEL_DEFINE_PRIMITIVE(Box, GRAFEL_BOX_TABLE)

} // namespace Grafel
