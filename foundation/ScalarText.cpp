#include <grafel/foundation/ScalarText.h>

#include <grafel/foundation/CmdString.h>
#include <grafel/foundation/NumberFormat.h>
#include <grafel/foundation/WideText.h>

#include <cstdio>
#include <cstring>
#include <ostream>
#include <string_view>

namespace Grafel {

namespace {

/// Whether `text` is `word` alone or `word` followed by a space.
bool isWord(const char* text, std::string_view word) noexcept {
    return !std::strncmp(text, word.data(), word.size()) &&
           (text[word.size()] == 0 || text[word.size()] == ' ');
}

bool isTokenSpace(char c) noexcept {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

} // namespace

bool parseValue(const char* text, double& out) {
    double value;
    if (!text || std::sscanf(text, " %lf ", &value) != 1) return false;
    out = value;
    return true;
}

bool parseValue(const char* text, long& out) {
    long value;
    if (!text || std::sscanf(text, " %ld ", &value) != 1) return false;
    out = value;
    return true;
}

bool parseValue(const char* text, bool& out) {
    if (!text) return false;
    while (*text == ' ') ++text;
    if (isWord(text, "1") || isWord(text, "true")) {
        out = true;
        return true;
    }
    if (isWord(text, "0") || isWord(text, "false")) {
        out = false;
        return true;
    }
    return false;
}

bool parseValue(const char* text, Arbor::Token& out) {
    if (!text) return false;
    while (isTokenSpace(*text)) ++text;
    const char* end = text;
    while (*end && !isTokenSpace(*end)) ++end;
    if (end == text) return false;
    out = Arbor::Token(std::string_view(text, static_cast<size_t>(end - text)));
    return true;
}

std::ostream& putXmlValue(std::ostream& out, double value) {
    return putNumber(out, value);
}

std::ostream& putXmlValue(std::ostream& out, long value) {
    return out << value;
}

std::ostream& putXmlValue(std::ostream& out, bool value) {
    return out << (value ? '1' : '0');
}

std::ostream& putXmlValue(std::ostream& out, Arbor::Token value) {
    // A token read from a file can hold any character, so it is escaped like every other text.
    return Tessel::putCData(out, value.text());
}

std::ostream& putXmlValue(std::ostream& out, const Tessel::FixedStringBase<char>& value) {
    return Tessel::putCData(out, value.text());
}

std::ostream& putXmlValue(std::ostream& out, const Tessel::FixedStringBase<wchar_t>& value) {
    return putCData(out, value);
}

std::ostream& putCmdValue(std::ostream& out, double value) {
    return putNumber(out, value);
}

std::ostream& putCmdValue(std::ostream& out, long value) {
    return out << value;
}

std::ostream& putCmdValue(std::ostream& out, bool value) {
    return out << (value ? "TRUE" : "FALSE");
}

std::ostream& putCmdValue(std::ostream& out, Arbor::Token value) {
    return out << value;
}

std::ostream& putCmdValue(std::ostream& out, const Tessel::FixedStringBase<char>& value) {
    return out << '"' << value.text() << '"';
}

std::ostream& putCmdValue(std::ostream& out, const Tessel::FixedStringBase<wchar_t>& value) {
    out << '"';
    putCmdString(out, value.c_str());
    return out << '"';
}

} // namespace Grafel
