// A walk over nested groups and transforms without recursion: a plot may nest them as deep as
// its author likes, and a walk that called itself once per level would run out of stack.
#pragma once

#include <grafel/arbor/Node.h>

namespace Grafel::detail {

/// Visits the nodes below `top` in document order, parents before children, with the tree's
/// own links for a stack. `enter(node)` answers whether the children of `node` are visited in
/// the same walk; for each node it answered true for, `leave(node)` follows its children.
/// `top` itself is neither entered nor left. The callbacks must not change the tree's shape.
template <class Enter, class Leave>
void walkNested(Arbor::Node* top, Enter&& enter, Leave&& leave) {
    Arbor::Node* n = top->firstChild();
    while (n) {
        if (enter(n)) {
            if (Arbor::Node* first = n->firstChild()) {
                n = first;
                continue;
            }
            leave(n);
        }
        // On to the next sibling, closing the levels that end on the way up.
        while (!n->nextSibling()) {
            n = n->parentNode();
            if (!n || n == top) return;
            leave(n);
        }
        n = n->nextSibling();
    }
}

/// walkNested() with nothing to do on leaving.
template <class Enter> void walkNested(Arbor::Node* top, Enter&& enter) {
    walkNested(top, enter, [](Arbor::Node*) {});
}

} // namespace Grafel::detail
