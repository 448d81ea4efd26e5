#include <grafel/structure/ObjType.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(ObjType, GRAFEL_OBJTYPE_TABLE)

bool ObjType::mayReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newFirst) {
    return contentOnly(newFirst);
}

ChildRole ObjType::childRole(Arbor::Token tag) const {
    return tag == tok_PropCat ? ChildRole::Content : ChildRole::None;
}

} // namespace Grafel
