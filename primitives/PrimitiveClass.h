// What every primitive class declares alike: its property table with the
// members and getters that come from it, and a named lookup of its presence word.
#pragma once

#include <grafel/foundation/Rgba.h>
#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PrimitiveBase.h>

#include <cstdint>

/// Placed in the body of a primitive Class (on ElementClass) whose properties are the rows of
/// TABLE. FlagsLookup names the static function that answers the member of the presence word.
#define GRAFEL_PRIMITIVE_TABLE(Class, TABLE, FlagsLookup)                                          \
    GRAFEL_MEMBER_PROPERTIES(Class, TABLE)                                                         \
public:                                                                                            \
    /** The presence word: one bit per property, set while the property has a stated value. */     \
    static std::uint32_t Class::*FlagsLookup() {                                                   \
        return presencePtr();                                                                      \
    }                                                                                              \
                                                                                                   \
private:
