#include <grafel/document/detail/ZpxIndent.h>

#include <grafel/document/ZpxDialect.h>
#include <grafel/foundation/Tokens.h>

#include <cstddef>
#include <string>
#include <vector>

namespace Grafel::detail {

namespace {

enum class Piece { Start, End, Empty, Other, Text };

/// Where the piece that starts at `at` ends, and what it is.
Piece scan(std::string_view text, std::size_t at, std::size_t& end) {
    if (text[at] != '<') {
        end = text.find('<', at);
        if (end == std::string_view::npos) end = text.size();
        return Piece::Text;
    }
    if (text.compare(at, 4, "<!--") == 0) {
        end = text.find("-->", at);
        end = end == std::string_view::npos ? text.size() : end + 3;
        return Piece::Other;
    }
    // A tag: its end is the first '>' outside quotes.
    char quote = 0;
    for (std::size_t i = at + 1; i < text.size(); ++i) {
        const char c = text[i];
        if (quote) {
            if (c == quote) quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            end = i + 1;
            if (text[at + 1] == '?' || text[at + 1] == '!') return Piece::Other;
            if (text[at + 1] == '/') return Piece::End;
            return text[i - 1] == '/' ? Piece::Empty : Piece::Start;
        }
    }
    end = text.size();
    return Piece::Other;
}

/// The tag name of the start tag at `at`.
std::string tagName(std::string_view text, std::size_t at) {
    std::size_t end = at + 1;
    while (end < text.size() && text[end] != ' ' && text[end] != '>' && text[end] != '/' &&
           text[end] != '\t' && text[end] != '\n' && text[end] != '\r')
        ++end;
    std::string_view name = text.substr(at + 1, end - at - 1);
    if (const std::size_t colon = name.find(':'); colon != std::string_view::npos)
        name.remove_prefix(colon + 1);
    return std::string(name);
}

/// Whether the reader keeps what stands between the tags of an element with this name.
bool keepsText(const std::string& name) {
    switch (zpxTagGroup(getTokenId(name.c_str()))) {
    case ZpxTagGroup::SingleText:
    case ZpxTagGroup::Array:
    case ZpxTagGroup::OptionText:
    case ZpxTagGroup::TextObject:
    case ZpxTagGroup::SequenceItem:
    case ZpxTagGroup::Point2:
    case ZpxTagGroup::Point3:
        return true;
    default:
        return false;
    }
}

} // namespace

std::string indentZpx(std::string_view plain) {
    std::string out;
    out.reserve(plain.size() + plain.size() / 4);
    // For each open element: whether line breaks may go inside it.
    std::vector<bool> breakable;
    auto newLine = [&](std::size_t depth) {
        out += '\n';
        out.append(2 * depth, ' ');
    };
    Piece last = Piece::Text;
    std::size_t at = 0;
    while (at < plain.size()) {
        const std::size_t begin = at;
        const Piece piece = scan(plain, begin, at);
        const std::string_view text = plain.substr(begin, at - begin);
        const bool mayBreak = !breakable.empty() && breakable.back();
        switch (piece) {
        case Piece::Text:
            // Blanks of the writer between elements that keep no text give way to the
            // indentation; any other text stays as it is.
            if (mayBreak && text.find_first_not_of(" \t\r\n") == std::string_view::npos) continue;
            out += text;
            break;
        case Piece::Start:
        case Piece::Empty:
        case Piece::Other:
            if (mayBreak && last != Piece::Text) newLine(breakable.size());
            out += text;
            if (piece == Piece::Start) breakable.push_back(!keepsText(tagName(plain, begin)));
            break;
        case Piece::End:
            // An element without children keeps its tags together.
            if (mayBreak && last != Piece::Text && last != Piece::Start)
                newLine(breakable.size() - 1);
            out += text;
            if (!breakable.empty()) breakable.pop_back();
            break;
        }
        last = piece;
    }
    return out;
}

} // namespace Grafel::detail
