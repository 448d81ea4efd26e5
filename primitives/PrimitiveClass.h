// What every primitive class declares alike: its tag, its copy, its property table with the
// members and getters that come from it, and a named lookup of its presence word.
#pragma once

#include <grafel/foundation/Rgba.h>
#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PrimitiveBase.h>

#include <cstdint>

/// Placed in the body of a primitive Class whose properties are the rows of TABLE. cloneNode
/// gives a new element with the constructor's values. FlagsLookup names the static function
/// that answers the member of the presence word.
#define GRAFEL_PRIMITIVE_CLASS(Class, TABLE, FlagsLookup)                                          \
    GRAFEL_ELEMENT_CLASS(Class)                                                                    \
    GRAFEL_PRIMITIVE_TABLE_(Class, TABLE, FlagsLookup)

/// As GRAFEL_PRIMITIVE_CLASS, for a primitive whose cloneNode copies the element with its copy
/// constructor, so that the copy keeps the data it holds beside the tree (its points).
#define GRAFEL_PRIMITIVE_CLASS_COPIED(Class, TABLE, FlagsLookup)                                   \
    GRAFEL_ELEMENT_CLASS_COPIED(Class)                                                             \
    GRAFEL_PRIMITIVE_TABLE_(Class, TABLE, FlagsLookup)

#define GRAFEL_PRIMITIVE_TABLE_(Class, TABLE, FlagsLookup)                                         \
    GRAFEL_MEMBER_PROPERTIES(Class, TABLE)                                                         \
public:                                                                                            \
    /** The presence word: one bit per property, set while the property has a stated value. */     \
    static std::uint32_t Class::*FlagsLookup() {                                                   \
        return presencePtr();                                                                      \
    }                                                                                              \
                                                                                                   \
private:
