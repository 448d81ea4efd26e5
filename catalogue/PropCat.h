// A named category of the property catalogue: it groups the PropInfo entries that an inspector
// shows together, and may hold further categories.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PlotElement.h>
#include <grafel/properties/PropertyTypes.h>

// The caption, which the reader demands non-empty.
#define GRAFEL_PROPCAT_TABLE(P)                                                                    \
    P(Mandatory, MStringProperty, Name, (Tessel::FixedStringBase<wchar_t>()),                      \
      (Tessel::FixedStringBase<wchar_t>()))

namespace Grafel {

/// A category of properties under an ObjType or another PropCat. A copy made by cloneNode has
/// an empty Name (and, deep, copies of the children): a catalogue is built, not cloned.
class PropCat : public ElementClass<PropCat, id_PropCat, PlotElement> {
    friend ElementClass;

public:
    GRAFEL_MEMBER_PROPERTIES(PropCat, GRAFEL_PROPCAT_TABLE)

public:
    PropCat(const PropCat& other) = default;
    PropCat& operator=(const PropCat& other) = default;

    /// Admits PropCat and PropInfo children only; anything else is refused without a report.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    ChildRole childRole(Arbor::Token tag) const override;

protected:
    explicit PropCat(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
