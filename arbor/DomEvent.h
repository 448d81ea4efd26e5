// Events that a document hands to its observers.
#pragma once

#include <grafel/arbor/Token.h>

#include <memory>

namespace Arbor {

class Element;

/// An event about one element. Events are made on the stack and passed to
/// Document::fireEvent by reference; a document that holds an event back makes a copy with
/// clone(), so each event class overrides clone().
class DomEvent {
public:
    DomEvent(Element* target, Token type) noexcept : target_(target), type_(type) {}
    virtual ~DomEvent() = default;
    virtual bool canceled() const { return false; }
    /// A copy of the same class.
    virtual std::unique_ptr<DomEvent> clone() const { return std::make_unique<DomEvent>(*this); }
    /// What makes two held events of this type and target the same news: while a batch is
    /// open, an event whose key is not null is held only the first time its target, type and
    /// key are seen. The null key (the default) keeps every delivery.
    virtual Token coalescingKey() const noexcept { return Token(); }

    Element* target() const noexcept { return target_; }
    Token type() const noexcept { return type_; }

    DomEvent(const DomEvent&) = default;
    DomEvent& operator=(const DomEvent&) = default;

private:
    Element* target_;
    Token type_;
};

/// An event about one attribute of an element.
class DomAttributeEvent : public DomEvent {
public:
    DomAttributeEvent(Element* target, Token type, Token attribute) noexcept
        : DomEvent(target, type), attribute_(attribute) {}
    DomAttributeEvent(const DomAttributeEvent&) = default;
    DomAttributeEvent& operator=(const DomAttributeEvent&) = default;
    std::unique_ptr<DomEvent> clone() const override {
        return std::make_unique<DomAttributeEvent>(*this);
    }

    Token attribute() const noexcept { return attribute_; }

private:
    Token attribute_;
};

} // namespace Arbor
