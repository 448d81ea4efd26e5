// What every concrete element class declares alike: its tag (the token of its class name), its
// copy for cloneNode, and the maker its registration uses.
#pragma once

#include <grafel/foundation/Tokens.h>
#include <grafel/properties/ElementRegistry.h>

/// Placed in the body of a concrete class Class whose tag is the token of the same name.
/// cloneNode makes a new element of the class with its constructor's values (attribute values
/// are not copied) and, for `deep`, clones the children.
#define GRAFEL_ELEMENT_CLASS(Class)                                                                \
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
public:                                                                                            \
    ::Arbor::Token tagName() const override { return ::Grafel::getToken(::Grafel::id_##Class); }   \
    ::Arbor::Node* cloneNode(bool deep) const override {                                           \
        Class* copy = new Class(*this);                                                            \
        if (deep) cloneChildren(copy);                                                             \
        return copy;                                                                               \
    }                                                                                              \
    /** A new element of this class for `document`; the caller takes the first reference. */     \
    static ::Grafel::PlotElement* create(::Arbor::Document* document) { return new Class(document); }

/// Registers Class under the tag of the same name; placed once in the class's source file.
#define GRAFEL_REGISTER_ELEMENT_CLASS(Class)                                                       \
    [[maybe_unused]] static const bool grafelRegistered##Class =                                   \
        (::Grafel::registerElementClass(::Grafel::id_##Class, &Class::create), true)
