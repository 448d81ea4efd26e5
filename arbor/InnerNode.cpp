#include <grafel/arbor/InnerNode.h>

#include <grafel/arbor/Document.h>

namespace Arbor {

InnerNode::~InnerNode() {
    releaseChildren();
}

void InnerNode::releaseChildren() {
    Node* n = first_;
    if (!n) return; // also keeps a dying document from counting into its own destroyed part
    first_ = last_ = nullptr;
    count_ = 0;
    if (document_) {
        bool leavesOnly = true;
        for (Node* c = n; c && leavesOnly; c = c->next_) leavesOnly = c->isContentLeaf();
        leavesOnly ? document_->noteLeafChange() : document_->noteChange();
    }
    while (n) {
        Node* next = n->next_;
        n->parent_ = n->prev_ = n->next_ = nullptr;
        releaseNode(n);
        n = next;
    }
}

void InnerNode::replaceChildrenRaw(Node* first, unsigned count, Node* newFirst) {
    // Where the change happens, for the ranges that must follow it.
    Document* doc = document_;
    const bool ranges = doc && doc->hasRanges();
    const unsigned index = ranges ? (first ? first->indexInParent() : count_) : 0;

    // Cut the run of `count` children out; they stay linked to each other as a detached chain.
    Node* before = first ? first->prev_ : last_;
    Node* after = first;
    Node* removedLast = nullptr;
    // Whether every node taken out or put in is a content leaf, which spares the structure count.
    bool leavesOnly = true;
    for (unsigned k = 0; k < count && after; ++k) {
        leavesOnly = leavesOnly && after->isContentLeaf();
        after->parent_ = nullptr;
        removedLast = after;
        after = after->next_;
    }
    if (removedLast) {
        first->prev_ = nullptr;
        removedLast->next_ = nullptr;
        count_ -= count;
    }

    // Take the new chain: the rest of a fragment from newFirst on, or a detached chain.
    Node* chainLast = nullptr;
    unsigned inserted = 0;
    bool adopted = false; // the chain's references pass from the fragment to this node
    if (newFirst) {
        if (auto* holder = dynamic_cast<InnerNode*>(newFirst->parent_)) {
            adopted = true;
            for (Node* n = newFirst; n; n = n->next_) ++inserted;
            holder->count_ -= inserted;
            holder->last_ = newFirst->prev_;
            if (newFirst->prev_)
                newFirst->prev_->next_ = nullptr;
            else
                holder->first_ = nullptr;
        } else if (newFirst->prev_) {
            newFirst->prev_->next_ = nullptr;
        }
        for (Node* n = newFirst; n; n = n->next_) {
            leavesOnly = leavesOnly && n->isContentLeaf();
            n->parent_ = this;
            chainLast = n;
            if (!adopted) {
                n->ref();
                ++inserted;
            }
        }
        newFirst->prev_ = before;
        chainLast->next_ = after;
        count_ += inserted;
    }
    Node* linkFirst = newFirst ? newFirst : after;
    Node* linkLast = newFirst ? chainLast : before;
    if (before)
        before->next_ = linkFirst;
    else
        first_ = linkFirst;
    if (after)
        after->prev_ = linkLast;
    else
        last_ = linkLast;

    if (ranges) doc->adjustRanges(this, index, removedLast ? first : nullptr, count, inserted);
    if (doc) leavesOnly ? doc->noteLeafChange() : doc->noteChange();

    // The references of this node on the removed children go last, when all links are sound.
    for (Node* n = removedLast ? first : nullptr; n;) {
        Node* next = n->next_;
        releaseNode(n);
        n = next;
    }
}

void InnerNode::cloneChildren(Node* target) const {
    for (Node* n = first_; n; n = n->next_) target->appendChild(n->cloneNode(true));
}

} // namespace Arbor
