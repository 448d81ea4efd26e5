#include <grafel/foundation/NumberScan.h>

#include <bit>
#include <charconv>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <utility>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace Grafel {

namespace {

inline bool isXmlSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

const char* skipXmlSpace(const char* p, const char* end) {
    while (p != end && isXmlSpace(*p)) ++p;
    return p;
}

inline bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

inline bool endsNumber(const char* p, const char* end) {
    return p == end || isXmlSpace(*p) || *p == '#';
}

// The common case of the plain form: at most 19 significant digits that make an integer
// below 2^53, scaled by a power of ten up to 10^22. Both are exact doubles, so one
// multiplication or division gives the correctly rounded value, the one strtod gives. Anything
// else answers false and leaves `p` alone.
bool shortNumber(const char*& p, const char* end, double& value) {
    static constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const char* q = p;
    const bool negative = *q == '-';
    if (negative) ++q;
    const char* start = q;
    while (q != end && *q == '0') ++q; // leading zeros are not significant
    std::uint64_t mantissa = 0;
    const char* significant = q;
    for (; q != end && isDigit(*q); ++q) mantissa = mantissa * 10 + unsigned(*q - '0');
    long digits = q - significant;
    long exponent = 0;
    bool any = q != start;
    if (q != end && *q == '.') {
        const char* fraction = ++q;
        if (mantissa == 0)
            while (q != end && *q == '0') ++q; // nor are zeros right behind the point
        const char* rest = q;
        for (; q != end && isDigit(*q); ++q) mantissa = mantissa * 10 + unsigned(*q - '0');
        digits += q - rest;
        exponent = -(q - fraction);
        any = any || q != fraction;
    }
    // Beyond 19 digits the mantissa may have wrapped; such numbers take the long way.
    if (!any || digits > 19) return false;
    if (q != end && (*q == 'e' || *q == 'E')) {
        ++q;
        const bool down = q != end && *q == '-';
        if (q != end && (*q == '-' || *q == '+')) ++q;
        if (q == end || !isDigit(*q)) return false;
        long e = 0;
        for (; q != end && isDigit(*q); ++q) {
            if (e > 100000) return false;
            e = e * 10 + (*q - '0');
        }
        exponent += down ? -e : e;
    }
    if (!endsNumber(q, end)) return false;
    double v = 0.0;
    if (mantissa != 0) {
        if (mantissa > (std::uint64_t(1) << 53) || exponent < -22 || exponent > 22) return false;
        v = static_cast<double>(mantissa);
        v = exponent >= 0 ? v * powers[exponent] : v / powers[-exponent];
    }
    value = negative ? -v : v;
    p = q;
    return true;
}

// One number as " %lf" reads it, when it has a plain decimal form whose end is beyond doubt:
// an optional minus, digits with at most one point and an exponent, followed by white space,
// a '#' or the end. Anything else (a plus, inf, nan, hexadecimal, a value out of range, a
// character that sscanf might still take) answers false, and the caller asks sscanf.
bool plainNumber(const char*& p, const char* end, double& value) {
    const char* q = p;
    if (q != end && *q == '-') ++q;
    if (q == end || !((*q >= '0' && *q <= '9') || *q == '.')) return false;
    if (shortNumber(p, end, value)) return true;
    double v;
    const auto [next, ec] = std::from_chars(p, end, v);
    if (ec != std::errc() || !endsNumber(next, end)) return false;
    value = v;
    p = next;
    return true;
}

// The whole field list as scanFields describes it, when every field is plain; false hands the
// text to sscanf.
bool plainFields(const std::string& text, int numbers, int colors, double* values,
                 ScanWord* words) {
    const char* p = text.data();
    const char* end = p + text.size();
    for (int i = 0; i < numbers; ++i) {
        p = skipXmlSpace(p, end);
        if (!plainNumber(p, end, values[i])) return false;
    }
    for (int i = 0; i < colors; ++i) {
        p = skipXmlSpace(p, end);
        if (p == end || *p != '#') return false;
        p = skipXmlSpace(p + 1, end); // %s skips white space of its own
        const char* start = p;
        while (p != end && p - start < 10 && !isXmlSpace(*p)) {
            // Characters that sscanf might see as white space, or as the end of the text.
            const unsigned char c = static_cast<unsigned char>(*p);
            if (c >= 0x80 || c == '\v' || c == '\f' || c == 0) return false;
            ++p;
        }
        if (p == start) return false;
        std::memcpy(words[i], start, static_cast<std::size_t>(p - start));
        words[i][p - start] = '\0';
    }
    return true;
}

// sscanf with the numbers first and then the words, as the formats have them; pointers beyond
// the format's conversions are not touched.
template <std::size_t... I>
int sscanfFields(const char* text, const char* format, double* values, char* first, char* second,
                 std::index_sequence<I...>) {
    return std::sscanf(text, format, &values[I]..., first, second);
}

// The sscanf format of `numbers` numbers (1 to 6) and `colors` colour words (0 to 2).
const char* formatFor(int numbers, int colors) {
    static const char* const formats[6][3] = {
        {" %lf ", " %lf #%10s ", " %lf #%10s #%10s "},
        {" %lf %lf ", " %lf %lf #%10s ", " %lf %lf #%10s #%10s "},
        {" %lf %lf %lf ", " %lf %lf %lf #%10s ", " %lf %lf %lf #%10s #%10s "},
        {" %lf %lf %lf %lf ", " %lf %lf %lf %lf #%10s ", " %lf %lf %lf %lf #%10s #%10s "},
        {" %lf %lf %lf %lf %lf ", " %lf %lf %lf %lf %lf #%10s ",
         " %lf %lf %lf %lf %lf #%10s #%10s "},
        {" %lf %lf %lf %lf %lf %lf ", " %lf %lf %lf %lf %lf %lf #%10s ",
         " %lf %lf %lf %lf %lf %lf #%10s #%10s "},
    };
    return formats[numbers - 1][colors];
}

// scanFields, with the plain reading allowed or not.
int scan(const std::string& text, int numbers, int colors, double* values, ScanWord* words,
         bool plain) {
    if (plain && plainFields(text, numbers, colors, values, words)) return numbers + colors;
    // sscanf measures the whole text before it starts, which is why the texts are short ones:
    // one element's, one line's or one word.
    const char* format = formatFor(numbers, colors);
    const char* c = text.c_str();
    char* w0 = colors > 0 ? words[0] : nullptr;
    char* w1 = colors > 1 ? words[1] : nullptr;
    switch (numbers) {
    case 1:
        return sscanfFields(c, format, values, w0, w1, std::make_index_sequence<1>());
    case 2:
        return sscanfFields(c, format, values, w0, w1, std::make_index_sequence<2>());
    case 3:
        return sscanfFields(c, format, values, w0, w1, std::make_index_sequence<3>());
    case 4:
        return sscanfFields(c, format, values, w0, w1, std::make_index_sequence<4>());
    case 5:
        return sscanfFields(c, format, values, w0, w1, std::make_index_sequence<5>());
    default:
        return sscanfFields(c, format, values, w0, w1, std::make_index_sequence<6>());
    }
}

// The plain reading of scanLongs: false hands the text to sscanf. Characters that sscanf may
// take for white space (vertical tab, form feed, bytes above 127 in some locales) or for the
// end (NUL), a sign without a digit, and numbers that may not fit are left to it.
bool plainLongs(const std::string& text, int count, long* values, int& converted) {
    const char* p = text.data();
    const char* end = p + text.size();
    converted = 0;
    for (int i = 0; i < count; ++i) {
        p = skipXmlSpace(p, end);
        if (p == end) {
            converted = i == 0 ? -1 : i;
            return true;
        }
        const unsigned char c = static_cast<unsigned char>(*p);
        if (c >= 0x80 || c == '\v' || c == '\f' || c == 0) return false;
        const bool negative = c == '-';
        if (c == '-' || c == '+') ++p;
        if (p == end || !isDigit(*p)) {
            if (c == '-' || c == '+') return false;
            converted = i; // sscanf stops at the first character that cannot start a number
            return true;
        }
        const char* digits = p;
        long v = 0;
        for (; p != end && isDigit(*p); ++p) {
            if (p - digits == 18) return false;
            v = v * 10 + (*p - '0');
        }
        values[i] = negative ? -v : v;
    }
    converted = count;
    return true;
}

// Eight bytes of text as one little-endian word: byte i is the character at p + i.
inline std::uint64_t eightBytes(const char* p) {
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return word;
}

constexpr std::uint64_t eachByte(std::uint64_t b) {
    return b * 0x0101010101010101u;
}

// The number of decimal digits at the start of the eight characters in `word`. A byte is a
// digit when its high nibble is 3 both as it is and with 6 added; a carry out of a byte only
// happens for one that is no digit, so the bytes before the first non-digit are judged right.
inline int leadingDigits(std::uint64_t word) {
    const std::uint64_t high = eachByte(0xF0);
    const std::uint64_t other =
        ((word & high) ^ eachByte(0x30)) | (((word + eachByte(0x06)) & high) ^ eachByte(0x30));
    return other ? std::countr_zero(other) >> 3 : 8;
}

// The value of the first `n` (0 to 7) digits in `word`. They are moved to the top so that the
// bytes below them read as leading zeros, then combined pairwise, as four and as eight.
inline std::uint64_t digitsValue(std::uint64_t word, int n) {
    std::uint64_t v = ((word - eachByte(0x30)) << (8 * (7 - n))) << 8;
    v = v * 10 + (v >> 8);
    return ((v & 0x000000FF000000FFu) * (100 + (1000000ull << 32)) +
            ((v >> 16) & 0x000000FF000000FFu) * (1 + (10000ull << 32))) >>
           32;
}

// The same for a word of `length` characters that white space ends, its end known in advance:
// the form is checked by its length, and nothing here depends on the word before, so the
// processor may read several words at once. The caller guarantees 24 readable bytes at `p`.
inline bool knownWord(const char* p, int length, double& value) {
    static constexpr double powers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7};
    static constexpr std::uint64_t scales[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};
    const bool negative = *p == '-';
    const char* q = p + negative;
    const std::uint64_t whole = eightBytes(q);
    const int n = leadingDigits(whole);
    if (n == 8) return false;
    std::uint64_t mantissa = digitsValue(whole, n);
    const int rest = length - negative - n;
    int k = 0;
    if (rest != 0) {
        if (q[n] != '.') return false;
        const std::uint64_t fraction = eightBytes(q + n + 1);
        k = leadingDigits(fraction);
        if (k != rest - 1 || k == 8) return false;
        mantissa = mantissa * scales[k] + digitsValue(fraction, k);
    }
    if (n + k == 0) return false;
    const double v = static_cast<double>(static_cast<std::int64_t>(mantissa)) / powers[k];
    value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(v) | std::uint64_t(negative) << 63);
    return true;
}

