// Reading numbers and colour words out of short texts exactly as the C library's sscanf reads
// them, for the readers whose formats are written in its terms, without the cost of sscanf for
// the plain decimal forms that files hold almost always.
#pragma once

#include <cstddef>
#include <string>

namespace Grafel {

/// A colour word as the conversion "%10s" stores it: up to ten characters and a NUL.
using ScanWord = char[11];

/// Reads `text` as `std::sscanf(text.c_str(), format, ...)` does in the current C locale, where
/// `format` is `numbers` conversions " %lf" (1 to 6), then `colors` conversions " #%10s" (0 to
/// 2), then " ". Answers what sscanf answers: the number of fields converted, or -1 when the
/// text ends before the first field. The first fields of `values` and `words`, as many as were
/// converted, hold exactly what sscanf stores (the same bits; the words NUL-terminated); the
/// others are unspecified. Whatever follows the last field is ignored, as sscanf ignores it.
/// `values` has room for `numbers` doubles and `words` for `colors` words (it may be null when
/// `colors` is 0); other counts throw std::invalid_argument.
///
/// Plain decimal numbers are read without the C library when its decimal point is '.';
/// anything else (a plus sign, inf, nan, hexadecimal, an exponent out of range, another
/// decimal point) is handed to sscanf itself, so the answer never differs.
int scanFields(const std::string& text, int numbers, int colors, double* values, ScanWord* words);

/// Reads `text` as `std::sscanf(text.c_str(), format, ...)` does, where `format` is `count`
/// conversions " %ld" (1 or 2) and then " ": the same answer (fields converted, or -1 when the
/// text ends before the first field) and the same values in the fields converted, an out of
/// range number included (sscanf clamps it to LONG_MIN or LONG_MAX). Other counts throw
/// std::invalid_argument. Plain forms (blanks, an optional sign, at most 18 digits) are read
/// without the C library; anything else goes to sscanf itself.
int scanLongs(const std::string& text, int count, long* values);

/// Whether the decimal point of the current C locale is '.': the condition under which
/// scanPlainNumber reads as sscanf does. A caller that reads many numbers asks once.
bool decimalPointIsDot();

/// Reads one number at `p`, which is not white space, as " %lf" reads it in a locale whose
/// decimal point is '.', when its form is plain and its end beyond doubt: an optional '-',
/// decimal digits with at most one point, an optional exponent, and then white space (blank,
/// tab, line feed, carriage return), a '#' or `end`. Then `value` is the correctly rounded
/// double, `p` points behind the number, and the answer is true. Otherwise the answer is false,
/// `p` and `value` are left alone, and only sscanf can tell what the text means.
bool scanPlainNumber(const char*& p, const char* end, double& value);

/// Reads a run of words at `p`, each one a number that scanPlainNumber takes and that a white-
/// space character ends, into `values` (room for `room`), skipping the white space before
/// each word and taking the one behind it. Answers how many were read; `p` points behind the
/// last of them and the white space that follows, that is at `end` or at the first word that
/// is not read this way: an unusual one, or one that may go on beyond `end`. The values are
/// those of scanPlainNumber, bit for bit; the short decimal forms that streams write are read
/// without a loop over their digits.
std::size_t scanPlainWords(const char*& p, const char* end, double* values, std::size_t room);

} // namespace Grafel
