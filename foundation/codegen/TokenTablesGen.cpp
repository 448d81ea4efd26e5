// Build-time tool: turns the token catalogue (foundation/tokens.txt) into the public header
// <grafel/foundation/Tokens.h> and the source that holds the tokens, the lazy getters, the tok_
// constants and the perfect hash of getTokenId.
//
// Usage: grafel_tokgen CATALOGUE OUT_HEADER OUT_SOURCE
//
// The output depends on nothing but the catalogue: the hash search is deterministic, and an
// output file is rewritten only when its text changes, so that a rebuild stays incremental.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace {

// The shape of the catalogue and of its hash. The runtime code below is emitted with the same
// numbers, so they are stated once, here.
constexpr std::size_t catalogueSize = 530;
constexpr std::size_t minLength = 2;
constexpr std::size_t maxLength = 25;
constexpr unsigned maxHash = 1844;
// Each text gets a row of this many bytes in the generated text array, NUL padding included.
constexpr std::size_t rowSize = 32;
static_assert(maxLength < rowSize && rowSize % 8 == 0);
constexpr std::array<std::size_t, 16> hashedPlaces = {0, 1, 2,  3,  4,  5,  6,  7,
                                                      8, 9, 10, 11, 13, 14, 16, 21};

// The two constants outside the catalogue: their names and their texts.
struct ExtraToken {
    const char* name;
    const char* text;
};
constexpr std::array<ExtraToken, 2> extraTokens = {{
    {"tok_AfterPropertyChange", "AfterPropertyChange"},
    {"err_MarginTooLarge", "err_MarginTooLarge"},
}};
static_assert(std::all_of(extraTokens.begin(), extraTokens.end(), [](const ExtraToken& extra) {
    return std::char_traits<char>::length(extra.text) < rowSize;
}));

using Weights = std::array<std::uint16_t, 256>;

// ---------------------------------------------------------------------------------------------
// Reading and checking the catalogue

bool isIdentifier(const std::string& text) {
    auto letter = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
    };
    auto digit = [](char c) { return c >= '0' && c <= '9'; };
    if (text.empty() || !letter(text[0])) return false;
    return std::all_of(text.begin(), text.end(), [&](char c) { return letter(c) || digit(c); });
}

// Reads the texts, one a line, skipping '#' comment lines. Every fault is reported with its
// line, so that one run shows all of them.
std::optional<std::vector<std::string>> readCatalogue(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "grafel_tokgen: cannot read %s\n", path.c_str());
        return std::nullopt;
    }
    std::vector<std::string> texts;
    std::vector<int> lineOf;
    bool ok = true;
    auto fail = [&](int line, const std::string& message) {
        std::fprintf(stderr, "%s:%d: error: %s\n", path.c_str(), line, message.c_str());
        ok = false;
    };
    std::string text;
    for (int line = 1; std::getline(in, text); ++line) {
        if (!text.empty() && text[0] == '#') continue;
        if (text.empty()) {
            fail(line, "empty line; every line but a '#' comment is a token text");
            continue;
        }
        if (!isIdentifier(text)) {
            fail(line, "'" + text + "' is not an ASCII identifier (letters, digits, '_')");
            continue;
        }
        if (text.size() < minLength || text.size() > maxLength) {
            fail(line, "'" + text + "' has length " + std::to_string(text.size()) +
                           "; a text has " + std::to_string(minLength) + " to " +
                           std::to_string(maxLength) + " characters");
            continue;
        }
        if (!texts.empty() && text == texts.back()) {
            fail(line, "'" + text + "' repeats line " + std::to_string(lineOf.back()));
            continue;
        }
        if (!texts.empty() && text < texts.back()) // std::string compares as unsigned bytes
            fail(line, "'" + text + "' must not come after '" + texts.back() + "' (line " +
                           std::to_string(lineOf.back()) + "): the texts ascend in byte order");
        texts.push_back(text);
        lineOf.push_back(line);
    }
    for (const ExtraToken& extra : extraTokens)
        if (std::find(texts.begin(), texts.end(), extra.text) != texts.end()) {
            std::fprintf(stderr, "%s: error: '%s' is reserved for a token outside the catalogue\n",
                         path.c_str(), extra.text);
            ok = false;
        }
    if (texts.size() != catalogueSize) {
        std::fprintf(stderr, "%s: error: %zu texts found, the catalogue has %zu\n", path.c_str(),
                     texts.size(), catalogueSize);
        ok = false;
    }
    if (!ok) return std::nullopt;
    return texts;
}

