// A holder for a run of new nodes, inserted as a whole.
#pragma once

#include <grafel/arbor/InnerNode.h>

namespace Arbor {

/// Appending or inserting a fragment moves its children, in order, and leaves it empty.
class DocumentFragment : public InnerNode {
public:
    Node* cloneNode(bool deep) const override;
    long nodeType() const override { return FragmentNode; }
    Token nodeName() const override;
    DocumentFragment* asFragment() override { return this; }
    /// Writes the children.
    std::ostream& putXml(std::ostream& out) override;

private:
    friend class Document;
    explicit DocumentFragment(Document* document) : InnerNode(document) {}
};

} // namespace Arbor