// Bit i tells whether p[i] is white space, for 16 bytes.
inline unsigned spaceMask(const char* p) {
#if defined(__SSE2__)
    const __m128i c = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const __m128i space = _mm_or_si128(
        _mm_or_si128(_mm_cmpeq_epi8(c, _mm_set1_epi8(' ')), _mm_cmpeq_epi8(c, _mm_set1_epi8('\n'))),
        _mm_or_si128(_mm_cmpeq_epi8(c, _mm_set1_epi8('\t')),
                     _mm_cmpeq_epi8(c, _mm_set1_epi8('\r'))));
    return static_cast<unsigned>(_mm_movemask_epi8(space));
#else
    unsigned mask = 0;
    for (int i = 0; i < 16; ++i) mask |= unsigned(isXmlSpace(p[i])) << i;
    return mask;
#endif
}

} // namespace

std::size_t scanPlainWords(const char*& p, const char* end, double* values, std::size_t room) {
    // Room for what knownWord and spaceMask may look at, so that it needs no test of the end.
    constexpr std::ptrdiff_t margin = 24;
    std::size_t count = 0;
    const char* q = p;
    while (count != room) {
        while (q != end && isXmlSpace(*q)) ++q;
        if (q == end) break;
        if constexpr (std::endian::native == std::endian::little) {
            // The end of the word is found first, apart from its digits, so that the next
            // word need not wait for the reading of this one.
            if (end - q >= margin) {
                const unsigned spaces = spaceMask(q);
                const int length = std::countr_zero(spaces);
                if (spaces != 0 && knownWord(q, length, values[count])) {
                    ++count;
                    q += length + 1;
                    continue;
                }
            }
        }
        const char* r = q;
        if (!plainNumber(r, end, values[count]) || r == end || !isXmlSpace(*r)) break;
        ++count;
        q = r + 1;
    }
    p = q;
    return count;
}

int scanLongs(const std::string& text, int count, long* values) {
    if (count < 1 || count > 2) throw std::invalid_argument("scanLongs: 1 or 2 numbers");
    int converted;
    if (plainLongs(text, count, values, converted)) return converted;
    if (count == 1) return std::sscanf(text.c_str(), " %ld ", &values[0]);
    return std::sscanf(text.c_str(), " %ld %ld ", &values[0], &values[1]);
}

int scanFields(const std::string& text, int numbers, int colors, double* values, ScanWord* words) {
    if (numbers < 1 || numbers > 6 || colors < 0 || colors > 2)
        throw std::invalid_argument("scanFields: 1 to 6 numbers and 0 to 2 colour words");
    return scan(text, numbers, colors, values, words, decimalPointIsDot());
}

bool decimalPointIsDot() {
    const char* point = std::localeconv()->decimal_point;
    return point[0] == '.' && point[1] == '\0';
}

bool scanPlainNumber(const char*& p, const char* end, double& value) {
    return plainNumber(p, end, value);
}

} // namespace Grafel