// ---------------------------------------------------------------------------------------------
// The hash and the search for its weights

// How often each byte counts in a text's hash: once per hashed place it stands at, and once
// more for the last character.
std::array<std::uint8_t, 256> hashCounts(const std::string& text) {
    std::array<std::uint8_t, 256> counts{};
    for (std::size_t place : hashedPlaces)
        if (place < text.size()) ++counts[static_cast<unsigned char>(text[place])];
    ++counts[static_cast<unsigned char>(text.back())];
    return counts;
}

unsigned hashOf(const std::string& text, const Weights& weights) {
    unsigned hash = static_cast<unsigned>(text.size());
    const auto counts = hashCounts(text);
    for (unsigned c = 0; c < 256; ++c) hash += counts[c] * unsigned(weights[c]);
    return hash;
}

// A fixed-seed generator, so that a search run gives the same weights on every machine and
// with every standard library.
class SplitMix {
public:
    explicit SplitMix(std::uint64_t seed) : state_(seed) {}
    std::uint64_t next() {
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    std::size_t below(std::size_t n) { return static_cast<std::size_t>(next() % n); }

private:
    std::uint64_t state_;
};

// Fixes the weights one byte at a time in `order`, each to the smallest value that keeps the
// hashes apart wherever they must differ. Two texts that count the bytes still to come equally
// often gain the same from them, so their partial hashes have to differ already; texts that
// differ in a later byte are left to that byte. Each pair thus forbids at most one value, and
// small values keep the hashes dense. Fails when the hashes end above maxHash.
std::optional<Weights> fixWeights(const std::vector<std::array<std::uint8_t, 256>>& counts,
                                  const std::vector<std::size_t>& lengths,
                                  const std::vector<unsigned char>& order) {
    const std::size_t n = counts.size(), m = order.size();

    // classAt[j][k]: the class of text k after step j, that is, of its counts of the bytes
    // order[j+1..]. Built from the last step back, as the rank of (class after the next step,
    // count of the next byte).
    std::vector<std::vector<std::size_t>> classAt(m, std::vector<std::size_t>(n, 0));
    for (std::size_t j = m - 1; j-- > 0;) {
        const unsigned char next = order[j + 1];
        std::vector<std::pair<std::size_t, std::size_t>> keyOf(n);
        for (std::size_t k = 0; k < n; ++k) keyOf[k] = {classAt[j + 1][k], counts[k][next]};
        std::vector<std::pair<std::size_t, std::size_t>> sorted = keyOf;
        std::sort(sorted.begin(), sorted.end());
        sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
        for (std::size_t k = 0; k < n; ++k)
            classAt[j][k] = static_cast<std::size_t>(
                std::lower_bound(sorted.begin(), sorted.end(), keyOf[k]) - sorted.begin());
    }

    Weights weights{};
    std::vector<long> partial(lengths.begin(), lengths.end());
    std::vector<std::size_t> byClass(n);
    std::vector<long> forbidden;
    for (std::size_t j = 0; j < m; ++j) {
        const unsigned char c = order[j];
        for (std::size_t k = 0; k < n; ++k) byClass[k] = k;
        std::sort(byClass.begin(), byClass.end(), [&](std::size_t a, std::size_t b) {
            return classAt[j][a] != classAt[j][b] ? classAt[j][a] < classAt[j][b] : a < b;
        });
        forbidden.clear();
        for (std::size_t begin = 0, end; begin < n; begin = end) {
            for (end = begin + 1;
                 end < n && classAt[j][byClass[end]] == classAt[j][byClass[begin]];)
                ++end;
            for (std::size_t a = begin; a < end; ++a)
                for (std::size_t b = a + 1; b < end; ++b) {
                    const std::size_t ka = byClass[a], kb = byClass[b];
                    const long ca = counts[ka][c], cb = counts[kb][c];
                    if (ca == cb) continue; // kept apart by an earlier step
                    const long gap = partial[kb] - partial[ka], step = ca - cb;
                    if (gap % step == 0 && gap / step >= 0) forbidden.push_back(gap / step);
                }
        }
        std::sort(forbidden.begin(), forbidden.end());
        long weight = 0;
        for (long f : forbidden)
            if (f == weight)
                ++weight;
            else if (f > weight)
                break;
        if (weight > static_cast<long>(maxHash)) return std::nullopt;
        weights[c] = static_cast<std::uint16_t>(weight);
        for (std::size_t k = 0; k < n; ++k) partial[k] += counts[k][c] * weight;
    }
    if (*std::max_element(partial.begin(), partial.end()) > static_cast<long>(maxHash))
        return std::nullopt;
    return weights;
}

// Bytes that occur in most texts go first: their weights move nearly all hashes alike, so they
// are best fixed while little is decided, and the rare bytes last place their few texts into
// the gaps. Should that order not fit, a few deterministic shuffles of it are tried.
std::optional<Weights> findWeights(const std::vector<std::string>& texts) {
    std::vector<std::array<std::uint8_t, 256>> counts;
    std::vector<std::size_t> lengths;
    std::array<std::size_t, 256> textsWith{};
    for (const std::string& text : texts) {
        counts.push_back(hashCounts(text));
        lengths.push_back(text.size());
        for (unsigned c = 0; c < 256; ++c)
            if (counts.back()[c]) ++textsWith[c];
    }
    std::vector<unsigned char> order;
    for (unsigned c = 0; c < 256; ++c)
        if (textsWith[c]) order.push_back(static_cast<unsigned char>(c));
    std::stable_sort(order.begin(), order.end(),
                     [&](unsigned char a, unsigned char b) { return textsWith[a] > textsWith[b]; });

    SplitMix random(20240611);
    constexpr int attempts = 32;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        std::vector<unsigned char> tried = order;
        for (int swaps = attempt == 0 ? 0 : 1 + attempt % 8; swaps > 0; --swaps) {
            const std::size_t i = random.below(tried.size() - 1);
            std::swap(tried[i], tried[i + 1]);
        }
        if (auto weights = fixWeights(counts, lengths, tried)) return weights;
    }
    return std::nullopt;
}

