// What every concrete element class has alike: its tag, its copy for cloneNode, and its maker,
// registered with the element factory by the same declaration, so that a concrete class cannot
// be declared and left out of the factory.
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
    inline static const bool listed_ =
        (registerElementClass(Tag, &Derived::create), registerElementBase(Tag, typeid(Base)), true);
};

} // namespace Grafel

/// The members ElementClass gives, placed in the body of a stand-in Class that must not take
/// its tag's place in the factory (a test's class); it can still be registered for a while
/// with registerElementClass. cloneNode makes a new element with the constructor's values.
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

/// Registers Class under the tag of the same name; placed once in the source file of a class
/// that declares its tag and maker by hand. A second argument names the class it builds on.
#define GRAFEL_REGISTER_ELEMENT_CLASS(Class, ...)                                                  \
    [[maybe_unused]] static const bool grafelRegistered##Class =                                   \
        (::Grafel::registerElementClass(::Grafel::id_##Class, &Class::create),                     \
         __VA_OPT__(                                                                               \
             ::Grafel::registerElementBase(::Grafel::id_##Class, typeid(__VA_ARGS__)), ) true)
