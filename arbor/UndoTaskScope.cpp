#include <grafel/arbor/UndoTaskScope.h>

#include <grafel/arbor/Document.h>

#include <utility>

namespace Arbor {

UndoTaskScope::UndoTaskScope(Document& document) : document_(&document) {
    document.openUndoScope();
}

UndoTaskScope::~UndoTaskScope() {
    close();
}

UndoTaskScope::UndoTaskScope(UndoTaskScope&& other) noexcept
    : document_(std::exchange(other.document_, nullptr)) {}

UndoTaskScope& UndoTaskScope::operator=(UndoTaskScope&& other) noexcept {
    if (this != &other) {
        close();
        document_ = std::exchange(other.document_, nullptr);
    }
    return *this;
}

void UndoTaskScope::close() noexcept {
    if (Document* d = std::exchange(document_, nullptr)) d->closeUndoScope();
}

} // namespace Arbor
