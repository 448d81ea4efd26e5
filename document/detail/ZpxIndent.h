// Indentation of ZPX text as the writer makes it, for people and diffs.
#pragma once

#include <string>
#include <string_view>

namespace Grafel::detail {

/// `plain` with each child element on its own line, two blanks a level. Line breaks go only
/// between tags, and never inside an element whose text the reader keeps (texts, arrays,
/// points), so the result loads to the same document. Text that is no well-formed output of
/// the writer is indented as far as it goes and otherwise left as it is.
std::string indentZpx(std::string_view plain);

} // namespace Grafel::detail
