// Wide text inside a double-quoted string of the command language.
#pragma once

#include <iosfwd>

namespace Grafel {

/// Writes `text` as UTF-8 with backspace, tab, line feed, carriage return, double quote and
/// backslash escaped as \b \t \n \r \" \\; every other byte stands as it is. Writes no enclosing
/// quotes (the caller does), and nothing for a null text.
void putCmdString(std::ostream& out, const wchar_t* text);

} // namespace Grafel
