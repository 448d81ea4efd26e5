#include <grafel/primitives/Text2d.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Text2d, GRAFEL_TEXT2D_TABLE)

bool Text2d::mayReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newFirst) {
    if (!newFirst || newFirst->nodeType() == Arbor::Node::TextNode) return true;
    domError("not a text node child [parent '%s']\n", nodeName().text());
    return false;
}

} // namespace Grafel
