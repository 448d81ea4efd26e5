// Conversion between UTF-8 and wide text. Wide text is UTF-32 here (wchar_t has 32 bits); the
// "utf16" in the names is historical and means the wide form.
#pragma once

#include <grafel/tessel/FlexBuff.h>

#include <cstdint>

namespace Tessel {

/// Code point that stands in for anything that cannot be decoded or represented.
inline constexpr char32_t replacementCharacter = 0xFFFD;

/// Decodes one code point of UTF-8 at `p` (which must be before `end`) and advances `p`. A
/// malformed sequence (overlong form, surrogate, beyond U+10FFFF, truncated, stray continuation
/// byte) yields -1 and advances over its maximal subpart, so that every malformed subpart stands
/// for exactly one replacement character.
inline std::int32_t decodeUtf8(const unsigned char*& p, const unsigned char* end) noexcept {
    const unsigned lead = *p++;
    if (lead < 0x80) return static_cast<std::int32_t>(lead);
    // The range of the first continuation byte rules out overlong forms, surrogates and values
    // beyond U+10FFFF.
    unsigned low = 0x80;
    unsigned high = 0xBF;
    int count; // continuation bytes that must follow
    std::uint32_t value;
    if (lead < 0xC2) {
        return -1; // a continuation byte, or the lead of an overlong two-byte form
    } else if (lead < 0xE0) {
        count = 1;
        value = lead & 0x1F;
    } else if (lead < 0xF0) {
        count = 2;
        value = lead & 0x0F;
        if (lead == 0xE0) low = 0xA0;
        if (lead == 0xED) high = 0x9F;
    } else if (lead < 0xF5) {
        count = 3;
        value = lead & 0x07;
        if (lead == 0xF0) low = 0x90;
        if (lead == 0xF4) high = 0x8F;
    } else {
        return -1;
    }
    for (int i = 0; i < count; ++i) {
        if (p == end || *p < low || *p > high) return -1;
        value = (value << 6) | (*p++ & 0x3F);
        low = 0x80;
        high = 0xBF;
    }
    return static_cast<std::int32_t>(value);
}

/// Whether a wide unit is a Unicode scalar value (not a surrogate, not beyond U+10FFFF).
inline constexpr bool isScalarValue(wchar_t c) noexcept {
    const auto u = static_cast<std::uint32_t>(c);
    return u < 0xD800 || (u >= 0xE000 && u <= 0x10FFFF);
}

/// Converts UTF-8 into wide text in `out`, NUL-terminated, and returns the number of wide units
/// written without the NUL. A negative `length` reads up to the NUL of `text`; a null `text` is
/// the empty text. Each malformed subpart becomes U+FFFD. Throws only std::bad_alloc.
long utf8ToUtf16(const char* text, long length, FlexBuff<wchar_t>& out);

/// Converts wide text into UTF-8 in `out`, NUL-terminated, and returns the number of bytes
/// written without the NUL. A negative `length` reads up to the NUL of `text`; a null `text` is
/// the empty text. Surrogates and units beyond U+10FFFF become U+FFFD. Throws only
/// std::bad_alloc.
long utf16ToUtf8(const wchar_t* text, long length, FlexBuff<char>& out);

/// The length in bytes of the longest well-formed UTF-8 prefix of the `length` bytes at `text`.
long validUtf8Length(const char* text, long length) noexcept;

/// The number of leading units of the `length` wide units at `text` that are scalar values.
long validUtf32Length(const wchar_t* text, long length) noexcept;

} // namespace Tessel
