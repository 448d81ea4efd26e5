// The node of the document tree: reference counted, with a parent, siblings and the guarded
// child change that every structural edit of a document goes through.
#pragma once

#include <grafel/arbor/Token.h>
#include <grafel/tessel/RefCounted.h>

#include <iosfwd>

namespace Arbor {

class Document;
class DocumentFragment;
class Element;
class InnerNode;
class Text;

template <class T> using Ref = Tessel::Ref<T>;

/// Base of every node. A new node has no reference; whoever keeps it takes one, and a parent
/// holds one on each child. The virtual operations are declared in the order in which element
/// classes extend them.
///
/// Structural edits go through replaceChildren() and its named forms (appendChild, removeChild,
/// ...): they check the change, ask mayReplaceChildren(), record it for undo when an undo task
/// is open, perform it with replaceChildrenRaw() and then call afterParentChanged() on every node
/// whose parent changed. A document must outlive the nodes it made.
class Node : public Tessel::RefCounted<Tessel::IResource> {
public:
    enum NodeType : long { ElementNode = 1, TextNode = 3, DocumentNode = 9, FragmentNode = 11 };

    ~Node() override;

    virtual Node* firstChild() const { return nullptr; }
    virtual Node* lastChild() const { return nullptr; }
    /// A copy of this node for the same document, not linked into a tree; `deep` copies the
    /// children as well. The caller takes the first reference.
    virtual Node* cloneNode(bool deep) const = 0;
    virtual long nodeType() const = 0;
    virtual Token nodeName() const = 0;
    /// Number of children.
    virtual unsigned items() const { return 0; }
    virtual Element* asElement() { return nullptr; }
    virtual Text* asText() { return nullptr; }
    virtual DocumentFragment* asFragment() { return nullptr; }
    /// Called on a node after its parent changed (it was inserted, removed or moved).
    virtual void afterParentChanged() {}
    /// Writes the node as XML.
    virtual std::ostream& putXml(std::ostream& out);
    /// Whether changes are refused.
    virtual bool readOnly() const { return false; }
    /// Veto hook of the child change: replace `count` children from `first` by the chain that
    /// starts at `newFirst`.
    virtual bool mayReplaceChildren(Node* first, unsigned count, Node* newFirst);
    /// Performs a child change without checks, undo record or notification. A node without
    /// children of its own ignores it.
    virtual void replaceChildrenRaw(Node* first, unsigned count, Node* newFirst);
    virtual const wchar_t* nodeValue() const { return nullptr; }
    virtual void setNodeValue(const wchar_t*) {}
    /// Called at the end of a guarded child change with the nodes that came in (`count` of
    /// them from `newFirst`), after their afterParentChanged(). Not called on undo or redo.
    virtual void afterReplaceChildren(Node* newFirst, unsigned count);
    /// Whether this node is a leaf of content: it holds no nodes, and nothing derived from the
    /// shape of the tree looks at it or at its attributes, so that putting it in, taking it out
    /// or changing its attributes leaves such values valid (see Document::structureCount()).
    virtual bool isContentLeaf() const { return false; }
    /// Whether a value derived from the shape of the tree may look at this node's attribute
    /// `name`, so that changing it must move Document::structureCount(): by default any
    /// attribute of a node that is no content leaf.
    virtual bool attributeShapesTree(Token) const { return !isContentLeaf(); }

    /// The document that made this node (a document is its own).
    Document* ownerDocument() const { return document_; }
    Node* parentNode() const { return parent_; }
    /// The next node: the next child of the parent, or the next node of a detached chain.
    Node* nextSibling() const { return next_; }
    Node* previousSibling() const { return prev_; }
    /// The next node of a chain about to be inserted (see replaceChildren): the next node of a
    /// detached chain or of a fragment, and none for a node that stands in a tree, which moves
    /// alone. Veto hooks walk the new chain with it.
    Node* nextInChain() const;
    bool hasChildNodes() const { return firstChild() != nullptr; }
    /// First child with that name, or null.
    Node* findChild(Token name) const;
    /// Child at that index, or null.
    Node* findChild(unsigned index) const;
    /// Position among the parent's children (0 without a parent).
    unsigned indexInParent() const;
    /// Whether `node` is this node or lies below it.
    bool contains(const Node* node) const;

    /// Appends `child` (or the children of a fragment); a node that stands elsewhere in the
    /// tree is moved. Returns `child`.
    Node* appendChild(Node* child);
    /// Inserts `child` before `before` (appends when `before` is null). Returns `child`.
    Node* insertBefore(Node* child, Node* before);
    /// Removes `child` and hands it back; the result keeps it alive for the caller.
    Ref<Node> removeChild(Node* child);
    /// Puts `newChild` in the place of `oldChild` and hands back `oldChild`.
    Ref<Node> replaceChild(Node* newChild, Node* oldChild);
    /// Replaces the child with the same node name as `child`, or appends when there is none.
    /// Hands back the replaced child, or null.
    Ref<Node> replaceChildByName(Node* child);

protected:
    explicit Node(Document* document) : document_(document) {}
    /// A copy belongs to the same document and stands in no tree.
    Node(const Node& other)
        : Tessel::RefCounted<Tessel::IResource>(other), document_(other.document_) {}
    Node& operator=(const Node&) { return *this; }

    /// The guarded child change; the named forms above are all made of it.
    void replaceChildren(Node* first, unsigned count, Node* newFirst);

    Document* document_ = nullptr;
    Node* parent_ = nullptr;

private:
    friend class InnerNode;
    friend class Document;
    Node* prev_ = nullptr;
    Node* next_ = nullptr;
};

/// Drops a reference without deep recursion: when the last reference to a large subtree goes,
/// its nodes are released one after the other rather than nested, so that no tree is too deep
/// to destroy.
void releaseNode(const Node* node);

} // namespace Arbor
