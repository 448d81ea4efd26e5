// Compares a reader's fast path with its ordinary path: the same document, cut into the same
// pieces, loaded once each way, must end alike in every respect a host can see.
#pragma once

#include <grafel/document/PlotDocument.h>
#include <grafel/document/ZpxParser.h>

#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdio>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace TestSupport {

/// What a load leaves that a host can see.
struct LoadOutcome {
    bool ok = true;
    std::string error;
    long line = 0;
    long column = 0;
    /// Every report with the parser's position when it was made.
    std::vector<std::string> reports;
    /// The document as written afterwards.
    std::string document;
};

namespace detail {
inline std::vector<std::string>& positioned() {
    static std::vector<std::string> all;
    return all;
}
inline Tessel::Xml::Parser*& reportingParser() {
    static Tessel::Xml::Parser* parser = nullptr;
    return parser;
}
inline void collectPositioned(const char* format, va_list args) {
    char text[512];
    std::vsnprintf(text, sizeof text, format, args);
    const Tessel::Xml::Parser* p = reportingParser();
    positioned().push_back(std::to_string(p->currentLine()) + ":" +
                           std::to_string(p->currentColumn()) + " " + text);
}
} // namespace detail

/// Loads `text` cut at `cuts` through a `Handler` (a ZpxParserHandler), after `configure(parser)`.
template <class Handler, class Configure>
LoadOutcome loadInPieces(const std::string& text, const std::vector<std::size_t>& cuts,
                         Configure configure) {
    Grafel::PlotDocument doc;
    detail::positioned().clear();
    doc.domErrorHdl(&detail::collectPositioned);
    Handler handler(&doc, false, &detail::collectPositioned);
    Grafel::ZpxParser parser(&handler, true, nullptr);
    configure(parser);
    detail::reportingParser() = &parser;
    LoadOutcome out;
    std::size_t at = 0;
    for (std::size_t i = 0; out.ok && i <= cuts.size(); ++i) {
        const std::size_t to = i < cuts.size() ? cuts[i] : text.size();
        out.ok = parser.parseSave(text.data() + at, static_cast<int>(to - at), to == text.size());
        at = to;
    }
    out.error = parser.errorText();
    out.line = parser.currentLine();
    out.column = parser.currentColumn();
    out.reports = detail::positioned();
    std::ostringstream written;
    written.precision(17);
    doc.putXml(written);
    out.document = written.str();
    detail::reportingParser() = nullptr;
    return out;
}

/// The random choices that document makers for these comparisons share.
class RandomParts {
public:
    explicit RandomParts(unsigned seed) : random_(seed) {}

protected:
    /// 0 to n - 1.
    int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(random_); }
    /// A number in one of the forms writers use: exact, short, with an exponent, an integer.
    std::string number() {
        char text[40];
        const double v = std::uniform_real_distribution<double>(-1e4, 1e4)(random_);
        switch (pick(4)) {
        case 0:
            std::snprintf(text, sizeof text, "%.17g", v);
            break;
        case 1:
            std::snprintf(text, sizeof text, "%g", v);
            break;
        case 2:
            std::snprintf(text, sizeof text, "%.3e", v / 1e8);
            break;
        default:
            std::snprintf(text, sizeof text, "%d", pick(100));
            break;
        }
        return text;
    }

    std::mt19937 random_;
};

/// Loads `count` documents of `maker` (make(), cuts(size)) with the fast path off and on
/// (`setFastPath(parser, on)`), failing at the first difference; answers how many failed to load.
template <class Handler, class Maker, class SetFastPath>
int compareFastPath(Maker& maker, int count, SetFastPath setFastPath) {
    int failed = 0;
    for (int i = 0; i < count; ++i) {
        const std::string text = maker.make();
        const std::vector<std::size_t> cuts = maker.cuts(text.size());
        const LoadOutcome slow =
            loadInPieces<Handler>(text, cuts, [&](auto& parser) { setFastPath(parser, false); });
        const LoadOutcome fast =
            loadInPieces<Handler>(text, cuts, [&](auto& parser) { setFastPath(parser, true); });
        failed += !slow.ok;
        SCOPED_TRACE("document " + std::to_string(i) + ":\n" + text);
        EXPECT_EQ(slow.ok, fast.ok);
        EXPECT_EQ(slow.error, fast.error);
        EXPECT_EQ(slow.reports, fast.reports);
        EXPECT_EQ(slow.line, fast.line);
        EXPECT_EQ(slow.column, fast.column);
        EXPECT_EQ(slow.document, fast.document);
        if (::testing::Test::HasFailure()) break;
    }
    return failed;
}

} // namespace TestSupport
