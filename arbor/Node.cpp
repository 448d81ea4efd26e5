#include <grafel/arbor/Node.h>

#include <grafel/arbor/Document.h>
#include <grafel/arbor/DocumentFragment.h>
#include <grafel/arbor/DomException.h>
#include <grafel/arbor/Element.h>

#include <ostream>
#include <vector>

namespace Arbor {

Node::~Node() {
    // Only a node of a detached chain can die with siblings: keep the rest of the chain sound.
    if (prev_) prev_->next_ = next_;
    if (next_) next_->prev_ = prev_;
}

std::ostream& Node::putXml(std::ostream& out) {
    return out;
}

bool Node::mayReplaceChildren(Node*, unsigned, Node*) {
    return true;
}

void Node::replaceChildrenRaw(Node*, unsigned, Node*) {}

void Node::afterReplaceChildren(Node*, unsigned) {}

Node* Node::nextInChain() const {
    return parent_ && !parent_->asFragment() ? nullptr : next_;
}

Node* Node::findChild(Token name) const {
    for (Node* n = firstChild(); n; n = n->next_)
        if (n->nodeName() == name) return n;
    return nullptr;
}

Node* Node::findChild(unsigned index) const {
    Node* n = firstChild();
    for (; n && index; --index) n = n->next_;
    return n;
}

unsigned Node::indexInParent() const {
    unsigned i = 0;
    if (parent_)
        for (const Node* n = prev_; n; n = n->prev_) ++i;
    return i;
}

bool Node::contains(const Node* node) const {
    for (; node; node = node->parent_)
        if (node == this) return true;
    return false;
}

Node* Node::appendChild(Node* child) {
    replaceChildren(nullptr, 0, child);
    return child;
}

Node* Node::insertBefore(Node* child, Node* before) {
    replaceChildren(before, 0, child);
    return child;
}

Ref<Node> Node::removeChild(Node* child) {
    Ref<Node> keep(child);
    replaceChildren(child, 1, nullptr);
    return keep;
}

Ref<Node> Node::replaceChild(Node* newChild, Node* oldChild) {
    Ref<Node> keep(oldChild);
    replaceChildren(oldChild, 1, newChild);
    return keep;
}

Ref<Node> Node::replaceChildByName(Node* child) {
    if (!child) throw DomException(DomException::HierarchyRequestErr);
    if (Node* old = findChild(child->nodeName())) return replaceChild(child, old);
    appendChild(child);
    return Ref<Node>();
}

namespace {

// Refuses a new child that cannot stand under `parent`: a document, a node of another
// document, the parent itself or one of its ancestors, or a second element or any text
// directly under a document.
void checkNewChild(Node* parent, Node* child) {
    // A node without children can only be an ancestor of itself; the common case of a new
    // node thus costs no walk up the tree.
    const bool cycle = child->hasChildNodes() ? child->contains(parent) : child == parent;
    if (child->nodeType() == Node::DocumentNode || cycle)
        throw DomException(DomException::HierarchyRequestErr);
    Document* owner = parent->ownerDocument();
    if (owner && child->ownerDocument() != owner)
        throw DomException(DomException::WrongDocumentErr);
    if (parent->nodeType() == Node::DocumentNode && child->nodeType() == Node::TextNode)
        throw DomException(DomException::HierarchyRequestErr);
}

/// `node` as an inner node, or null. Elements and fragments say so through their own casts,
/// which cost far less than a dynamic_cast on a deep element class; that stays for the rest.
InnerNode* asInnerNode(Node* node) {
    if (Element* e = node->asElement()) return e;
    if (DocumentFragment* f = node->asFragment()) return f;
    return dynamic_cast<InnerNode*>(node);
}

} // namespace

void Node::replaceChildren(Node* first, unsigned count, Node* newFirst) {
    if (readOnly()) throw DomException(DomException::NoModificationAllowedErr);
    if (newFirst && newFirst->asFragment()) {
        if (newFirst == this) throw DomException(DomException::HierarchyRequestErr);
        newFirst = newFirst->firstChild();
    }

    // The run of children to replace must be there.
    if (first && first->parent_ != this) throw DomException(DomException::NotFoundErr);
    if (!first && count) throw DomException(DomException::IndexSizeErr);
    Node* afterRun = first;
    for (unsigned k = 0; k < count; ++k) {
        if (!afterRun) throw DomException(DomException::IndexSizeErr);
        if (afterRun == newFirst) {
            if (count == 1) { // a node put in its own place: nothing changes
                if (!mayReplaceChildren(first, count, newFirst))
                    throw DomException(DomException::HierarchyRequestErr);
                return;
            }
            throw DomException(DomException::HierarchyRequestErr);
        }
        afterRun = afterRun->next_;
    }

    // A node that stands elsewhere in a tree moves alone; a detached chain or the children of
    // a fragment move as a whole.
    Node* oldParent = newFirst ? newFirst->parent_ : nullptr;
    const bool moving = oldParent && !oldParent->asFragment();
    unsigned newElements = 0;
    for (Node* n = newFirst; n; n = n->nextInChain()) {
        checkNewChild(this, n);
        if (n->nodeType() == ElementNode) ++newElements;
    }
    if (nodeType() == DocumentNode && newElements) {
        unsigned elements = newElements;
        for (Node* n = firstChild(); n; n = n->next_) elements += n->nodeType() == ElementNode;
        for (Node* n = first; n != afterRun; n = n->next_) elements -= n->nodeType() == ElementNode;
        if (elements > 1) throw DomException(DomException::HierarchyRequestErr);
    }
    InnerNode* self = asInnerNode(this);
    if (!self && (count || newFirst)) throw DomException(DomException::HierarchyRequestErr);
    if (!mayReplaceChildren(first, count, newFirst))
        throw DomException(DomException::HierarchyRequestErr);
    if (!count && !newFirst) return;

    Ref<Node> moved;
    if (moving) {
        if (first == newFirst) first = afterRun = newFirst->next_; // inserted before itself
        moved = oldParent->removeChild(newFirst);
    }

    std::vector<Ref<Node>> removed;
    removed.reserve(count);
    for (Node* n = first; n != afterRun; n = n->next_) removed.emplace_back(n);

    Document* doc = document_;
    const bool recording = doc && doc->recordingUndo();
    // One node put in without an undo record, the usual case, is held without a vector.
    Ref<Node> lone;
    std::vector<Ref<Node>> inserted;
    if (newFirst && !newFirst->next_ && !recording)
        lone = newFirst;
    else
        for (Node* n = newFirst; n; n = n->next_) inserted.emplace_back(n);

    if (recording) {
        // Children taken from a fragment leave it: that is a change of its own, undone after
        // (and redone before) the insertion.
        if (newFirst && newFirst->parent_)
            doc->recordChildren(static_cast<InnerNode*>(newFirst->parent_),
                                newFirst->indexInParent(), inserted, {});
        const unsigned index = first ? first->indexInParent() : items();
        doc->recordChildren(self, index, removed, inserted);
    }
    replaceChildrenRaw(first, count, newFirst);
    for (auto& n : removed) n->afterParentChanged();
    for (auto& n : inserted) n->afterParentChanged();
    if (lone) {
        lone->afterParentChanged();
        afterReplaceChildren(lone.get(), 1);
    } else {
        afterReplaceChildren(inserted.empty() ? nullptr : inserted.front().get(),
                             unsigned(inserted.size()));
    }
}

namespace {
// Nodes whose release is pending while an outer releaseNode() loop runs on this thread.
thread_local std::vector<const Node*>* pendingRelease = nullptr;
} // namespace

void releaseNode(const Node* node) {
    if (!node) return;
    if (pendingRelease) {
        pendingRelease->push_back(node);
        return;
    }
    std::vector<const Node*> pending{node};
    pendingRelease = &pending;
    while (!pending.empty()) {
        const Node* n = pending.back();
        pending.pop_back();
        n->unref(); // a node that dies here queues its children instead of recursing
    }
    pendingRelease = nullptr;
}

} // namespace Arbor
