#include <grafel/primitives/VerticalAsymptote.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(VerticalAsymptote, GRAFEL_VERTICALASYMPTOTE_TABLE)
GRAFEL_REGISTER_ELEMENT_CLASS(VerticalAsymptote);

} // namespace Grafel
