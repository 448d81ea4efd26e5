// The vocabulary of ZPX, the XML dialect of a plot: its namespace, its tags with what a reader
// does with each, and its attribute names.
#pragma once

#include <span>

namespace Grafel {

/// The namespace of the dialect. Names in no namespace are read the same.
inline constexpr const char* zpxNamespaceUri = "http://grafel.org/xml/Orthelia";

/// What the reader does with an element, by its tag.
enum class ZpxTagGroup : unsigned char {
    Plain,        ///< appended to the open element
    Point2,       ///< one point of a P2List, no node
    Point3,       ///< one point of a P3List, no node
    SingleText,   ///< replaces its namesake, keeps its text
    Single,       ///< replaces its namesake
    Array,        ///< appended, its text is split into words
    Option,       ///< appended once its Opt holds a token
    OptionText,   ///< the same, keeps its text
    Typed,        ///< appended once its Type holds a token
    TextObject,   ///< appended, keeps its text
    SequenceItem, ///< takes the place of the child at the running index, keeps its text
    Prop,         ///< appended once Opt holds a token and Val a string
    Category,     ///< appended once Name holds a non-empty string
    Info,         ///< appended once Dom holds a token
    Root,         ///< replaces the document element
};

/// The group of the tag with token id `id`; Plain for an id that is no tag.
ZpxTagGroup zpxTagGroup(int id) noexcept;
/// Whether the token with id `id` is a tag of the dialect.
bool isZpxTag(int id) noexcept;
/// Whether the token with id `id` is an attribute name of the dialect.
bool isZpxAttribute(int id) noexcept;

/// The token ids of the tags of the dialect, ascending.
std::span<const int> zpxTags() noexcept;
/// The token ids of the attribute names of the dialect, ascending.
std::span<const int> zpxAttributeNames() noexcept;

} // namespace Grafel
