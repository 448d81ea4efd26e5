// What an element admits as children, asked by tag without making a node: for an editor that
// offers what may be added where, and for the reference of classes.
#pragma once

#include <climits>

namespace Grafel {

/// What a child element of a tag would be to its parent.
enum class ChildRole : unsigned char {
    None,            ///< refused
    Content,         ///< any number of them, in document order
    Option,          ///< at most one, filling a fixed role
    MandatoryOption, ///< exactly one, which the parent must always have
};

/// How many content children an element holds, where its class fixes the number.
struct ChildCount {
    unsigned least = 0;
    unsigned most = UINT_MAX;
    bool operator==(const ChildCount&) const = default;
};

} // namespace Grafel
