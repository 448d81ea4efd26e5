// The type of an object as the property catalogue describes it: the categories of properties
// that an inspector shows for objects of that type.
#pragma once

#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PlotElement.h>

// The one property of an ObjType: the object type it describes, with no default.
#define GRAFEL_OBJTYPE_TABLE(P)                                                                    \
    P(Mandatory, TypePropertyImpl, Type, ::Arbor::Token(), ::Arbor::Token())

namespace Grafel {

/// An object type of the catalogue, whose children are the property categories (PropCat) of
/// that type. Its Type is kept in a member. A copy made by cloneNode keeps no Type value, only
/// the presence flag that every ObjType has from its constructor: whoever copies an entry gives
/// the copy its type.
class ObjType : public ElementClass<ObjType, id_ObjType, PlotElement> {
    friend ElementClass;

public:
    GRAFEL_MEMBER_PROPERTIES(ObjType, GRAFEL_OBJTYPE_TABLE)

public:
    ObjType(const ObjType& other) = default;

    /// Admits PropCat children only; anything else is refused without a report.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    ChildRole childRole(Arbor::Token tag) const override;

protected:
    explicit ObjType(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
