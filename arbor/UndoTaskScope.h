// An undo step that lasts as long as an object: everything changed while it lives undoes at once.
#pragma once

namespace Arbor {

class Document;

/// Opens an undo task on construction (Document::newUndoTask) and closes it on destruction, so
/// that the guarded changes made in between form one step of undo. Scopes nest: an inner scope
/// on the same document joins the task of the outermost one, and only the outermost closes it,
/// so a helper that takes a scope of its own does not split its caller's step. When an
/// exception leaves the scope the task is closed all the same: what was changed before it
/// stays, as one step that undo() reverts. The document must outlive the scope. A moved-from
/// scope closes nothing.
class UndoTaskScope {
public:
    explicit UndoTaskScope(Document& document);
    ~UndoTaskScope();

    UndoTaskScope(UndoTaskScope&& other) noexcept;
    UndoTaskScope& operator=(UndoTaskScope&& other) noexcept;
    UndoTaskScope(const UndoTaskScope&) = delete;
    UndoTaskScope& operator=(const UndoTaskScope&) = delete;

    /// Closes the task now (if this scope is the outermost); the destructor then does nothing.
    void close() noexcept;

private:
    Document* document_;
};

} // namespace Arbor
