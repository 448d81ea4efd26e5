// Character data in the tree.
#pragma once

#include <grafel/arbor/Node.h>
#include <grafel/tessel/FixedString.h>

namespace Arbor {

/// A text node: wide text, written as escaped XML character data.
class Text : public Node {
public:
    Node* cloneNode(bool deep) const override;
    long nodeType() const override { return TextNode; }
    Token nodeName() const override;
    Text* asText() override { return this; }
    std::ostream& putXml(std::ostream& out) override;
    const wchar_t* nodeValue() const override { return data(); }
    void setNodeValue(const wchar_t* value) override {
        data_ = Tessel::FixedStringBase<wchar_t>(value);
    }

    /// The text; never null.
    const wchar_t* data() const noexcept { return data_.text(); }
    const Tessel::FixedStringBase<wchar_t>& string() const noexcept { return data_; }

private:
    friend class Document;
    Text(Document* document, const wchar_t* data) : Node(document), data_(data) {}
    Tessel::FixedStringBase<wchar_t> data_;
};

} // namespace Arbor
