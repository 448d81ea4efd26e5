#include <grafel/tessel/CData.h>

#include <grafel/tessel/Utf.h>

#include <array>
#include <cstring>
#include <ostream>

namespace Tessel {
namespace {

constexpr char replacementUtf8[] = "\xEF\xBF\xBD";

// What an ASCII character needs: nothing (null), or the text that stands for it.
constexpr std::array<const char*, 128> makeEscapes() {
    std::array<const char*, 128> escapes{};
    escapes[0] = ""; // the end of the text, caught before it is written
    for (int c = 1; c < 0x20; ++c) escapes[c] = replacementUtf8;
    escapes['\t'] = "&#9;";
    escapes['\n'] = "&#10;";
    escapes['\r'] = "&#13;";
    escapes['&'] = "&amp;";
    escapes['<'] = "&lt;";
    escapes['>'] = "&gt;";
    escapes['"'] = "&quot;";
    return escapes;
}

constexpr std::array<const char*, 128> escapes = makeEscapes();

// Characters that XML 1.0 allows in no form at all.
inline bool isForbidden(std::uint32_t c) {
    return c == 0xFFFE || c == 0xFFFF || !isScalarValue(static_cast<wchar_t>(c));
}

inline void put(std::ostream& out, const char* text) {
    out.write(text, static_cast<std::streamsize>(std::strlen(text)));
}

} // namespace

std::ostream& putCData(std::ostream& out, const char* text) {
    if (!text) return out;
    const auto* p = reinterpret_cast<const unsigned char*>(text);
    const unsigned char* run = p; // start of the characters not yet written
    auto flush = [&](const unsigned char* to) {
        if (to != run)
            out.write(reinterpret_cast<const char*>(run), static_cast<std::streamsize>(to - run));
    };
    for (;;) {
        const unsigned c = *p;
        if (c < 0x80) {
            if (!escapes[c]) {
                ++p;
                continue;
            }
            if (c == 0) break;
            flush(p);
            put(out, escapes[c]);
            run = ++p;
            continue;
        }
        const unsigned char* start = p;
        // No end is needed: decoding stops at the terminating NUL, which is no continuation byte.
        const std::int32_t code = decodeUtf8(p, nullptr);
        if (code >= 0 && !isForbidden(static_cast<std::uint32_t>(code))) continue;
        flush(start);
        put(out, replacementUtf8);
        run = p;
    }
    flush(p);
    return out;
}

std::ostream& putCData(std::ostream& out, const wchar_t* text) {
    if (!text) return out;
    // The UTF-8 form is made in a local block and written a block at a time.
    char block[4096];
    constexpr size_t room = sizeof block - 8; // the longest piece is "&quot;"
    size_t used = 0;
    for (; *text; ++text) {
        if (used > room) {
            out.write(block, static_cast<std::streamsize>(used));
            used = 0;
        }
        const auto c = static_cast<std::uint32_t>(*text);
        if (c < 0x80) {
            if (const char* escape = escapes[c]) {
                const size_t n = std::strlen(escape);
                std::memcpy(block + used, escape, n);
                used += n;
            } else {
                block[used++] = static_cast<char>(c);
            }
            continue;
        }
        const std::uint32_t u = isForbidden(c) ? replacementCharacter : c;
        if (u < 0x800) {
            block[used++] = static_cast<char>(0xC0 | (u >> 6));
        } else if (u < 0x10000) {
            block[used++] = static_cast<char>(0xE0 | (u >> 12));
            block[used++] = static_cast<char>(0x80 | ((u >> 6) & 0x3F));
        } else {
            block[used++] = static_cast<char>(0xF0 | (u >> 18));
            block[used++] = static_cast<char>(0x80 | ((u >> 12) & 0x3F));
            block[used++] = static_cast<char>(0x80 | ((u >> 6) & 0x3F));
        }
        block[used++] = static_cast<char>(0x80 | (u & 0x3F));
    }
    if (used) out.write(block, static_cast<std::streamsize>(used));
    return out;
}

} // namespace Tessel
