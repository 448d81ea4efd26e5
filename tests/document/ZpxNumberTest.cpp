#include "document/ZpxTestHelpers.h"

#include <grafel/document/ZpxParserHandler.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

using Grafel::ZpxParserHandler;

namespace {

// The formats as the reader's point patterns state them.
std::string format(int numbers, int colors) {
    std::string f;
    for (int i = 0; i < numbers; ++i) f += " %lf";
    for (int i = 0; i < colors; ++i) f += " #%10s";
    return f + " ";
}

struct Fields {
    int count = 0;
    double values[6] = {};
    char words[2][11] = {};
};

template <std::size_t... I>
int sscanfWith(const std::string& text, const std::string& f, Fields& r,
               std::index_sequence<I...>) {
    return std::sscanf(text.c_str(), f.c_str(), &r.values[I]..., r.words[0], r.words[1]);
}

Fields bySscanf(const std::string& text, int numbers, int colors) {
    Fields r;
    const std::string f = format(numbers, colors);
    switch (numbers) {
    case 1:
        r.count = sscanfWith(text, f, r, std::make_index_sequence<1>());
        break;
    case 2:
        r.count = sscanfWith(text, f, r, std::make_index_sequence<2>());
        break;
    case 3:
        r.count = sscanfWith(text, f, r, std::make_index_sequence<3>());
        break;
    case 4:
        r.count = sscanfWith(text, f, r, std::make_index_sequence<4>());
        break;
    case 5:
        r.count = sscanfWith(text, f, r, std::make_index_sequence<5>());
        break;
    default:
        r.count = sscanfWith(text, f, r, std::make_index_sequence<6>());
        break;
    }
    return r;
}

Fields byReader(const std::string& text, int numbers, int colors) {
    Fields r;
    r.count = ZpxParserHandler::scanFields(text, numbers, colors, r.values, r.words);
    return r;
}

// Same count, the same bits in every number converted and the same converted words.
void expectSame(const std::string& text, int numbers, int colors) {
    const Fields want = bySscanf(text, numbers, colors);
    const Fields got = byReader(text, numbers, colors);
    ASSERT_EQ(got.count, want.count) << "'" << text << "' " << numbers << "/" << colors;
    for (int i = 0; i < std::min(want.count, numbers); ++i)
        ASSERT_EQ(std::memcmp(&got.values[i], &want.values[i], sizeof(double)), 0)
            << "'" << text << "' field " << i << ": " << got.values[i] << " vs " << want.values[i];
    for (int i = 0; i < colors && numbers + i < want.count; ++i)
        ASSERT_STREQ(got.words[i], want.words[i]) << "'" << text << "'";
}

void expectSameAllPatterns(const std::string& text) {
    for (int numbers : {1, 2, 3, 6})
        for (int colors = 0; colors <= 2; ++colors) expectSame(text, numbers, colors);
}

} // namespace

TEST(ZpxNumbers, TrickyWordsReadAsSscanfReadsThem) {
    const char* words[] = {
        "0",
        "-0",
        "00",
        "1",
        "-1",
        "+1",
        "1.",
        ".5",
        "-.5",
        "+.5",
        ".",
        "-",
        "+",
        "-.",
        "e5",
        "1e",
        "1e+",
        "1e-",
        "1e5",
        "1E5",
        "1e+05",
        "1.5e-3",
        "1.e2",
        "100ergs",
        "1.5.5",
        "1,5",
        "1..2",
        "--1",
        "-+1",
        "0x10",
        "0X1p4",
        "0x",
        "0x.8p1",
        "-0x1.8p+1",
        "inf",
        "-inf",
        "INF",
        "Infinity",
        "nan",
        "-nan",
        "NaN(123)",
        "nanx",
        "1e400",
        "-1e400",
        "1e-400",
        "4.9e-324",
        "2.4703282292062327e-324",
        "2.4703282292062328e-324",
        "2.2250738585072011e-308",
        "2.2250738585072014e-308",
        "1.7976931348623157e308",
        "1.7976931348623158e308",
        "1.7976931348623159e308",
        "9007199254740993",
        "0.1000000000000000055511151231257827021181583404541015625",
        "123456789012345678901234567890",
        "1e0000000000000000000000000001",
        "0.0000000000000000000000000000000000000000001e43",
        "1e-99999999999",
        "1e99999999999",
        "5e-324x",
        "1#",
        "1#ff",
        "3.25\v",
        "\f2",
    };
    for (const char* w : words) {
        SCOPED_TRACE(w);
        expectSameAllPatterns(w);
        expectSameAllPatterns(std::string("  ") + w + " 2 3 4 5 6 #ff0000 #00ff00");
        expectSameAllPatterns(std::string("1 2 3 ") + w + " 5 6 #ff0000 #00ff00");
        expectSameAllPatterns(std::string("1 2 3 4 5 6 #") + w + " #" + w);
    }
    for (const char* text : {"", " ", "\n\t", "1 2#abcdef", "1 2 # abcdef", "1 2 #", "1 2#",
                             "1 2 #0123456789abcdef #00", "1 2 #0123456789#00", "1 2 3 4 5 6 #a#b",
                             "1\r\n2\t#ff\xc3\xa9\xc3\xa9", "1 2 #\xa0x", "1 2 \v#ff", "1 2 #\vff"})
        expectSameAllPatterns(text);
}

