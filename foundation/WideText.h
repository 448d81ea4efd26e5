// Shared wide strings made from UTF-8 and written as XML, for the wide-text attributes of the
// document (names, font families, text).
#pragma once

#include <grafel/tessel/CData.h>
#include <grafel/tessel/FixedString.h>

#include <iosfwd>

namespace Grafel {

/// The wide string of a NUL-terminated UTF-8 text; malformed sequences become U+FFFD, and a null
/// text gives the empty (not the null) string.
Tessel::FixedStringBase<wchar_t> utf8ToFixedMString(const char* text);

// The escaping of plain texts stays reachable by its short name beside the overload below.
using Tessel::putCData;

/// Writes the string as XML character data in UTF-8; the null string writes the empty text.
std::ostream& putCData(std::ostream& out, const Tessel::FixedStringBase<wchar_t>& text);

} // namespace Grafel
