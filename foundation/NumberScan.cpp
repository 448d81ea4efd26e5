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

// The value of the first `n` (0 to 8) digits in `word`. They are moved to the top so that the
// bytes below them read as leading zeros (the subtraction borrows only from the bytes above the
// digits, which the shift drops), then combined pairwise, as four and as eight.
inline std::uint64_t digitsValue(std::uint64_t word, unsigned n) {
    const unsigned half = 4 * (8 - n); // two shifts, as one of 64 bits is undefined
    std::uint64_t v = ((word - eachByte(0x30)) << half) << half;
    v = v * 10 + (v >> 8);
    return ((v & 0x000000FF000000FFu) * (100 + (1000000ull << 32)) +
            ((v >> 16) & 0x000000FF000000FFu) * (1 + (10000ull << 32))) >>
           32;
}

// What the characters of 64 bytes of text are, a bit for each byte: white space, decimal
// digits and points. A word's form is then checked with a few operations on these masks, and
// the end of one word gives the start of the next without a look at the text.
struct CharacterMasks {
    std::uint64_t space = 0;
    std::uint64_t digit = 0;
    std::uint64_t point = 0;
};

inline CharacterMasks characterMasks(const char* p) {
    CharacterMasks m;
    for (unsigned i = 0; i < 64; i += 16) {
#if defined(__SSE2__)
        const __m128i c = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + i));
        const auto is = [&](char x) { return _mm_cmpeq_epi8(c, _mm_set1_epi8(x)); };
        const __m128i space =
            _mm_or_si128(_mm_or_si128(is(' '), is('\n')), _mm_or_si128(is('\t'), is('\r')));
        // Signed comparisons: bytes from 0x80 on are negative and so no digits.
        const __m128i digit = _mm_and_si128(_mm_cmpgt_epi8(c, _mm_set1_epi8('0' - 1)),
                                            _mm_cmplt_epi8(c, _mm_set1_epi8('9' + 1)));
        const auto bits = [](__m128i x) {
            return std::uint64_t(static_cast<unsigned>(_mm_movemask_epi8(x)));
        };
        m.space |= bits(space) << i;
        m.digit |= bits(digit) << i;
        m.point |= bits(is('.')) << i;
#else
        for (unsigned j = i; j < i + 16; ++j) {
            m.space |= std::uint64_t(isXmlSpace(p[j])) << j;
            m.digit |= std::uint64_t(isDigit(p[j])) << j;
            m.point |= std::uint64_t(p[j] == '.') << j;
        }
#endif
    }
    return m;
}

// The word at bytes [s, e) of the 64 that `m` describes at `p`, when it is a short decimal:
// an optional minus, at most eight digits, an optional point and at most eight digits behind
// it, fifteen digits in all and one at least. Its digits then make an integer below 2^53 and
// the point a division by an exact power of ten, so the quotient is the correctly rounded
// value, the one strtod gives: `value` / `divisor`, which the caller computes. The caller
// guarantees 80 readable bytes at `p` and e < 64.
inline bool shortWord(const char* p, unsigned s, unsigned e, const CharacterMasks& m, double& value,
                      double& divisor) {
    // The sign goes with the divisor, which keeps the value out of the integer registers; a
    // zero divided by a negative power is -0, as strtod reads "-0".
    static constexpr double powers[2][9] = {{1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8},
                                            {-1e0, -1e1, -1e2, -1e3, -1e4, -1e5, -1e6, -1e7, -1e8}};
    static constexpr std::uint64_t scales[] = {1,      10,      100,      1000,     10000,
                                               100000, 1000000, 10000000, 100000000};
    const bool negative = p[s] == '-';
    const unsigned first = s + negative;
    const std::uint64_t body = (~std::uint64_t(0) << first) & ((std::uint64_t(1) << e) - 1);
    const std::uint64_t points = body & m.point;
    if ((body & ~(m.digit | m.point)) != 0 || (points & (points - 1)) != 0) return false;
    const unsigned point = points ? unsigned(std::countr_zero(points)) : e;
    const unsigned n = point - first;
    const unsigned k = points ? e - point - 1 : 0;
    if (n > 8 || k > 8 || n + k > 15 || n + k == 0) return false;
    std::uint64_t mantissa;
    if (n + k <= 8) {
        // The digits behind the point take its place, one byte lower, so that one word holds
        // them all; without a point only the first n bytes count, which are the integer's.
        const std::uint64_t before = (std::uint64_t(1) << (4 * n) << (4 * n)) - 1;
        mantissa = digitsValue(
            (eightBytes(p + first) & before) | (eightBytes(p + first + 1) & ~before), n + k);
    } else {
        mantissa = digitsValue(eightBytes(p + first), n) * scales[k] +
                   digitsValue(eightBytes(p + point + 1), k);
    }
    value = static_cast<double>(static_cast<std::int64_t>(mantissa));
    divisor = powers[negative][k];
    return true;
}

// The words that end inside the 64 bytes at `q`, while they are short decimals and there is
// room; `q` moves behind the last one read and its white space, or to the start of a word that
// goes on beyond the bytes or is no short decimal. The next word's place comes from the masks,
// so the reading of one word does not hold up the finding of the next. The divisions come last,
// together: inside the loop their latency would keep the processor from working on several
// words at once.
inline std::size_t windowWords(const char*& q, double* values, std::size_t room) {
    const CharacterMasks m = characterMasks(q);
    double divisors[32]; // a word takes two bytes at least
    std::size_t count = 0;
    unsigned at = 0;
    while (count != room) {
        const std::uint64_t words = ~m.space & (~std::uint64_t(0) << at);
        if (words == 0) {
            at = 64;
            break;
        }
        const unsigned s = unsigned(std::countr_zero(words));
        const std::uint64_t spaces = m.space & (~std::uint64_t(0) << s);
        if (spaces == 0) {
            at = s;
            break;
        }
        const unsigned e = unsigned(std::countr_zero(spaces));
        if (!shortWord(q, s, e, m, values[count], divisors[count])) {
            at = s;
            break;
        }
        ++count;
        at = e + 1;
        if (at == 64) break;
    }
    q += at;
    for (std::size_t i = 0; i < count; ++i) values[i] /= divisors[i];
    return count;
}

} // namespace

std::size_t scanPlainWords(const char*& p, const char* end, double* values, std::size_t room) {
    // Room for what characterMasks and shortWord may look at, so that they need no test of the
    // end.
    constexpr std::ptrdiff_t margin = 80;
    std::size_t count = 0;
    const char* q = p;
    while (count != room) {
        if constexpr (std::endian::native == std::endian::little) {
            if (end - q >= margin) {
                const char* before = q;
                count += windowWords(q, values + count, room - count);
                if (q != before) continue;
            }
        }
        // A word the window could not take: one that is long, unusual, or near the end.
        while (q != end && isXmlSpace(*q)) ++q;
        if (q == end) break;
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
