#include <grafel/structure/Groups.h>

namespace Grafel {

using Arbor::Token;

bool Group2d::allowedContentChild(Token tag) const {
    return tag == tok_Obj2d || tag == tok_Group2d || tag == tok_Transform2d || tag == tok_ObjStyle;
}

bool Group3d::allowedContentChild(Arbor::Node* child) const {
    if (child->nodeName() != tok_Obj3d) return allowedContentChild(child->nodeName());
    return admitsSpaceObject(child);
}

bool Group3d::allowedContentChild(Token tag) const {
    return tag == tok_Obj3d || tag == tok_Group3d || tag == tok_Transform3d || tag == tok_ObjStyle;
}

} // namespace Grafel
