#include <grafel/primitives/TextChildren.h>

namespace Grafel {

bool mayTakeTextChildren(const PlotElement& element, Arbor::Node* newFirst) {
    if (!newFirst || newFirst->nodeType() == Arbor::Node::TextNode) return true;
    element.domError("not a text node child [parent '%s']\n", element.nodeName().text());
    return false;
}

} // namespace Grafel
