#include <grafel/structure/Transforms.h>

namespace Grafel {

using Arbor::Token;

bool Transform2d::allowedContentChild(Token tag) const {
    return tag == tok_Expr || tag == tok_Tr2d || tag == tok_Obj2d || tag == tok_Group2d ||
           tag == tok_Transform2d;
}

bool Transform3d::allowedContentChild(Arbor::Node* child) const {
    if (child->nodeName() != tok_Obj3d) return allowedContentChild(child->nodeName());
    return admitsSpaceObject(child);
}

bool Transform3d::allowedContentChild(Token tag) const {
    return tag == tok_Expr || tag == tok_Tr3d || tag == tok_Obj3d || tag == tok_Group3d ||
           tag == tok_Transform3d;
}

} // namespace Grafel
