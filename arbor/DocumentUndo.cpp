// The undo history of a document: recording guarded changes and replaying them.
#include <grafel/arbor/Document.h>

#include <grafel/arbor/Element.h>
#include <grafel/arbor/detail/DocumentState.h>

namespace Arbor {

/// One attribute change: the state before and after.
class Document::AttributeRecord : public UndoRecord {
public:
    AttributeRecord(Element* element, Token name, bool hadOld, Variant oldValue, bool hasNew,
                    Variant newValue)
        : element_(element), name_(name), hadOld_(hadOld), hasNew_(hasNew),
          old_(std::move(oldValue)), new_(std::move(newValue)) {}

    bool fits(bool) const override { return true; }

    void apply(bool forUndo) override {
        Element* e = element_.get();
        if (forUndo ? hadOld_ : hasNew_) {
            e->setAttributeRaw(name_, forUndo ? old_ : new_);
            if (Document* d = e->ownerDocument()) d->noteChangeOf(e, name_);
            e->walkAfterSet(e, name_);
        } else {
            e->removeAndWalk(name_);
        }
    }

private:
    Ref<Element> element_;
    Token name_;
    bool hadOld_;
    bool hasNew_;
    Variant old_;
    Variant new_;
};

/// One child change: which nodes left and which came, at which index of which parent.
class Document::ChildRecord : public UndoRecord {
public:
    ChildRecord(InnerNode* parent, unsigned index, std::vector<Ref<Node>> removed,
                std::vector<Ref<Node>> inserted)
        : parent_(parent), keepParent_(parent == parent->ownerDocument() ? nullptr : parent),
          index_(index), removed_(std::move(removed)), inserted_(std::move(inserted)) {}

    // The nodes that the replay takes out must stand at the index, in order, and the nodes it
    // puts in must be detached.
    bool fits(bool forUndo) const override {
        const auto& out = forUndo ? inserted_ : removed_;
        const auto& in = forUndo ? removed_ : inserted_;
        if (index_ > parent_->items()) return false;
        Node* n = parent_->findChild(index_);
        for (const auto& o : out) {
            if (n != o.get()) return false;
            n = n->nextSibling();
        }
        for (const auto& i : in)
            if (i->parentNode()) return false;
        return true;
    }

    void apply(bool forUndo) override {
        const auto& out = forUndo ? inserted_ : removed_;
        const auto& in = forUndo ? removed_ : inserted_;
        relinkChain(in);
        parent_->replaceChildrenRaw(parent_->findChild(index_), unsigned(out.size()),
                                    in.empty() ? nullptr : in.front().get());
        for (const auto& n : out) n->afterParentChanged();
        for (const auto& n : in) n->afterParentChanged();
    }

private:
    // The document itself is not counted: it owns the history, and may live on the stack.
    InnerNode* parent_;
    Ref<InnerNode> keepParent_;
    unsigned index_;
    std::vector<Ref<Node>> removed_;
    std::vector<Ref<Node>> inserted_;
};

void Document::relinkChain(const std::vector<Ref<Node>>& nodes) {
    for (const auto& r : nodes) { // leave whatever detached chain a node was part of
        Node* n = r.get();
        if (n->prev_) n->prev_->next_ = n->next_;
        if (n->next_) n->next_->prev_ = n->prev_;
        n->prev_ = n->next_ = nullptr;
    }
    for (size_t i = 1; i < nodes.size(); ++i) {
        nodes[i - 1]->next_ = nodes[i].get();
        nodes[i]->prev_ = nodes[i - 1].get();
    }
}

void Document::recordAttribute(Element* element, Token name, bool hadOld, Variant oldValue,
                               bool hasNew, Variant newValue) {
    state_->openTask.push_back(std::make_unique<AttributeRecord>(
        element, name, hadOld, std::move(oldValue), hasNew, std::move(newValue)));
    state_->redoStack.clear();
}

void Document::recordChildren(InnerNode* parent, unsigned index, std::vector<Ref<Node>> removed,
                              std::vector<Ref<Node>> inserted) {
    state_->openTask.push_back(
        std::make_unique<ChildRecord>(parent, index, std::move(removed), std::move(inserted)));
    state_->redoStack.clear();
}

bool Document::recordingUndo() const {
    return state_->recording && !state_->replaying;
}

void Document::newUndoTask() {
    State& s = *state_;
    if (!s.openTask.empty()) s.undoStack.push_back(std::move(s.openTask));
    s.openTask.clear();
    s.recording = true;
}

void Document::openUndoScope() {
    if (state_->undoScopes == 0) newUndoTask();
    ++state_->undoScopes;
}

void Document::closeUndoScope() noexcept {
    if (state_->undoScopes == 0 || --state_->undoScopes > 0) return;
    try {
        newUndoTask();
    } catch (...) {
        // Only the growth of the history can fail here; the changes stay in the open task,
        // which the next newUndoTask() or undo() closes.
    }
}

void Document::clearUndoStack() {
    state_->openTask.clear();
    state_->undoStack.clear();
    state_->redoStack.clear();
    state_->recording = false;
}

bool Document::canUndo() const {
    return !state_->openTask.empty() || !state_->undoStack.empty();
}

bool Document::canRedo() const {
    return !state_->redoStack.empty();
}

namespace {

// Replays the records of a task, last first for undo; the whole replay is one batch and
// records nothing. A record that no longer fits the tree (it was changed behind the history's
// back) ends the replay and the history with it.
bool replay(Document& doc, Document::State& s, UndoTask& task, bool forUndo) {
    struct Scope {
        Document& doc;
        Document::State& s;
        Scope(Document& d, Document::State& st) : doc(d), s(st) {
            s.replaying = true;
            doc.beginBatchChanges();
        }
        ~Scope() {
            s.replaying = false;
            doc.endBatchChanges();
        }
    } scope(doc, s);
    const size_t n = task.size();
    for (size_t k = 0; k < n; ++k) {
        UndoRecord& r = *task[forUndo ? n - 1 - k : k];
        if (!r.fits(forUndo)) return false;
        r.apply(forUndo);
    }
    return true;
}

} // namespace

bool Document::undo() {
    State& s = *state_;
    if (!s.openTask.empty()) s.undoStack.push_back(std::move(s.openTask));
    s.openTask.clear();
    if (s.undoStack.empty()) return false;
    UndoTask task = std::move(s.undoStack.back());
    s.undoStack.pop_back();
    if (!replay(*this, s, task, true)) {
        clearUndoStack();
        return false;
    }
    s.redoStack.push_back(std::move(task));
    return true;
}

bool Document::redo() {
    State& s = *state_;
    if (s.redoStack.empty()) return false;
    UndoTask task = std::move(s.redoStack.back());
    s.redoStack.pop_back();
    if (!replay(*this, s, task, false)) {
        clearUndoStack();
        return false;
    }
    s.undoStack.push_back(std::move(task));
    return true;
}

} // namespace Arbor
