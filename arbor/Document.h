// The document: owner of a tree, factory of its nodes, and the place where events, batches,
// undo and the selection of that tree are kept.
#pragma once

#include <grafel/arbor/DocObserver.h>
#include <grafel/arbor/DomEvent.h>
#include <grafel/arbor/InnerNode.h>
#include <grafel/arbor/Variant.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Arbor {

class Range;

/// Base of documents; a subclass decides which element class stands behind a name
/// (createElement). A document has at most one element child, the document element.
///
/// Events. fireEvent() hands an event to the observers of its type, then to the observers of
/// all events, in the order they were added. Observers may be added or removed while an event
/// is delivered; a removed observer hears nothing more.
///
/// Batches. beginBatchChanges()/endBatchChanges() nest. While a batch is open, events are held
/// back (copied, in order, with their target kept alive) and functors given to postFunction()
/// wait; when the outermost batch closes, the held events and functors are delivered and run in
/// the order they came. An event that nobody observes when it is fired is not held. An event
/// with a coalescing key (DomEvent::coalescingKey) that repeats one already held in the same
/// outermost batch (same target, type and key) is dropped: it is delivered once, at the place
/// of its first firing. Events without a key, and events outside batches, are all delivered.
///
/// Undo. Nothing is recorded until newUndoTask() opens a task; from then on every guarded
/// change (attribute set or removal, child change) joins the open task, and each
/// newUndoTask() closes it and opens the next. undo() and redo() replay a whole task through
/// the raw operations and then the after walks (afterSetAttribute / afterRemoveAttribute down
/// the subtree, a removal bracketed by beforeRemoval / afterRemoval, afterParentChanged on
/// moved nodes), inside one batch, so that a replay tells the elements what the change it
/// replays told them. A new change forgets what could be redone. clearUndoStack() forgets
/// everything and stops recording until the next newUndoTask().
///
/// Changes. changeCount() grows with every change of the tree or of an attribute of any of its
/// nodes, by whatever path (guarded, raw, replayed, or a subtree being released), so that a
/// value derived from the tree may be kept for as long as the count stays the same.
/// structureCount() grows with the same changes except those confined to content leaves (an
/// attribute of a leaf, a child change that puts in or takes out leaves only) and changes of
/// attributes that their node says no such value reads (Node::attributeShapesTree()): a value
/// that reads no leaf, and of other nodes only the attributes they name, may be kept for as long
/// as that count stays the same.
class Document : public InnerNode {
public:
    ~Document() override;

    /// Refused: a document cannot be cloned, since the tree of a subclass's elements is more
    /// than the kernel can copy. Throws DomException(NotSupportedErr), never answers null.
    Node* cloneNode(bool deep) const override;
    long nodeType() const override { return DocumentNode; }
    Token nodeName() const override;
    /// An XML declaration, then the children; the document element carries the namespace set
    /// with setXmlNamespace().
    std::ostream& putXml(std::ostream& out) override;

    virtual bool hasAttributes() const { return false; }
    /// A new element of the class that stands behind `tagName`, or null. The caller takes the
    /// first reference.
    virtual Element* createElement(Token tagName) = 0;
    /// Observe events of one type.
    virtual void addObserver(IDocObserver* observer, Token type);
    /// Observe all events.
    virtual void addObserver(IDocObserver* observer);
    virtual void removeObserver(IDocObserver* observer, Token type);
    /// Removes every registration of `observer`.
    virtual void removeObserver(IDocObserver* observer);
    virtual void beginBatchChanges();
    virtual void endBatchChanges();
    /// Runs `function` now, or when the outermost batch closes; the document owns it and
    /// deletes it after running it.
    virtual void postFunction(Functor* function);
    /// Takes the tree apart: drops the children, the undo history, the ranges and whatever a
    /// batch was holding. Called by the destructor.
    virtual void tearDown();
    virtual void fireEvent(DomEvent& event);

