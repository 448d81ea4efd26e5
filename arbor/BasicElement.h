// A ready-made element and document for hosts that need a plain tree of named elements with
// free attributes, and for exercising the kernel on its own.
#pragma once

#include <grafel/arbor/Document.h>
#include <grafel/arbor/Element.h>

#include <utility>
#include <vector>

namespace Arbor {

/// An element of any name that accepts any attribute. Its attributes are kept sorted by name
/// word; putAttributesXml writes those that hold one of the kernel's own variant types.
class BasicElement : public Element {
public:
    BasicElement(Document* document, Token tag) : Element(document), tag_(tag) {}
    BasicElement(const BasicElement&) = default;

    Node* cloneNode(bool deep) const override;
    Token tagName() const override { return tag_; }
    Variant getAttribute(Token name) const override;
    bool hasAttribute(Token name) const override;

protected:
    bool maySetAttribute(Token name, const Variant& value) override;
    bool mayRemoveAttribute(Token name) override;
    void setAttributeRaw(Token name, const Variant& value) override;
    void removeAttributeRaw(Token name) override;
    std::ostream& putAttributesXml(std::ostream& out) override;

private:
    using Entry = std::pair<Token, Variant>;
    std::vector<Entry>::const_iterator find(Token name) const;

    Token tag_;
    std::vector<Entry> attributes_;
};

/// A document whose createElement makes a BasicElement for any name.
class BasicDocument : public Document {
public:
    BasicDocument() = default;
    Element* createElement(Token tagName) override;
};

} // namespace Arbor
