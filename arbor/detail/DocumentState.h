// The private state of a Document: observers, held events, undo history and ranges.
#pragma once

#include <grafel/arbor/Document.h>
#include <grafel/arbor/Element.h>
#include <grafel/arbor/Range.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace Arbor {

/// One recorded change, undone and redone by replaying raw operations.
class UndoRecord {
public:
    virtual ~UndoRecord() = default;
    /// Whether the tree is still in the state the record expects (after the change for undo,
    /// before it for redo). A record that no longer fits is never replayed.
    virtual bool fits(bool forUndo) const = 0;
    virtual void apply(bool forUndo) = 0;
};

using UndoTask = std::vector<std::unique_ptr<UndoRecord>>;

struct Document::State {
    struct Observer {
        IDocObserver* observer;
        Token type; // null: all events
    };
    struct Held {
        Ref<Element> target;
        std::unique_ptr<DomEvent> event;
        std::unique_ptr<Functor> function;
    };

    // Removed observers are blanked while a delivery runs and erased after it, so that a
    // delivery loop never skips or repeats an entry.
    template <class Match> void dropObservers(Match match) {
        for (auto& o : observers)
            if (o.observer && match(o)) {
                o.observer = nullptr;
                observersRemoved = true;
            }
        compactObservers();
    }
    void compactObservers() {
        if (delivering > 0 || !observersRemoved) return;
        std::erase_if(observers, [](const Observer& o) { return o.observer == nullptr; });
        observersRemoved = false;
    }

    std::vector<Observer> observers;
    int delivering = 0; // nesting of event deliveries
    bool observersRemoved = false;

    // Target, type and coalescing key of a held event.
    struct HeldKey {
        const Element* target;
        Token type;
        Token key;
        bool operator==(const HeldKey&) const = default;
    };
    struct HeldKeyHash {
        size_t operator()(const HeldKey& k) const noexcept {
            size_t h = std::hash<const void*>()(k.target);
            h = h * 31 + std::hash<Token>()(k.type);
            return h * 31 + std::hash<Token>()(k.key);
        }
    };

    int batchDepth = 0;
    std::vector<Held> held;
    // The keys of the coalescing events in `held`, so that a repeat is found in constant time.
    std::unordered_set<HeldKey, HeldKeyHash> heldKeys;

    bool recording = false; // an undo task is open
    bool replaying = false; // undo or redo is running
    int undoScopes = 0;     // open UndoTaskScopes
    UndoTask openTask;
    std::vector<UndoTask> undoStack;
    std::vector<UndoTask> redoStack;

    std::vector<std::unique_ptr<Range>> ranges;
    std::string xmlNamespace;
};

} // namespace Arbor
