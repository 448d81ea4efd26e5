// Escaping of text for XML output, so that element content and double-quoted attribute values
// read back exactly as they were written.
#pragma once

#include <iosfwd>

namespace Tessel {

/// Writes UTF-8 text as XML character data: '&', '<', '>' and '"' as entities, tab, line feed
/// and carriage return as character references (a parser would otherwise normalise them), and
/// whatever XML cannot carry (other control characters, U+FFFE, U+FFFF, malformed UTF-8) as
/// U+FFFD. The result is valid both as element content and inside a double-quoted attribute.
/// A null `text` writes nothing. Returns `out`.
std::ostream& putCData(std::ostream& out, const char* text);

/// Writes wide text as XML character data in UTF-8, escaped as the narrow form; surrogates and
/// units beyond U+10FFFF become U+FFFD as well.
std::ostream& putCData(std::ostream& out, const wchar_t* text);

} // namespace Tessel
