// A range of the tree between two boundary points, as in the DOM range model; a document's
// selection is one.
#pragma once

#include <grafel/arbor/Node.h>

namespace Arbor {

/// Two boundary points (container, offset), where the offset counts children of the
/// container. Ranges are owned by their document and follow its child changes: a boundary
/// inside a removed subtree moves to the place of the removal, and offsets after a change
/// shift with it.
class Range {
public:
    /// Around `node`: both boundaries in its parent, before and after it.
    void selectNode(Node* node);
    void setStart(Node* container, unsigned offset);
    void setEnd(Node* container, unsigned offset);
    /// Moves the end to the start (or the start to the end).
    void collapse(bool toStart);
    bool collapsed() const { return start_ == end_ && startOffset_ == endOffset_; }

    Node* startContainer() const { return start_; }
    Node* endContainer() const { return end_; }
    unsigned startOffset() const { return startOffset_; }
    unsigned endOffset() const { return endOffset_; }
    /// Whether the range is one of the document's selection.
    bool selected() const { return selected_; }

private:
    friend class Document;
    Range(Document* document, bool selected);
    void check(Node* container, unsigned offset) const;

    // No references: the boundaries stand in the document's tree, which keeps them alive, and
    // the document moves them out of any subtree it removes.
    Document* document_;
    Node* start_;
    Node* end_;
    unsigned startOffset_ = 0;
    unsigned endOffset_ = 0;
    bool selected_;
};

} // namespace Arbor
