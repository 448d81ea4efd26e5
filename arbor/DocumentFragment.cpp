#include <grafel/arbor/DocumentFragment.h>

#include <grafel/arbor/Document.h>

namespace Arbor {

Node* DocumentFragment::cloneNode(bool deep) const {
    DocumentFragment* copy = document_->createDocumentFragment();
    if (deep) cloneChildren(copy);
    return copy;
}

Token DocumentFragment::nodeName() const {
    static const Token name("#document-fragment", false);
    return name;
}

std::ostream& DocumentFragment::putXml(std::ostream& out) {
    for (Node* n = firstChild(); n; n = n->nextSibling()) n->putXml(out);
    return out;
}

} // namespace Arbor