TEST(ZpxNumbers, RandomTextReadsAsSscanfReadsIt) {
    std::mt19937_64 random(12345);
    // Plain numbers of every length and size, written in many ways.
    for (int i = 0; i < 20000; ++i) {
        double d;
        const std::uint64_t bits = random();
        std::memcpy(&d, &bits, sizeof d);
        if (std::isnan(d) || std::isinf(d)) continue;
        char text[64];
        const char* forms[] = {"%.17g", "%.6g", "%.3e", "%.20f", "%a", "%.0f", "%.1g"};
        std::snprintf(text, sizeof text, forms[i % 7], d);
        expectSame(text, 1, 0);
        expectSame(std::string(text) + " " + text + "\n" + text, 3, 0);
    }
    // Short random strings over the characters that matter to a number.
    const std::string alphabet = "0123456789.-+eExXpPnaifNAIF# \t\n1199";
    for (int i = 0; i < 60000; ++i) {
        std::string text(random() % 24, ' ');
        for (char& c : text) c = alphabet[random() % alphabet.size()];
        expectSame(text, 1 + static_cast<int>(random() % 6), static_cast<int>(random() % 3));
    }
    // Digits only, with one point and exponent each, long mantissas included.
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        if (random() % 2) text += '-';
        const int digits = 1 + static_cast<int>(random() % 40);
        for (int k = 0; k < digits; ++k) text += static_cast<char>('0' + random() % 10);
        if (random() % 2) text.insert(random() % text.size() + (text[0] == '-'), ".");
        if (random() % 2) text += "e" + std::to_string(static_cast<int>(random() % 700) - 350);
        expectSame(text, 1, 0);
    }
}

namespace {

using namespace Grafel;
using namespace ZpxTest;

// A point text made of words that matter to the patterns, with or without blanks between them.
std::string randomPointText(std::mt19937_64& random) {
    static const char* const words[] = {"1",
                                        "-2.5",
                                        "3e2",
                                        "0.125",
                                        "-0",
                                        "+4",
                                        "1e400",
                                        "inf",
                                        "nan",
                                        "0x1p3",
                                        ".5",
                                        "5.",
                                        "1e",
                                        "x",
                                        "#ff0000",
                                        "#12345678",
                                        "#",
                                        "##00ff00",
                                        "#abcdefabcdef",
                                        "#ffinf0",
                                        "#zz0000",
                                        "1#ff0000",
                                        "7",
                                        "-8"};
    static const char* const gaps[] = {" ", "  ", "\t", "\n", ""};
    std::string text;
    const int n = static_cast<int>(random() % 10);
    for (int i = 0; i < n; ++i) {
        if (i) text += gaps[random() % std::size(gaps)];
        text += words[random() % std::size(words)];
    }
    return text;
}

int countOf(const std::string& text, bool colours) {
    int count = 0;
    std::istringstream in(text);
    for (std::string word; in >> word;) count += (word[0] == '#') == colours;
    return count;
}

double clamp3(double v) {
    return v > 3e30 ? 3e30 : v < -3e30 ? -3e30 : v;
}

} // namespace

// A single point read through the whole reader gives what the rules say, computed here with
// sscanf itself: the same failure, or the same point, bit for bit.
TEST(ZpxNumbers, PointsReadAsTheRulesSay) {
    TestClasses classes;
    std::mt19937_64 random(77);
    for (int round = 0; round < 4000; ++round) {
        const std::string text = randomPointText(random);
        SCOPED_TRACE("'" + text + "'");
        PlotDocument doc;

        // P2.
        bool ok = true;
        bool kept = text.find("inf") == std::string::npos;
        Fields f;
        RGBA colour;
        const bool coloured = text.find('#') != std::string::npos;
        if (kept) {
            f = bySscanf(text, 2, coloured ? 1 : 0);
            ok = f.count == (coloured ? 3 : 2) && (!coloured || colour.parse(f.words[0]));
        }
        ASSERT_EQ(load<TestHandler>(doc, "<Canvas><Row1><P2>" + text + "</P2></Row1></Canvas>"),
                  ok);
        if (ok) {
            auto* list = static_cast<TestPoly2*>(doc.documentElement()->firstChild());
            ASSERT_EQ(list->size(), kept ? 1u : 0u);
            if (kept) {
                ASSERT_EQ(std::memcmp(list->points(), f.values, sizeof(P2)), 0);
                ASSERT_EQ(list->colored(), coloured);
                if (coloured) {
                    ASSERT_EQ(list->colorAt(0), colour);
                }
            }
        }

        // P3.
        const int numbers = countOf(text, false);
        const int colours = countOf(text, true);
        ok = !text.empty() && colours <= 2 && (numbers == 3 || numbers == 6);
        kept = text.find("inf") == std::string::npos;
        RGBA first;
        RGBA second;
        if (ok && kept) {
            f = bySscanf(text, numbers, colours);
            ok = f.count == numbers + colours && (colours < 1 || first.parse(f.words[0])) &&
                 (colours < 2 || second.parse(f.words[1]));
        }
        ASSERT_EQ(load<TestHandler>(doc, "<Canvas><Row2><P3>" + text + "</P3></Row2></Canvas>"),
                  ok);
        if (ok) {
            auto* list = static_cast<TestPoly3*>(doc.documentElement()->firstChild());
            ASSERT_EQ(list->size(), kept ? 1u : 0u);
            if (!kept) continue;
            double want[6];
            for (int i = 0; i < numbers; ++i) want[i] = clamp3(f.values[i]);
            ASSERT_EQ(std::memcmp(list->points(), want, sizeof(P3)), 0);
            ASSERT_EQ(list->hasNormals(), numbers == 6);
            if (numbers == 6) {
                ASSERT_EQ(std::memcmp(list->normals(), want + 3, sizeof(P3)), 0);
            }
            ASSERT_EQ(list->numColors(), colours);
            if (colours >= 1) {
                ASSERT_EQ(list->firstColorAt(0), first);
            }
            if (colours >= 2) {
                ASSERT_EQ(list->secondColorAt(0), second);
            }
        }
    }
}