// ---------------------------------------------------------------------------------------------
// Writing the outputs

// Writes a list of numbers, `perLine` to a line, each line indented by four spaces.
template <class Range> std::string numberRows(const Range& values, std::size_t perLine) {
    std::string out;
    std::size_t i = 0;
    for (const auto& value : values) {
        out += i % perLine == 0 ? "    " : " ";
        out += std::to_string(value);
        out += ",";
        if (++i % perLine == 0) out += "\n";
    }
    if (i % perLine != 0) out += "\n";
    return out;
}

std::string banner(const std::string& input) {
    return "// Generated by grafel_tokgen (foundation/codegen/TokenTablesGen.cpp) from " + input +
           ".\n// Do not edit: change the catalogue and rebuild.\n";
}

std::string makeHeader(const std::vector<std::string>& texts, const std::string& input) {
    std::ostringstream out;
    out << banner(input) << R"(//
// The fixed vocabulary of Grafel: every element name, property name and keyword, each with a
// stable id, as tokens, and the mapping between ids, texts and tokens.
#pragma once

#include <grafel/arbor/Token.h>

#include <atomic>

namespace Grafel {

/// The number of catalogue tokens. Ids run from 1 to tokenCount; 0 stands for no token.
constexpr int tokenCount = )"
        << texts.size() << R"(;

/// The id of each catalogue text. Ids follow the byte order of the texts and never change.
enum TokenId : int {
)";
    for (std::size_t i = 0; i < texts.size(); ++i)
        out << "    id_" << texts[i] << " = " << i + 1 << ",\n";
    out << R"(};

/// Internals of getToken, which is inline so that it costs no more than an array access.
namespace TokenDetail {
/// The token of each id once it has been interned, null before; slot 0 stays null.
extern std::atomic<Arbor::Token> slots[tokenCount + 1];
/// Interns the text of `id` in place, stores the token in its slot and returns it (the null
/// token for an id outside the catalogue). When interning throws, the slot stays null.
Arbor::Token internToken(int id);
} // namespace TokenDetail

/// The token of a catalogue id, or the null token for any other id. Usable from any static
/// initialiser: a token not yet interned is interned on the spot.
inline Arbor::Token getToken(int id) {
    if (static_cast<unsigned>(id) - 1u >= static_cast<unsigned>(tokenCount)) return {};
    const Arbor::Token token = TokenDetail::slots[id].load(std::memory_order_acquire);
    return token.isNull() ? TokenDetail::internToken(id) : token;
}

/// The id of a catalogue text, matched byte for byte; 0 for any other text and for null.
int getTokenId(const char* text) noexcept;

/// The catalogue tokens, tok_<text> == getToken(id_<text>). They are set before any other
/// static initialiser of the library runs, and so before any code that uses the library; only
/// an initialiser that asks for the first priority itself has to call getToken instead.
)";
    for (const std::string& text : texts) out << "extern const Arbor::Token tok_" << text << ";\n";
    out << R"(
