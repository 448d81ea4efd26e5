// What the property tables of scenes and coordinate systems share: the rows that make an element
// addressable and named, and the lookup of a descriptor through several tables in turn.
#pragma once

#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ListTable.h>

// The identity of a library element: an address that never reaches XML, a display name, and
// a flag that the host keeps out of its command text.
#define GRAFEL_LIBRARY_IDENTITY_ROWS(P)                                                            \
    P(Optional, IdListPropertyImpl, id, (::Tessel::FixedStringBase<char>()), Id)                   \
    P(Optional, MStringListProperty, Name, (::Tessel::FixedStringBase<wchar_t>()))                 \
    P(Optional, ConsistentListPropertyImpl, Consistent, false)

namespace Grafel {

/// The descriptor of `name` in the first of `Tables` that has one, asked in order; null when
/// none has. An element and its style chain the same tables, which is what makes the style's
/// value the inherited value of the element.
template <PropertyListMgr& (*First)(), PropertyListMgr& (*... Rest)()>
Property* findInTables(Arbor::Token name) {
    if (Property* p = First().find(name)) return p;
    if constexpr (sizeof...(Rest) > 0)
        return findInTables<Rest...>(name);
    else
        return nullptr;
}

} // namespace Grafel
