#include <grafel/structure/ObjType.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(ObjType, GRAFEL_OBJTYPE_TABLE)

bool ObjType::mayReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newFirst) {
    for (Arbor::Node* n = newFirst; n; n = n->nextInChain())
        if (n->nodeName() != tok_PropCat) return false;
    return true;
}

} // namespace Grafel
