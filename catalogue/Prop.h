// A named option of a plot object that has no property of its own in the element tables: its
// value is kept as text, and the catalogue tells how to read it.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PlotElement.h>
#include <grafel/properties/PropertyTypes.h>

// Which option, and its value as text (which may be empty).
#define GRAFEL_PROP_TABLE(P)                                                                       \
    P(Mandatory, TokenProperty, Opt, ::Arbor::Token(), ::Arbor::Token())                           \
    P(Mandatory, MStringProperty, Val, (Tessel::FixedStringBase<wchar_t>()),                       \
      (Tessel::FixedStringBase<wchar_t>()))

namespace Grafel {

/// An option value under an object. It takes no children. A copy made by cloneNode has a null
/// Opt and an empty Val; the copy constructor copies both.
class Prop : public ElementClass<Prop, id_Prop, PlotElement> {
    friend ElementClass;

public:
    GRAFEL_MEMBER_PROPERTIES(Prop, GRAFEL_PROP_TABLE)

public:
    Prop(const Prop& other) = default;
    Prop& operator=(const Prop& other) = default;

    /// Only the empty change: no child is ever added.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override {
        return !newFirst && (!first || count == 0);
    }

    /// One command item "Opt=value", the value written by the option's value type: Bool as
    /// TRUE or FALSE, String quoted, Color and Font in their command forms, ColorList as the
    /// colours found in the text in brackets; any other type, or none, as the text stands. A
    /// text that does not parse as its type leaves the value empty.
    void putCmd(CmdOStream& out) override;

protected:
    explicit Prop(Arbor::Document* document) : ElementClass(document) {}

    /// The value type of this option, from the catalogue entry of the object's Type: the
    /// document's own ObjType of that Type when it has one (which then hides the shared entry
    /// entirely), else the shared one. Null outside an Obj2d or Obj3d, or for an option that
    /// the entry does not list.
    Arbor::Token type() const;
};

} // namespace Grafel
