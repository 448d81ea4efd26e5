#include <grafel/primitives/Text2d.h>
#include <grafel/primitives/TextChildren.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Text2d, GRAFEL_TEXT2D_TABLE)

bool Text2d::mayReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newFirst) {
    return mayTakeTextChildren(*this, newFirst);
}

} // namespace Grafel
