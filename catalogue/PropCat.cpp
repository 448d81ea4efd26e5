#include <grafel/catalogue/PropCat.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(PropCat, GRAFEL_PROPCAT_TABLE)

bool PropCat::mayReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newFirst) {
    return contentOnly(newFirst);
}

ChildRole PropCat::childRole(Arbor::Token tag) const {
    return tag == tok_PropCat || tag == tok_PropInfo ? ChildRole::Content : ChildRole::None;
}

} // namespace Grafel
