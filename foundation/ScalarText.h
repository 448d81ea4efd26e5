// The text forms of the kernel's own value kinds (double, long, bool, Token and the two string
// kinds), in the same overload sets as those of points, colours and fonts: parseValue reads an
// attribute text, putXmlValue writes the XML attribute form, putCmdValue the command form.
#pragma once

#include <grafel/arbor/Token.h>
#include <grafel/tessel/FixedString.h>

#include <iosfwd>

namespace Grafel {

// A type without a text form of its own must not slip into one of the overloads below by a
// conversion: a const char* would be written as a bool, an unsigned as a double.
template <class T> std::ostream& putXmlValue(std::ostream& out, const T& value) = delete;
template <class T> std::ostream& putCmdValue(std::ostream& out, const T& value) = delete;

/// Reads a number as sscanf " %lf " does (leading blanks, a sign, inf, nan and hexadecimal forms
/// are accepted, whatever follows the number is ignored). Writes `out` only on success; an empty
/// or null text fails.
bool parseValue(const char* text, double& out);
/// Reads a number as sscanf " %ld " does; writes `out` only on success.
bool parseValue(const char* text, long& out);
/// After leading spaces (only the space character), true is "1" or "true", false is "0" or
/// "false", each either alone or followed by a space and anything. Everything else, "TRUE" and
/// "1x" among them, fails. Writes `out` only on success.
bool parseValue(const char* text, bool& out);
/// After leading blanks, tabs, line feeds and carriage returns, the word up to the next of these
/// is interned (copied). An empty word fails. Writes `out` only on success.
bool parseValue(const char* text, Arbor::Token& out);

/// Numbers in the stream's default format.
std::ostream& putXmlValue(std::ostream& out, double value);
std::ostream& putXmlValue(std::ostream& out, long value);
/// "1" or "0".
std::ostream& putXmlValue(std::ostream& out, bool value);
/// The token's text; the null token writes nothing.
std::ostream& putXmlValue(std::ostream& out, Arbor::Token value);
/// The text XML-escaped; the null string writes the empty text.
std::ostream& putXmlValue(std::ostream& out, const Tessel::FixedStringBase<char>& value);
std::ostream& putXmlValue(std::ostream& out, const Tessel::FixedStringBase<wchar_t>& value);

/// Numbers in the stream's default format.
std::ostream& putCmdValue(std::ostream& out, double value);
std::ostream& putCmdValue(std::ostream& out, long value);
/// "TRUE" or "FALSE".
std::ostream& putCmdValue(std::ostream& out, bool value);
/// The token's text.
std::ostream& putCmdValue(std::ostream& out, Arbor::Token value);
/// The UTF-8 text in double quotes, as it stands.
std::ostream& putCmdValue(std::ostream& out, const Tessel::FixedStringBase<char>& value);
/// The text in double quotes, escaped by putCmdString.
std::ostream& putCmdValue(std::ostream& out, const Tessel::FixedStringBase<wchar_t>& value);

} // namespace Grafel