/// The event type of a property change. Outside the catalogue: it has no id.
extern const Arbor::Token tok_AfterPropertyChange;
/// The key of the Canvas message on margins too large for the page. Outside the catalogue: it
/// has no id.
extern const Arbor::Token err_MarginTooLarge;

} // namespace Grafel
)";
    return out.str();
}

std::string makeSource(const std::vector<std::string>& texts, const Weights& weights,
                       const std::string& input) {
    std::vector<int> rowOfHash(maxHash + 1, -1);
    for (std::size_t i = 0; i < texts.size(); ++i)
        rowOfHash[hashOf(texts[i], weights)] = static_cast<int>(i);
    std::array<int, maxLength + 1> placeMask{};
    std::string placeList;
    for (std::size_t place : hashedPlaces) {
        if (place <= maxLength) placeMask[place] = 0xFFFF;
        placeList += (placeList.empty() ? "" : " ") + std::to_string(place);
    }

    std::ostringstream out;
    out << banner(input) << R"(//
// The token catalogue at run time: the texts, the lazily interned token of each id, the
// perfect hash of getTokenId and the tok_ constants.
#include <grafel/foundation/Tokens.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Grafel {
namespace {

static_assert(std::atomic<Arbor::Token>::is_always_lock_free,
              "getToken must stay one plain load");

constexpr std::size_t minLength = )"
        << minLength << R"(;
constexpr std::size_t maxLength = )"
        << maxLength << R"(;
constexpr unsigned maxHash = )"
        << maxHash << R"(;
constexpr std::size_t rowSize = )"
        << rowSize << R"(;
constexpr std::size_t rowWords = rowSize / 8;

// Every text in a row of its own, padded with NULs: the catalogue in id order, then the two
// texts outside it. The tokens point into this one array, so their words ascend like their
// texts; the padding lets getTokenId compare a whole row as a few words.
alignas(rowSize) constexpr char texts[tokenCount + 2][rowSize] = {
)";
    for (const std::string& text : texts) out << "    \"" << text << "\",\n";
    for (const ExtraToken& extra : extraTokens) out << "    \"" << extra.text << "\",\n";
    out << R"(};

// The weight of each byte. A byte found at no hashed place of any text weighs 0; a text that
// holds one simply fails the final comparison.
constexpr std::uint16_t weights[256] = {
)" << numberRows(weights, 16)
        << R"(};

// All ones at the places that count in the hash: )"
        << placeList << R"(.
constexpr std::uint16_t placeMask[maxLength + 1] = {
)" << numberRows(placeMask, 13)
        << R"(};

// The row of each hash value, -1 where no text hashes to it.
constexpr std::int16_t rowOfHash[maxHash + 1] = {
)" << numberRows(rowOfHash, 16)
        << R"(};

// Where byte `i` of a word lands when the word is loaded from memory.
constexpr unsigned byteShift(std::size_t i) {
    return std::endian::native == std::endian::little ? 8 * unsigned(i) : 8 * unsigned(7 - i);
}

std::uint64_t loadWord(const char* at) {
    std::uint64_t word;
    std::memcpy(&word, at, sizeof word);
    return word;
}

} // namespace

constinit std::atomic<Arbor::Token> TokenDetail::slots[tokenCount + 1];

Arbor::Token TokenDetail::internToken(int id) {
    if (id < 1 || id > tokenCount) return {};
    const Arbor::Token token(texts[id - 1], false);
    slots[id].store(token, std::memory_order_release);
    return token;
}

