#include <grafel/foundation/NumberFormat.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <locale>
#include <ostream>

namespace Grafel {

namespace {

/// The slot of the exact-numbers flag in every stream's iword array.
int exactSlot() {
    static const int slot = std::ios_base::xalloc();
    return slot;
}

/// The flags that change how operator<< writes a double, or when it flushes.
constexpr std::ios_base::fmtflags numberFlags = std::ios_base::floatfield | std::ios_base::showpos |
                                                std::ios_base::showpoint |
                                                std::ios_base::uppercase | std::ios_base::unitbuf;

/// operator<< treats a negative precision as 6, as printf does.
int effectivePrecision(std::streamsize precision) {
    if (precision < 0) return 6;
    return precision > 1000 ? 1000 : static_cast<int>(precision);
}

/// The number of significant digits in the shortest text that reads back to `value`. The
/// scientific form holds just those digits, one before the point and the rest after it (the
/// plain shortest form may be a fixed one that spells out a large integer in full).
int shortestDigits(double value) {
    char text[maxNumberChars];
    const char* end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::scientific).ptr;
    int digits = 0;
    for (const char* c = text; c != end && *c != 'e'; ++c) digits += *c >= '0' && *c <= '9';
    return std::max(digits, 1);
}

bool readsBack(const char* first, const char* last, double value) {
    double back = 0;
    const auto result = std::from_chars(first, last, back);
    return result.ec == std::errc() && result.ptr == last &&
           std::bit_cast<std::uint64_t>(back) == std::bit_cast<std::uint64_t>(value);
}

/// Seventeen significant digits read back to any double.
constexpr int roundTripDigits = 17;

} // namespace

std::ostream& exactNumbers(std::ostream& out) {
    out.iword(exactSlot()) = 1;
    return out;
}

std::ostream& streamNumbers(std::ostream& out) {
    out.iword(exactSlot()) = 0;
    return out;
}

bool hasExactNumbers(const std::ios_base& stream) {
    // iword() is not const, but reading an unset slot only makes it zero.
    return const_cast<std::ios_base&>(stream).iword(exactSlot()) != 0;
}

NumberFormat::NumberFormat(const std::ios_base& stream)
    : precision_(effectivePrecision(stream.precision())), exact_(hasExactNumbers(stream)),
      direct_((stream.flags() & numberFlags) == 0 && stream.width() == 0 &&
              precision_ <= maxDirectPrecision && stream.getloc() == std::locale::classic()) {}

char* NumberFormat::formatGeneral(char* first, double value, int precision) noexcept {
    if (precision < 0) precision = 6;
    return std::to_chars(first, first + maxNumberChars, value, std::chars_format::general,
                         precision)
        .ptr;
}

char* NumberFormat::formatExact(char* first, double value, int minimum) noexcept {
    if (minimum < 1) minimum = minimum < 0 ? 6 : 1;
    if (!std::isfinite(value)) return formatGeneral(first, value, minimum);
    // The shortest form's digit count is nearly always enough; at a power of two the rounding
    // interval below the value is half as wide as above, and the nearest decimal of that many
    // digits may fall outside it, so the text is checked and the precision raised until it
    // reads back. Seventeen digits always do.
    int precision = std::max(minimum, shortestDigits(value));
    for (;;) {
        char* end = formatGeneral(first, value, precision);
        if (precision >= roundTripDigits || readsBack(first, end, value)) return end;
        ++precision;
    }
}

int NumberFormat::exactPrecision(double value, int minimum) noexcept {
    if (minimum < 1) minimum = minimum < 0 ? 6 : 1;
    if (!std::isfinite(value)) return minimum;
    int precision = std::max(minimum, shortestDigits(value));
    char text[maxNumberChars];
    while (precision < roundTripDigits &&
           !readsBack(text, formatGeneral(text, value, precision), value))
        ++precision;
    return precision;
}

char* NumberFormat::format(char* first, double value) const noexcept {
    return exact_ ? formatExact(first, value, precision_) : formatGeneral(first, value, precision_);
}

void NumberFormat::put(std::ostream& out, double value) const {
    if (direct_) {
        char text[maxNumberChars];
        out.write(text, format(text, value) - text);
    } else if (exact_) {
        // The stream's own format with the precision raised where the value needs it.
        const std::streamsize saved = out.precision();
        out.precision(std::max<std::streamsize>(exactPrecision(value, precision_), saved));
        out << value;
        out.precision(saved);
    } else {
        out << value;
    }
}

std::ostream& putNumber(std::ostream& out, double value) {
    NumberFormat(out).put(out, value);
    return out;
}

} // namespace Grafel
