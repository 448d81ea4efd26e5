// One entry of the property catalogue: a property that an inspector shows in its category, where
// its value is kept in the tree, and of which value type it is.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PlotElement.h>
#include <grafel/properties/PropertyTypes.h>

// Dom is what carries the value: an attribute, an option child, or one of Expr, ExprSeq,
// ColorFunc, Prop, told apart by Opt. Type is the value type; Recalc marks the properties that
// the sampled data depend on. Name, Enum and Info are texts for the host.
#define GRAFEL_PROPINFO_TABLE(P)                                                                   \
    P(Optional, MStringProperty, Name, (Tessel::FixedStringBase<wchar_t>()),                       \
      (Tessel::FixedStringBase<wchar_t>()))                                                        \
    P(Mandatory, TokenProperty, Dom, ::Arbor::Token(), ::Arbor::Token())                           \
    P(Optional, TokenProperty, Opt, ::Arbor::Token(), ::Arbor::Token())                            \
    P(Optional, TokenProperty, Type, ::Arbor::Token(), ::Arbor::Token())                           \
    P(Optional, MStringProperty, Enum, (Tessel::FixedStringBase<wchar_t>()),                       \
      (Tessel::FixedStringBase<wchar_t>()))                                                        \
    P(Optional, BoolProperty, Recalc, false, false)                                                \
    P(Optional, MStringProperty, Info, (Tessel::FixedStringBase<wchar_t>()),                       \
      (Tessel::FixedStringBase<wchar_t>()))

namespace Grafel {

/// A catalogue entry under a PropCat. It takes no children. A copy made by cloneNode has all
/// values empty or null; the copy constructor copies them all.
class PropInfo : public ElementClass<PropInfo, id_PropInfo, PlotElement> {
    friend ElementClass;

public:
    GRAFEL_MEMBER_PROPERTIES(PropInfo, GRAFEL_PROPINFO_TABLE)

public:
    PropInfo(const PropInfo& other) = default;
    PropInfo& operator=(const PropInfo& other) = default;

    /// Only the empty change: no child is ever added.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override {
        return !newFirst && (!first || count == 0);
    }

protected:
    explicit PropInfo(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
