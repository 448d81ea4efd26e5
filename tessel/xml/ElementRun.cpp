#include <grafel/tessel/xml/ElementRun.h>

#include <array>

namespace Tessel::Xml {
namespace {

// The bytes a run's text may hold: those that stand for themselves in character data, in any
// encoding the parser takes that extends ASCII, and keep the line and column count simple.
constexpr std::array<bool, 256> plainBytes = [] {
    std::array<bool, 256> table{};
    for (int c = 0x20; c < 0x7f; ++c) table[c] = true;
    table['<'] = table['&'] = table[']'] = false;
    table['\t'] = table['\n'] = true;
    return table;
}();

// Names are short: a call of memcmp would cost more than the comparison.
inline bool sameBytes(const char* a, const char* b, std::size_t n) noexcept {
    for (std::size_t i = 0; i < n; ++i)
        if (a[i] != b[i]) return false;
    return true;
}

} // namespace

bool ElementRun::next(std::string_view& text) noexcept {
    const std::size_t n = name_.size();
    const char* p = at_;
    // "<name>" and at least "</name>" behind it.
    if (static_cast<std::size_t>(end_ - p) < 2 * n + 5 || p[0] != '<' ||
        !sameBytes(p + 1, name_.data(), n) || p[n + 1] != '>')
        return false;
    const char* start = p + n + 2;
    const char* q = start;
    while (q != end_ && plainBytes[static_cast<unsigned char>(*q)]) ++q;
    if (static_cast<std::size_t>(end_ - q) < n + 3 || q[0] != '<' || q[1] != '/' ||
        !sameBytes(q + 2, name_.data(), n) || q[n + 2] != '>')
        return false;
    text = std::string_view(start, static_cast<std::size_t>(q - start));
    endTag_ = q;
    at_ = q + n + 3;
    return true;
}

} // namespace Tessel::Xml
