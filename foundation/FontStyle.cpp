#include <grafel/foundation/FontStyle.h>

#include <grafel/foundation/CmdString.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/foundation/WideText.h>
#include <grafel/tessel/FlexBuff.h>

#include <cstdio>
#include <cstring>
#include <ostream>

namespace Grafel {

namespace {

/// Anything up to the space, and every byte from 0x80 up (as a signed char), separates words;
/// a family with non-ASCII letters therefore has to be quoted. The NUL counts too, which ends
/// every scan at the end of the text.
bool isBlank(char c) noexcept {
    return static_cast<signed char>(c) <= 32;
}

/// The family that a generic keyword of the font form stands for, or the family itself.
const char* resolveFamily(const char* family) noexcept {
    if (!std::strcmp(family, "serif")) return "Times New Roman";
    if (!std::strcmp(family, "sans-serif")) return "Arial";
    if (!std::strcmp(family, "monospace")) return "Courier New";
    return family;
}

/// Whether the family has to go out without quotes to read back: it holds an apostrophe, and
/// reads back whole up to the next blank.
/// Every character from U+0080 up is written as bytes from 0x80 up, which separate words.
bool writesBare(const wchar_t* family) noexcept {
    if (!family || !*family || *family == L'\'') return false;
    bool apostrophe = false;
    for (const wchar_t* c = family; *c; ++c) {
        if (*c <= 32 || *c >= 0x80) return false;
        apostrophe |= *c == L'\'';
    }
    return apostrophe;
}

} // namespace

FontStyle::FontStyle()
    : family_(L"Times"), size_(11), italic_(false), color_(RGBA::Black), bold_(false),
      alignment_(getToken(id_Left)) {}

FontStyle::FontStyle(const Tessel::FixedStringBase<wchar_t>& family, unsigned int size, bool italic,
                     bool bold, RGBA color, Arbor::Token alignment) noexcept
    : family_(family), size_(size), italic_(italic), color_(color), bold_(bold),
      alignment_(alignment) {}

const FontStyle& FontStyle::standard() {
    static const FontStyle instance;
    return instance;
}

bool FontStyle::parse(const char* text) {
    size_ = 0;
    italic_ = false;
    bold_ = false;
    color_ = RGBA::Black;
    alignment_ = getToken(id_Left);
    if (!text) return false;

    // The words are cut out of a copy by writing NULs behind them, which also keeps every later
    // scan (sscanf among them) within one word.
    const size_t length = std::strlen(text);
    Tessel::FlexBuff<char> copy;
    copy.reserve(length + 1);
    std::memcpy(copy.data(), text, length + 1);
    char* p = copy.data();

    while (*p && isBlank(*p)) ++p;
    if (!*p) return false;

    // A family must be followed by something: a family alone, or an open quote, is no font.
    const char* family;
    if (*p == '\'') {
        family = ++p;
        p = std::strchr(p, '\'');
        if (!p || !p[1]) return false;
    } else {
        family = p;
        while (!isBlank(*p)) ++p;
        if (!*p) return false;
    }
    *p++ = 0;
    family_ = utf8ToFixedMString(resolveFamily(family));

    // A word that ends on a blank is always followed by another, so a trailing blank yields an
    // empty last word, which no rule accepts.
    for (;;) {
        while (*p && isBlank(*p)) ++p;
        char* word = p;
        while (!isBlank(*p)) ++p;
        const bool last = !*p;
        *p = 0;
        if (!readWord(word)) return false;
        if (last) break;
        ++p;
    }
    return size_ != 0;
}

bool FontStyle::readWord(const char* word) {
    if (word[0] == '#') return color_.parse(word);
    if (word[0] >= '0' && word[0] <= '9') {
        long size = 0;
        std::sscanf(word, "%ld", &size);
        if (size < 1) return false;
        size_ = static_cast<unsigned int>(size);
        return true;
    }
    if (!std::strcmp(word, "Bold")) {
        bold_ = true;
        return true;
    }
    if (!std::strcmp(word, "Italic")) {
        italic_ = true;
        return true;
    }
    // The three tokens are fetched first: that interns them, so find(), which never interns,
    // knows them even when it runs before the token constants are set up.
    const Arbor::Token left = getToken(id_Left);
    const Arbor::Token center = getToken(id_Center);
    const Arbor::Token right = getToken(id_Right);
    const Arbor::Token alignment = Arbor::Token::find(word);
    if (alignment != left && alignment != center && alignment != right) return false;
    alignment_ = alignment;
    return true;
}

bool operator==(const FontStyle& a, const FontStyle& b) noexcept {
    return a.size_ == b.size_ && a.italic_ == b.italic_ && a.bold_ == b.bold_ &&
           a.color_ == b.color_ && a.alignment_ == b.alignment_ && a.family_ == b.family_;
}

bool operator<(const FontStyle& a, const FontStyle& b) noexcept {
    if (a.family_ < b.family_) return true;
    if (b.family_ < a.family_) return false;
    if (a.size_ != b.size_) return a.size_ < b.size_;
    if (a.italic_ != b.italic_) return b.italic_;
    if (a.bold_ != b.bold_) return b.bold_;
    if (a.color_ != b.color_) return a.color_ < b.color_;
    return a.alignment_ < b.alignment_;
}

std::ostream& operator<<(std::ostream& out, const FontStyle& font) {
    // The quoted family ends at the first apostrophe, so a family holding one goes out bare,
    // which the reader takes up to the next blank. A family with an apostrophe and a blank (or
    // a non-ASCII letter, or one that starts with the apostrophe) fits neither form: it is
    // written quoted and does not read back.
    if (writesBare(font.family().text())) {
        putCData(out, font.family());
        out << ' ';
    } else {
        out << '\'';
        putCData(out, font.family());
        out << "' ";
    }
    out << font.size();
    if (font.italic()) out << " Italic";
    if (font.bold()) out << " Bold";
    return out << ' ' << font.color() << ' ' << font.alignment();
}

std::ostream& putXmlValue(std::ostream& out, const FontStyle& font) {
    return out << font;
}

std::ostream& putCmdValue(std::ostream& out, const FontStyle& font) {
    out << "[\"";
    putCmdString(out, font.family().c_str());
    out << "\"," << font.size();
    // Bold before Italic here, the reverse of the XML form.
    if (font.bold()) out << ",Bold";
    if (font.italic()) out << ",Italic";
    out << ',';
    putCmdValue(out, font.color());
    return out << ',' << font.alignment() << ']';
}

bool parseValue(const char* text, FontStyle& out) {
    FontStyle font(out); // a copy shares the family, so it costs no allocation
    if (!font.parse(text)) return false;
    out = font;
    return true;
}

} // namespace Grafel
