// A node that has children: the child list shared by elements, documents and fragments.
#pragma once

#include <grafel/arbor/Node.h>

namespace Arbor {

/// Keeps its children in a doubly linked list with a count, and holds a reference on each.
class InnerNode : public Node {
public:
    ~InnerNode() override;

    Node* firstChild() const override { return first_; }
    Node* lastChild() const override { return last_; }
    unsigned items() const override { return count_; }
    void replaceChildrenRaw(Node* first, unsigned count, Node* newFirst) override;

protected:
    explicit InnerNode(Document* document) : Node(document) {}
    /// A copy has no children; cloneChildren() adds them.
    InnerNode(const InnerNode& other) : Node(other) {}
    InnerNode& operator=(const InnerNode&) { return *this; }

    /// Appends a deep clone of each child of this node to `target`.
    void cloneChildren(Node* target) const;
    /// Drops all children without notification or undo.
    void releaseChildren();

private:
    Node* first_ = nullptr;
    Node* last_ = nullptr;
    unsigned count_ = 0;
};

} // namespace Arbor
