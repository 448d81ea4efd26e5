#include <grafel/catalogue/PropCat.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(PropCat, GRAFEL_PROPCAT_TABLE)

bool PropCat::mayReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newFirst) {
    for (Arbor::Node* n = newFirst; n; n = n->nextInChain()) {
        const Arbor::Token tag = n->nodeName();
        if (tag != tok_PropCat && tag != tok_PropInfo) return false;
    }
    return true;
}

} // namespace Grafel
