// A colour as the one word 0xAARRGGBB, the form in which the document stores, compares and
// orders colours, and its text forms: "#rrggbb[aa]" in XML, "[r,g,b(,a)]" in command text.
#pragma once

#include <cstdint>
#include <iosfwd>

namespace Grafel {

/// Blue in bits 0 to 7, green in 8 to 15, red in 16 to 23, alpha (255 is opaque) in 24 to 31.
class RGBA {
public:
    /// Opaque black.
    constexpr RGBA() noexcept : word_(0xFF000000u) {}
    /// A grey: red, green and blue all take the low byte of `grey`.
    constexpr RGBA(unsigned long grey, unsigned long alpha) noexcept
        : RGBA(grey, grey, grey, alpha) {}
    /// Red, green and blue are cut to their low bytes; alpha is shifted into the top byte.
    constexpr RGBA(unsigned long red, unsigned long green, unsigned long blue,
                   unsigned long alpha) noexcept
        : word_(static_cast<std::uint32_t>(alpha << 24 | (red & 0xFF) << 16 | (green & 0xFF) << 8 |
                                           (blue & 0xFF))) {}

    /// Opaque black, 0xFF000000.
    static const RGBA Black;
    /// Opaque white, 0xFFFFFFFF.
    static const RGBA White;

    constexpr unsigned long red() const noexcept { return word_ >> 16 & 0xFF; }
    constexpr unsigned long green() const noexcept { return word_ >> 8 & 0xFF; }
    constexpr unsigned long blue() const noexcept { return word_ & 0xFF; }
    constexpr unsigned long alpha() const noexcept { return word_ >> 24; }
    /// The word 0xAARRGGBB.
    constexpr std::uint32_t word() const noexcept { return word_; }

    /// Each setter replaces its byte by the low byte of the argument.
    void setRed(unsigned long red) noexcept { setByte(16, red); }
    void setGreen(unsigned long green) noexcept { setByte(8, green); }
    void setBlue(unsigned long blue) noexcept { setByte(0, blue); }
    void setAlpha(unsigned long alpha) noexcept { setByte(24, alpha); }

    /// Reads "#rrggbb" or "#rrggbbaa" after leading blanks, tabs, line feeds and carriage
    /// returns; the "#" is optional, digits are of either case, and a missing alpha pair means
    /// 255. Whatever follows the last pair is ignored. On failure (and for a null text) the colour
    /// stays as it was and the answer is false.
    bool parse(const char* text) noexcept;
    /// The same for wide text; only ASCII hexadecimal digits count as digits.
    bool parse(const wchar_t* text) noexcept;

    friend constexpr bool operator==(RGBA a, RGBA b) noexcept { return a.word_ == b.word_; }
    friend constexpr bool operator!=(RGBA a, RGBA b) noexcept { return a.word_ != b.word_; }
    /// Orders by the word as an unsigned number, so alpha counts first.
    friend constexpr bool operator<(RGBA a, RGBA b) noexcept { return a.word_ < b.word_; }

private:
    /// Reinterprets the low 32 bits of a word as a colour.
    static constexpr RGBA fromLong(long word) noexcept {
        RGBA colour;
        colour.word_ = static_cast<std::uint32_t>(word);
        return colour;
    }
    template <class C> bool parseText(const C* text) noexcept;

    constexpr void setByte(int shift, unsigned long value) noexcept {
        word_ = (word_ & ~(0xFFu << shift)) | static_cast<std::uint32_t>((value & 0xFF) << shift);
    }

    std::uint32_t word_;
};

inline constexpr RGBA RGBA::Black{0, 0, 0, 255};
inline constexpr RGBA RGBA::White{255, 255, 255, 255};

/// The XML form: "#" and the red, green and blue pairs in lower case, then the alpha pair only
/// when alpha is not 255. White reads "#ffffff".
std::ostream& operator<<(std::ostream& out, RGBA colour);
/// The XML form written at `first`, which has room for 9 characters; answers its end.
char* formatColour(char* first, RGBA colour) noexcept;

/// Writes the XML attribute form, as operator<<.
std::ostream& putXmlValue(std::ostream& out, RGBA colour);
/// Writes the command form: "[r,g,b]", or "[r,g,b,a]" when alpha is below 255, each component
/// as its byte divided by 255.0 in the stream's default number format.
std::ostream& putCmdValue(std::ostream& out, RGBA colour);
/// The command form written to anything that takes characters and doubles with <<, such as a
/// TextRun or a CmdOStream.
template <class Out> Out& putCmdForm(Out& out, RGBA colour) {
    out << '[' << colour.red() / 255.0 << ',' << colour.green() / 255.0 << ','
        << colour.blue() / 255.0;
    if (colour.alpha() < 255) out << ',' << colour.alpha() / 255.0;
    return out << ']';
}

/// RGBA::parse in the shape of the other value readers.
inline bool parseValue(const char* text, RGBA& out) noexcept {
    return out.parse(text);
}

} // namespace Grafel
