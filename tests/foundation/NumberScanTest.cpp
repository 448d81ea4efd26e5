#include "support/ScanReference.h"

#include <grafel/foundation/NumberScan.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

using TestSupport::ScannedFields;
using TestSupport::sscanfFields;
using TestSupport::trickyNumberWord;

namespace {

ScannedFields byScanner(const std::string& text, int numbers, int colors) {
    ScannedFields r;
    r.count = Grafel::scanFields(text, numbers, colors, r.values, r.words);
    return r;
}

// Same count, the same bits in every number converted and the same converted words.
void expectSame(const std::string& text, int numbers, int colors) {
    const ScannedFields want = sscanfFields(text, numbers, colors);
    const ScannedFields got = byScanner(text, numbers, colors);
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

TEST(NumberScan, TrickyWordsReadAsSscanfReadsThem) {
    // clang-format off
    const char* words[] = {
        "0", "-0", "00", "1", "-1", "+1", "1.", ".5", "-.5", "+.5", ".", "-", "+", "-.", "e5",
        "1e", "1e+", "1e-", "1e5", "1E5", "1e+05", "1.5e-3", "1.e2", "100ergs", "1.5.5", "1,5",
        "1..2", "--1", "-+1", "0x10", "0X1p4", "0x", "0x.8p1", "-0x1.8p+1", "inf", "-inf", "INF",
        "Infinity", "nan", "-nan", "NaN(123)", "nanx", "1e400", "-1e400", "1e-400", "4.9e-324",
        "2.4703282292062327e-324", "2.4703282292062328e-324", "2.2250738585072011e-308",
        "2.2250738585072014e-308", "1.7976931348623157e308", "1.7976931348623158e308",
        "1.7976931348623159e308", "9007199254740993",
        "0.1000000000000000055511151231257827021181583404541015625",
        "123456789012345678901234567890", "1e0000000000000000000000000001",
        "0.0000000000000000000000000000000000000000001e43", "1e-99999999999", "1e99999999999",
        "5e-324x", "1#", "1#ff", "3.25\v", "\f2"};
    // clang-format on
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

TEST(NumberScan, RandomTextReadsAsSscanfReadsIt) {
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

// A plain number is taken only where its end is beyond doubt; otherwise nothing moves.
TEST(NumberScan, PlainNumberStopsAtItsEndOrRefuses) {
    auto read = [](const std::string& text, double& value) {
        const char* p = text.data();
        value = -7;
        const bool ok = Grafel::scanPlainNumber(p, text.data() + text.size(), value);
        return ok ? p - text.data() : -1;
    };
    double v;
    EXPECT_EQ(read("12.5 3", v), 4);
    EXPECT_EQ(v, 12.5);
    EXPECT_EQ(read("-1e3#ff", v), 4);
    EXPECT_EQ(v, -1000);
    EXPECT_EQ(read("0.1", v), 3);
    EXPECT_EQ(v, 0.1);
    for (const char* refused : {"+1", "inf", "0x10", "1e400", "1,5", "1.5.5", "1e", "", "-"}) {
        EXPECT_EQ(read(refused, v), -1) << refused;
        EXPECT_EQ(v, -7) << refused;
    }
}

TEST(NumberScan, FieldCountsOutsideTheFormatsAreRefused) {
    double values[6];
    Grafel::ScanWord words[2];
    EXPECT_THROW(Grafel::scanFields("1", 0, 0, values, words), std::invalid_argument);
    EXPECT_THROW(Grafel::scanFields("1", 7, 0, values, words), std::invalid_argument);
    EXPECT_THROW(Grafel::scanFields("1", 1, 3, values, words), std::invalid_argument);
    EXPECT_EQ(Grafel::scanFields(" 1 2 ", 2, 0, values, nullptr), 2);
}

// Where the decimal point is a comma, sscanf reads "1,5" as one number and stops at "1.5":
// the scanner must not read the plain form then.
TEST(NumberScan, FollowsTheLocaleOfTheCLibrary) {
    struct Restore {
        std::string name = std::setlocale(LC_NUMERIC, nullptr);
        ~Restore() { std::setlocale(LC_NUMERIC, name.c_str()); }
    } restore;
    bool switched = false;
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE", "fr_FR"})
        if (std::setlocale(LC_NUMERIC, name)) {
            switched = true;
            break;
        }
    if (!switched) GTEST_SKIP() << "no locale with a decimal comma";
    EXPECT_FALSE(Grafel::decimalPointIsDot());
    for (const char* text : {"1,5 2", "1.5 2", "3 4,25 #ff"}) expectSameAllPatterns(text);
}

// The integer fields of the line formats, against sscanf on odd words and on random text.
TEST(NumberScan, LongFieldsReadAsSscanfReadsThem) {
    auto expectSameLongs = [](const std::string& text) {
        for (int count = 1; count <= 2; ++count) {
            long want[2] = {-7, -7};
            long got[2] = {-7, -7};
            const int wantCount = count == 1
                                      ? std::sscanf(text.c_str(), " %ld ", &want[0])
                                      : std::sscanf(text.c_str(), " %ld %ld ", &want[0], &want[1]);
            ASSERT_EQ(Grafel::scanLongs(text, count, got), wantCount) << "'" << text << "'";
            for (int i = 0; i < wantCount; ++i) ASSERT_EQ(got[i], want[i]) << "'" << text << "'";
        }
    };
    for (const char* text : {"",
                             " ",
                             "\r\n",
                             "0",
                             "-0",
                             "+5",
                             "-",
                             "+",
                             "- 1",
                             "12 34",
                             " 2 3 4",
                             "2147483648",
                             "-1",
                             "9223372036854775807",
                             "9223372036854775808",
                             "-9223372036854775809",
                             "99999999999999999999999",
                             "000000000000000000000000012",
                             "1.5 2",
                             "3x 4",
                             "3 x",
                             "0x10 2",
                             "\v7 8",
                             "7\f8",
                             "7\xa0 8",
                             "1e5 3",
                             "5 -",
                             "5 +6",
                             "5 -6trail"})
        expectSameLongs(text);
    std::mt19937_64 random(99);
    const std::string alphabet = "0123456789-+ \t\r\nx.9999";
    for (int i = 0; i < 30000; ++i) {
        std::string text(random() % 28, ' ');
        for (char& c : text) c = alphabet[random() % alphabet.size()];
        expectSameLongs(text);
    }
    long v[2];
    EXPECT_THROW(Grafel::scanLongs("1", 3, v), std::invalid_argument);
}

// Runs of words between random white space, read in blocks of random room: each word read is
// what " %lf" makes of it, bit for bit, and a stop leaves the text at the word that was not
// read, which then needs the general way (or lies at the end of the text and may go on).
TEST(NumberScan, PlainWordsReadAsSscanfReadsThem) {
    std::mt19937_64 random(777);
    const std::string wide(70, ' '); // wider than the blocks the words are found in
    const char* const spaces[] = {" ", "\t", "\n", "\r", "  ", "\r\n", wide.c_str()};
    for (int round = 0; round < 300; ++round) {
        std::vector<std::string> words;
        std::string text = random() % 2 ? "" : " ";
        for (int i = 0, n = 1 + int(random() % 200); i < n; ++i) {
            words.push_back(trickyNumberWord(random));
            if (words.back().empty()) words.back() = "1";
            text += words.back() + spaces[random() % std::size(spaces)];
        }
        const char* p = text.data();
        const char* end = p + text.size();
        std::size_t next = 0; // the word expected next
        double values[300];
        while (p != end) {
            const std::size_t room = 1 + random() % 300;
            const std::size_t got = Grafel::scanPlainWords(p, end, values, room);
            for (std::size_t i = 0; i < got; ++i, ++next) {
                ASSERT_LT(next, words.size());
                const ScannedFields want = sscanfFields(words[next], 1, 0);
                ASSERT_EQ(want.count, 1) << words[next];
                ASSERT_EQ(std::memcmp(&values[i], &want.values[0], sizeof(double)), 0)
                    << "'" << words[next] << "': " << values[i] << " vs " << want.values[0];
            }
            if (got == room || p == end) continue;
            ASSERT_LT(next, words.size());
            ASSERT_EQ(std::string(p, std::min<std::size_t>(end - p, words[next].size())),
                      words[next]);
            // A plain word that a blank ends is never left to the general way.
            const char* q = p;
            double value;
            ASSERT_FALSE(Grafel::scanPlainNumber(q, end, value) && q != end &&
                         (*q == ' ' || *q == '\t' || *q == '\n' || *q == '\r'))
                << words[next];
            p += words[next].size();
            ++next;
        }
        EXPECT_EQ(next, words.size());
    }
}