    /// The element child, or null.
    Element* documentElement() const;
    /// A new text node, not in the tree.
    Text* createTextNode(const wchar_t* data);
    /// A new, empty fragment.
    DocumentFragment* createDocumentFragment();
    /// A new range at the start of the document, owned by the document. `selected` makes it
    /// part of the selection.
    Range* createRange(bool selected);
    /// The first range of the selection, or null.
    Range* firstSelectedRange() const;
    /// Forgets a range made by createRange().
    void deleteRange(Range* range);

    /// Closes the open task (when it holds anything) and opens the next. For a step bounded by
    /// a block of code, UndoTaskScope (UndoTaskScope.h) opens and closes it, also when an
    /// exception leaves the block.
    void newUndoTask();
    void clearUndoStack();
    bool canUndo() const;
    bool canRedo() const;
    /// Reverts the last task; false when there was none.
    bool undo();
    /// Repeats the last reverted task; false when there was none.
    bool redo();
    /// Whether guarded changes are being recorded now.
    bool recordingUndo() const;

    /// Grows with every change (see above); never 0, so 0 can stand for "never valid".
    std::uint64_t changeCount() const { return changeCount_; }
    /// Grows with every change that is not confined to content leaves; never 0.
    std::uint64_t structureCount() const { return structureCount_; }
    /// Counts a change made behind the kernel's back: a raw store of a value that the kernel
    /// cannot see (the raw child and attribute operations of the kernel count their own).
    void noteChange() {
        ++changeCount_;
        ++structureCount_;
    }
    /// Counts a change confined to content leaves: structureCount() stays.
    void noteLeafChange() { ++changeCount_; }
    /// Counts a change of the attributes of `node`, any of them.
    void noteChangeOf(const Node* node) { node->isContentLeaf() ? noteLeafChange() : noteChange(); }
    /// Counts a change of the attribute `name` of `node`.
    void noteChangeOf(const Node* node, Token name) {
        node->attributeShapesTree(name) ? noteChange() : noteLeafChange();
    }
    /// Whether any observer is registered: when none is, an event need not even be made.
    bool hasObservers() const { return hasObservers_; }

    /// Depth of open batches.
    int batchDepth() const;
    /// The namespace written on the document element by putXml (empty: none).
    void setXmlNamespace(std::string uri);
    const std::string& xmlNamespace() const;

    /// The document's private state (observers, held events, undo history, ranges).
    struct State;

protected:
    Document();
    /// Copies the XML namespace only: no tree, observers, history or ranges.
    Document(const Document& other);
    Document& operator=(const Document& other);

private:
    friend class Node;
    friend class InnerNode;
    friend class Element;
    friend class UndoTaskScope;
    class AttributeRecord;
    class ChildRecord;

    // Called by the guarded operations of nodes and elements.
    void recordAttribute(Element* element, Token name, bool hadOld, Variant oldValue, bool hasNew,
                         Variant newValue);
    void recordChildren(InnerNode* parent, unsigned index, std::vector<Ref<Node>> removed,
                        std::vector<Ref<Node>> inserted);
    // Called by UndoTaskScope: the outermost scope opens a task and closes it again.
    void openUndoScope();
    void closeUndoScope() noexcept;
    // Called by the raw child change, so that ranges follow every change, replayed ones too.
    bool hasRanges() const;
    void adjustRanges(InnerNode* parent, unsigned index, Node* removedFirst, unsigned removed,
                      unsigned inserted);

    // Used by the undo records to replay changes through the raw operations.
    static void relinkChain(const std::vector<Ref<Node>>& nodes);
    void deliver(DomEvent& event);
    bool observed(Token type) const;
    /// Whether any observer is left.
    bool observed() const;

    std::unique_ptr<State> state_;
    std::uint64_t changeCount_ = 1;
    std::uint64_t structureCount_ = 1;
    bool hasObservers_ = false; // kept by addObserver and removeObserver
};

} // namespace Arbor
