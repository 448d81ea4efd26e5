// A font as the document states it: family, size in points, italic, bold, colour and horizontal
// alignment; with its XML form "'Times' 11 #000000 Left" and its command form.
#pragma once

#include <grafel/arbor/Token.h>
#include <grafel/foundation/Rgba.h>
#include <grafel/tessel/FixedString.h>

#include <iosfwd>

namespace Grafel {

class FontStyle {
public:
    /// Times, 11 pt, upright, regular, opaque black, Left.
    FontStyle();
    FontStyle(const Tessel::FixedStringBase<wchar_t>& family, unsigned int size, bool italic,
              bool bold, RGBA color, Arbor::Token alignment) noexcept;
    FontStyle(const FontStyle&) noexcept = default;
    FontStyle& operator=(const FontStyle&) noexcept = default;

    const Tessel::FixedStringBase<wchar_t>& family() const noexcept { return family_; }
    /// In points.
    unsigned int size() const noexcept { return size_; }
    bool italic() const noexcept { return italic_; }
    bool bold() const noexcept { return bold_; }
    RGBA color() const noexcept { return color_; }
    /// Left, Center or Right.
    Arbor::Token alignment() const noexcept { return alignment_; }

    /// The defaults of the default constructor, made once on first use.
    static const FontStyle& standard();

    /// Reads the XML form: the family (quoted with ' when it holds blanks or non-ASCII bytes;
    /// "serif", "sans-serif" and "monospace" stand for Times New Roman, Arial and Courier New),
    /// then in any order a size, "#" and a colour, "Bold", "Italic" and Left, Center or Right,
    /// separated by blanks. Size, style, colour and alignment are reset first and the size is
    /// required. A failure may leave some fields read and others reset; callers drop the value.
    bool parse(const char* text);

    /// All six fields equal, the family by its text.
    friend bool operator==(const FontStyle& a, const FontStyle& b) noexcept;
    friend bool operator!=(const FontStyle& a, const FontStyle& b) noexcept { return !(a == b); }
    /// By family text (the null family first), size, italic, bold, colour word, and the
    /// alignment token's word.
    friend bool operator<(const FontStyle& a, const FontStyle& b) noexcept;

private:
    bool readWord(const char* word);

    Tessel::FixedStringBase<wchar_t> family_;
    unsigned int size_;
    bool italic_;
    RGBA color_;
    bool bold_;
    Arbor::Token alignment_;
};

/// The XML form: the family in single quotes (XML-escaped), the size, " Italic" and " Bold" when
/// set, the colour and the alignment, separated by single blanks. The default font reads
/// 'Times' 11 #000000 Left.
std::ostream& operator<<(std::ostream& out, const FontStyle& font);

/// Writes the XML attribute form, as operator<<.
std::ostream& putXmlValue(std::ostream& out, const FontStyle& font);
/// Writes the command form ["family",size(,Bold)(,Italic),[r,g,b],Alignment].
std::ostream& putCmdValue(std::ostream& out, const FontStyle& font);

/// FontStyle::parse that writes `out` only on success.
bool parseValue(const char* text, FontStyle& out);

} // namespace Grafel
