#include <grafel/arbor/Range.h>

#include <grafel/arbor/Document.h>
#include <grafel/arbor/DomException.h>

namespace Arbor {

Range::Range(Document* document, bool selected)
    : document_(document), start_(document), end_(document), selected_(selected) {}

void Range::check(Node* container, unsigned offset) const {
    if (!container || container->ownerDocument() != document_)
        throw DomException(DomException::WrongDocumentErr);
    if (offset > container->items()) throw DomException(DomException::IndexSizeErr);
}

void Range::selectNode(Node* node) {
    if (!node || !node->parentNode()) throw DomException(DomException::NotFoundErr);
    Node* parent = node->parentNode();
    check(parent, 0);
    const unsigned index = node->indexInParent();
    start_ = end_ = parent;
    startOffset_ = index;
    endOffset_ = index + 1;
}

void Range::setStart(Node* container, unsigned offset) {
    check(container, offset);
    start_ = container;
    startOffset_ = offset;
}

void Range::setEnd(Node* container, unsigned offset) {
    check(container, offset);
    end_ = container;
    endOffset_ = offset;
}

void Range::collapse(bool toStart) {
    if (toStart) {
        end_ = start_;
        endOffset_ = startOffset_;
    } else {
        start_ = end_;
        startOffset_ = endOffset_;
    }
}

} // namespace Arbor
