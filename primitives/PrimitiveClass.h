// What every primitive class declares alike: its property table with the
// members and getters that come from it, and a named lookup of its presence word.
#pragma once

#include <grafel/foundation/Rgba.h>
#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PrimitiveBase.h>

#include <cstddef>
#include <cstdint>

// The named lookup of the presence word that every primitive class answers.
#define GRAFEL_PRIMITIVE_FLAGS_LOOKUP_(Class, FlagsLookup)                                         \
public:                                                                                            \
    /** The presence word: one bit per property, set while the property has a stated value. */     \
    static std::uint32_t Class::*FlagsLookup() {                                                   \
        return presencePtr();                                                                      \
    }                                                                                              \
                                                                                                   \
private:

/// Placed in the body of a primitive Class (on ElementClass) whose properties are the rows of
/// TABLE. FlagsLookup names the static function that answers the member of the presence word.
#define GRAFEL_PRIMITIVE_TABLE(Class, TABLE, FlagsLookup)                                          \
    GRAFEL_MEMBER_PROPERTIES(Class, TABLE)                                                         \
    GRAFEL_PRIMITIVE_FLAGS_LOOKUP_(Class, FlagsLookup)

/// As GRAFEL_PRIMITIVE_TABLE, with the members stored in the order of LAYOUT (see
/// GRAFEL_MEMBER_PROPERTIES_ORDERED): for a class whose rows, in their order, leave holes.
#define GRAFEL_PRIMITIVE_TABLE_ORDERED(Class, TABLE, LAYOUT, FlagsLookup)                          \
    GRAFEL_MEMBER_PROPERTIES_ORDERED(Class, TABLE, LAYOUT)                                         \
    GRAFEL_PRIMITIVE_FLAGS_LOOKUP_(Class, FlagsLookup)

namespace Grafel::detail {

/// The base an element class names to ElementClass.
template <class D, TokenId T, class B, CloneBy C> B elementBaseOf(const ElementClass<D, T, B, C>*);

/// The bytes a primitive class loses to alignment: its size beyond its base less the presence
/// word and the values of its rows.
template <class Class> constexpr long primitivePadding(std::size_t rowBytes) {
    using Base = decltype(elementBaseOf(static_cast<const Class*>(nullptr)));
    return long(sizeof(Class)) - long(sizeof(Base)) - long(sizeof(std::uint32_t)) - long(rowBytes);
}

} // namespace Grafel::detail

#define GRAFEL_PRIMITIVE_ROW_BYTES_(K, Type, Name, ...) +sizeof(GRAFEL_MEMBER_VALUE_(K, Type))

/// In the source file of a primitive class: its descriptor table, and a check that its members
/// lose no more than 8 bytes to alignment.
#define GRAFEL_DEFINE_PRIMITIVE(Class, TABLE)                                                      \
    GRAFEL_DEFINE_MEMBER_PROPERTIES(Class, TABLE)                                                  \
    static_assert(::Grafel::detail::primitivePadding<Class>([] {                                   \
                      using Self = Class;                                                          \
                      return std::size_t(0) TABLE(GRAFEL_PRIMITIVE_ROW_BYTES_);                    \
                  }()) <= 8,                                                                       \
                  #Class ": its members lose more than 8 bytes to alignment; reorder its layout");