int getTokenId(const char* text) noexcept {
    if (!text) return 0;
    const auto* bytes = reinterpret_cast<const unsigned char*>(text);
    // One pass finds the length, sums the weights and packs the text into words laid out like a
    // row of `texts`; it reads no byte past the end and at most maxLength + 1 bytes. Unrolled,
    // the masks and shifts are constants, the words stay in registers, and a long text is
    // refused before any comparison.
    std::uint64_t packed[rowWords] = {};
    unsigned hash = 0;
    std::size_t length = 0;
#pragma GCC unroll 32
    for (std::size_t i = 0; i < maxLength; ++i) {
        const unsigned c = bytes[i];
        if (c == 0) break;
        hash += weights[c] & placeMask[i];
        packed[i / 8] |= std::uint64_t{c} << byteShift(i % 8);
        length = i + 1;
    }
    if (length < minLength || (length == maxLength && bytes[maxLength] != 0)) return 0;
    hash += static_cast<unsigned>(length) + weights[bytes[length - 1]];
    if (hash > maxHash) return 0;
    const int row = rowOfHash[hash];
    if (row < 0) return 0;
    // Both sides are zero past the text, so equal words mean equal texts of equal length.
    std::uint64_t difference = 0;
#pragma GCC unroll 4
    for (std::size_t w = 0; w < rowWords; ++w)
        difference |= loadWord(texts[row] + 8 * w) ^ packed[w];
    return difference == 0 ? row + 1 : 0;
}

namespace {

// Interns the whole catalogue before any other static initialiser of the library runs. Every
// catalogue text is thus interned first from `texts`, in place, even if other initialising code
// interns one of them as a transient copy; that keeps the token words in catalogue order. Should
// interning fail here, the getters retry on demand.
struct CatalogueInterner {
    CatalogueInterner() noexcept {
        try {
            for (int id = 1; id <= tokenCount; ++id) TokenDetail::internToken(id);
        } catch (...) {
        }
    }
};
[[gnu::init_priority(101)]] const CatalogueInterner catalogueInterner;

} // namespace

// Same priority and later in this file: these run right after the interner.
)";
    for (const std::string& text : texts)
        out << "[[gnu::init_priority(101)]] const Arbor::Token tok_" << text << " = getToken(id_"
            << text << ");\n";
    for (std::size_t i = 0; i < extraTokens.size(); ++i)
        out << "[[gnu::init_priority(101)]] const Arbor::Token " << extraTokens[i].name
            << "(texts[tokenCount + " << i << "], false);\n";
    out << "\n} // namespace Grafel\n";
    return out.str();
}

// Writes `text` to `path` unless the file already holds exactly that, so that an unchanged
// output keeps its time stamp and nothing that includes it is rebuilt.
bool writeIfChanged(const std::string& path, const std::string& text) {
    {
        std::ifstream in(path, std::ios::binary);
        if (in) {
            const std::string old((std::istreambuf_iterator<char>(in)),
                                  std::istreambuf_iterator<char>());
            if (old == text) return true;
        }
    }
    const std::string temporary = path + ".tmp";
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        out << text;
        out.close();
        if (!out) {
            std::fprintf(stderr, "grafel_tokgen: cannot write %s\n", temporary.c_str());
            return false;
        }
    }
    std::error_code error;
    std::filesystem::rename(temporary, path, error);
    if (error) {
        std::fprintf(stderr, "grafel_tokgen: cannot replace %s: %s\n", path.c_str(),
                     error.message().c_str());
        return false;
    }
    return true;
}

// The input as named in the outputs: its folder and file name only, so that the outputs do not
// depend on where the tree is checked out.
std::string inputName(const std::string& path) {
    const std::filesystem::path p(path);
    return (p.parent_path().filename() / p.filename()).generic_string();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: grafel_tokgen CATALOGUE OUT_HEADER OUT_SOURCE\n");
        return 2;
    }
    const auto texts = readCatalogue(argv[1]);
    if (!texts) return 1;
    const auto weights = findWeights(*texts);
    if (!weights) {
        std::fprintf(stderr,
                     "%s: error: found no weights that keep all hashes apart and at most %u\n",
                     argv[1], maxHash);
        return 1;
    }
    // The search promises distinct hashes in range; check it once more the plain way.
    std::vector<bool> used(maxHash + 1, false);
    for (const std::string& text : *texts) {
        const unsigned hash = hashOf(text, *weights);
        if (hash > maxHash || used[hash]) {
            std::fprintf(stderr, "grafel_tokgen: internal error: bad hash for '%s'\n",
                         text.c_str());
            return 1;
        }
        used[hash] = true;
    }
    const std::string input = inputName(argv[1]);
    if (!writeIfChanged(argv[2], makeHeader(*texts, input))) return 1;
    if (!writeIfChanged(argv[3], makeSource(*texts, *weights, input))) return 1;
    return 0;
}
