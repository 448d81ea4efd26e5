#include <grafel/primitives/VerticalAsymptote.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(VerticalAsymptote, GRAFEL_VERTICALASYMPTOTE_TABLE)

} // namespace Grafel
