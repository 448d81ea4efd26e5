#include <grafel/arbor/Text.h>

#include <grafel/arbor/Document.h>
#include <grafel/tessel/CData.h>

namespace Arbor {

Node* Text::cloneNode(bool) const {
    return document_->createTextNode(data());
}

Token Text::nodeName() const {
    static const Token name("#text", false);
    return name;
}

std::ostream& Text::putXml(std::ostream& out) {
    return Tessel::putCData(out, data());
}

} // namespace Arbor
