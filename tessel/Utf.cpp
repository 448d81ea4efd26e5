#include <grafel/tessel/Utf.h>

#include <cstring>
#include <cwchar>

namespace Tessel {
namespace {

constexpr std::uint64_t highBits = 0x8080808080808080ull;

// Texts are mostly ASCII, so eight bytes are tested at once and copied without decoding.
inline bool eightAscii(const unsigned char* p) noexcept {
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return (word & highBits) == 0;
}

// Bytes that the UTF-8 form of a wide unit takes; invalid units take those of U+FFFD. Written
// without branches so that the measuring loop vectorises.
inline long utf8Size(wchar_t c) noexcept {
    const auto u = static_cast<std::uint32_t>(c);
    return 1 + (u >= 0x80) + (u >= 0x800) + (u >= 0x10000) - (u > 0x10FFFF);
}

inline char* encodeUtf8(std::uint32_t u, char* out) noexcept {
    if (u < 0x80) {
        *out++ = static_cast<char>(u);
    } else if (u < 0x800) {
        *out++ = static_cast<char>(0xC0 | (u >> 6));
        *out++ = static_cast<char>(0x80 | (u & 0x3F));
    } else if (u < 0x10000) {
        *out++ = static_cast<char>(0xE0 | (u >> 12));
        *out++ = static_cast<char>(0x80 | ((u >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (u & 0x3F));
    } else {
        *out++ = static_cast<char>(0xF0 | (u >> 18));
        *out++ = static_cast<char>(0x80 | ((u >> 12) & 0x3F));
        *out++ = static_cast<char>(0x80 | ((u >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (u & 0x3F));
    }
    return out;
}

} // namespace

long utf8ToUtf16(const char* text, long length, FlexBuff<wchar_t>& out) {
    if (!text)
        length = 0;
    else if (length < 0)
        length = static_cast<long>(std::strlen(text));
    // Every byte yields at most one unit, so the input length bounds the output.
    out.reserve(static_cast<size_t>(length) + 1);
    wchar_t* w = out.data();
    const auto* p = reinterpret_cast<const unsigned char*>(text);
    const auto* end = p + length;
    while (p != end) {
        while (end - p >= 8 && eightAscii(p)) {
            for (int i = 0; i < 8; ++i) w[i] = static_cast<wchar_t>(p[i]);
            w += 8;
            p += 8;
        }
        while (p != end && *p < 0x80) *w++ = static_cast<wchar_t>(*p++);
        if (p == end) break;
        const std::int32_t c = decodeUtf8(p, end);
        *w++ = static_cast<wchar_t>(c < 0 ? replacementCharacter : static_cast<char32_t>(c));
    }
    *w = 0;
    return static_cast<long>(w - out.data());
}

long utf16ToUtf8(const wchar_t* text, long length, FlexBuff<char>& out) {
    if (!text)
        length = 0;
    else if (length < 0)
        length = static_cast<long>(std::wcslen(text));
    // Measuring first allocates exactly what is needed, where the worst case would be four
    // times the input; the pass is cheap next to the encoding.
    long size = 0;
    for (long i = 0; i < length; ++i) size += utf8Size(text[i]);
    out.reserve(static_cast<size_t>(size) + 1);
    char* o = out.data();
    if (size == length) { // all ASCII
        for (long i = 0; i < length; ++i) o[i] = static_cast<char>(text[i]);
        o += length;
    } else {
        for (long i = 0; i < length; ++i) {
            const auto u = static_cast<std::uint32_t>(text[i]);
            if (u < 0x80) {
                *o++ = static_cast<char>(u);
            } else {
                o = encodeUtf8(isScalarValue(text[i]) ? u : replacementCharacter, o);
            }
        }
    }
    *o = 0;
    return static_cast<long>(o - out.data());
}

long validUtf8Length(const char* text, long length) noexcept {
    if (!text || length <= 0) return 0;
    const auto* begin = reinterpret_cast<const unsigned char*>(text);
    const auto* p = begin;
    const auto* end = begin + length;
    while (p != end) {
        while (end - p >= 8 && eightAscii(p)) p += 8;
        while (p != end && *p < 0x80) ++p;
        if (p == end) break;
        const auto* start = p;
        if (decodeUtf8(p, end) < 0) return static_cast<long>(start - begin);
    }
    return length;
}

long validUtf32Length(const wchar_t* text, long length) noexcept {
    if (!text || length <= 0) return 0;
    for (long i = 0; i < length; ++i)
        if (!isScalarValue(text[i])) return i;
    return length;
}

} // namespace Tessel
