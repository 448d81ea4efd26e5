// What every concrete element class declares alike: its tag (the token of its class name), its
// copy for cloneNode, and its maker, registered with the element factory by the same
// declaration, so that a concrete class cannot be declared and left out of the factory.
#pragma once

#include <grafel/foundation/Tokens.h>
#include <grafel/properties/ElementRegistry.h>
#include <grafel/properties/PlotElement.h>

namespace Grafel {

/// How cloneNode makes the copy of an element: with the constructor's values (attribute
/// values are not copied), or with the copy constructor (the values and whatever the class
/// keeps beside the tree).
enum class CloneBy { construction, copy };

/// The base of a concrete element class Derived on Base whose tag is the token Tag: it gives
/// the tag, the copy for cloneNode (with the children for `deep`) and the maker, and registers
/// the maker with the element factory when the library is loaded. Derived names this class its
/// friend, so that the maker can reach its constructor, and passes its document here.
template <class Derived, TokenId Tag, class Base, CloneBy clone = CloneBy::construction>
class ElementClass : public Base {
public:
    Arbor::Token tagName() const override { return getToken(Tag); }

    Arbor::Node* cloneNode(bool deep) const override {
        Derived* copy;
        if constexpr (clone == CloneBy::copy)
            copy = new Derived(static_cast<const Derived&>(*this));
        else
            copy = new Derived(this->document_);
        if (deep) this->cloneChildren(copy);
        return copy;
    }

    /// A new element of this class for `document`; the caller takes the first reference.
    static PlotElement* create(Arbor::Document* document) { return new Derived(document); }

protected:
    explicit ElementClass(Arbor::Document* document) : Base(document) {
        // Reading the flag makes every class that is constructed register itself.
        static_cast<void>(listed_);
    }
    ElementClass(const ElementClass& other) = default;
    ElementClass& operator=(const ElementClass& other) = default;

private:
    inline static const bool listed_ = (registerElementClass(Tag, &Derived::create), true);
};

} // namespace Grafel

/// Placed in the body of a concrete class Class whose tag is the token of the same name; the
/// class is the factory's maker of that tag from the time the library is loaded. cloneNode
/// makes a new element of the class with its constructor's values (attribute values are not
/// copied) and, for `deep`, clones the children.
#define GRAFEL_ELEMENT_CLASS(Class)                                                                \
    GRAFEL_ELEMENT_CLASS_UNLISTED(Class)                                                           \
    GRAFEL_ELEMENT_LISTED_(Class)

/// As GRAFEL_ELEMENT_CLASS, for a stand-in that must not take its tag's place in the factory
/// (a test's class); it can still be registered for a while with registerElementClass.
#define GRAFEL_ELEMENT_CLASS_UNLISTED(Class)                                                       \
public:                                                                                            \
    ::Arbor::Token tagName() const override {                                                      \
        return ::Grafel::getToken(::Grafel::id_##Class);                                           \
    }                                                                                              \
    ::Arbor::Node* cloneNode(bool deep) const override {                                           \
        Class* copy = new Class(document_);                                                        \
        if (deep) cloneChildren(copy);                                                             \
        return copy;                                                                               \
    }                                                                                              \
    /** A new element of this class for `document`; the caller takes the first reference. */       \
    static ::Grafel::PlotElement* create(::Arbor::Document* document) {                            \
        return new Class(document);                                                                \
    }

/// As GRAFEL_ELEMENT_CLASS, for a class whose cloneNode copies the element with its copy
/// constructor: its attribute values, or the data it keeps beside the tree (point arrays).
#define GRAFEL_ELEMENT_CLASS_COPIED(Class)                                                         \
    GRAFEL_ELEMENT_CLASS_COPIED_UNLISTED(Class)                                                    \
    GRAFEL_ELEMENT_LISTED_(Class)

/// As GRAFEL_ELEMENT_CLASS_COPIED, without the registration (see GRAFEL_ELEMENT_CLASS_UNLISTED).
#define GRAFEL_ELEMENT_CLASS_COPIED_UNLISTED(Class)                                                \
public:                                                                                            \
    ::Arbor::Token tagName() const override {                                                      \
        return ::Grafel::getToken(::Grafel::id_##Class);                                           \
    }                                                                                              \
    ::Arbor::Node* cloneNode(bool deep) const override {                                           \
        Class* copy = new Class(*this);                                                            \
        if (deep) cloneChildren(copy);                                                             \
        return copy;                                                                               \
    }                                                                                              \
    /** A new element of this class for `document`; the caller takes the first reference. */       \
    static ::Grafel::PlotElement* create(::Arbor::Document* document) {                            \
        return new Class(document);                                                                \
    }

// Registers Class (declared above it in the class body) when the library is loaded: an inline
// variable is initialised in every translation unit that includes the class, its own source
// file among them, before main.
#define GRAFEL_ELEMENT_LISTED_(Class)                                                              \
private:                                                                                           \
    inline static const bool listed_ =                                                             \
        (::Grafel::registerElementClass(::Grafel::id_##Class, &Class::create), true);              \
                                                                                                   \
public:

/// Registers Class under the tag of the same name; placed once in the source file of a class
/// that declares its tag and maker by hand.
#define GRAFEL_REGISTER_ELEMENT_CLASS(Class)                                                       \
    [[maybe_unused]] static const bool grafelRegistered##Class =                                   \
        (::Grafel::registerElementClass(::Grafel::id_##Class, &Class::create), true)
