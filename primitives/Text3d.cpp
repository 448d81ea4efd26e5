#include <grafel/primitives/Text3d.h>
#include <grafel/primitives/TextChildren.h>

namespace Grafel {

GRAFEL_DEFINE_PRIMITIVE(Text3d, GRAFEL_TEXT3D_TABLE)

bool Text3d::mayReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newFirst) {
    return mayTakeTextChildren(*this, newFirst);
}

} // namespace Grafel
