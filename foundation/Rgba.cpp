#include <grafel/foundation/Rgba.h>

#include <grafel/foundation/TextRun.h>

#include <ostream>

namespace Grafel {

namespace {

/// The value of an ASCII hexadecimal digit, -1 for any other unit (the NUL among them, so the
/// reader never looks past the end of the text).
template <class C> int hexValue(C c) noexcept {
    if (c >= C('0') && c <= C('9')) return static_cast<int>(c - C('0'));
    if (c >= C('a') && c <= C('f')) return static_cast<int>(c - C('a')) + 10;
    if (c >= C('A') && c <= C('F')) return static_cast<int>(c - C('A')) + 10;
    return -1;
}

template <class C> bool isSpace(C c) noexcept {
    return c == C(' ') || c == C('\t') || c == C('\n') || c == C('\r');
}

} // namespace

template <class C> bool RGBA::parseText(const C* text) noexcept {
    if (!text) return false;
    while (isSpace(*text)) ++text;
    if (*text == C('#')) ++text;
    long word = 0;
    for (int pair = 0; pair < 3; ++pair) {
        const int high = hexValue(text[0]);
        if (high < 0) return false;
        const int low = hexValue(text[1]);
        if (low < 0) return false;
        word = word << 8 | (high << 4 | low);
        text += 2;
    }
    long alpha = 255;
    if (const int high = hexValue(text[0]); high >= 0) {
        const int low = hexValue(text[1]);
        if (low < 0) return false;
        alpha = high << 4 | low;
    }
    *this = fromLong(alpha << 24 | word);
    return true;
}

bool RGBA::parse(const char* text) noexcept {
    return parseText(text);
}

bool RGBA::parse(const wchar_t* text) noexcept {
    return parseText(text);
}

char* formatColour(char* first, RGBA colour) noexcept {
    static constexpr char digits[] = "0123456789abcdef";
    auto pair = [&](unsigned long byte) {
        *first++ = digits[byte >> 4];
        *first++ = digits[byte & 0xF];
    };
    *first++ = '#';
    pair(colour.red());
    pair(colour.green());
    pair(colour.blue());
    if (colour.alpha() != 255) pair(colour.alpha());
    return first;
}

std::ostream& operator<<(std::ostream& out, RGBA colour) {
    char text[10];
    *formatColour(text, colour) = 0;
    // One formatted write, so that a field width applies to the colour as a whole.
    return out << text;
}

std::ostream& putXmlValue(std::ostream& out, RGBA colour) {
    return out << colour;
}

std::ostream& putCmdValue(std::ostream& out, RGBA colour) {
    TextRun run(out);
    putCmdForm(run, colour);
    run.flush();
    return out;
}

} // namespace Grafel
