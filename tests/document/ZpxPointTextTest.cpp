#include "document/ZpxTestHelpers.h"
#include "support/ScanReference.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using TestSupport::ScannedFields;
using TestSupport::sscanfFields;

namespace {

using namespace Grafel;
using namespace ZpxTest;

// A point text made of words that matter to the patterns, with or without blanks between them.
std::string randomPointText(std::mt19937_64& random) {
    static const std::vector<std::string> words = [] {
        std::istringstream in("1 -2.5 3e2 0.125 -0 +4 1e400 inf nan 0x1p3 .5 5. 1e x #ff0000 "
                              "#12345678 # ##00ff00 #abcdefabcdef #ffinf0 #zz0000 1#ff0000 7 -8");
        return std::vector<std::string>(std::istream_iterator<std::string>(in), {});
    }();
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
TEST(ZpxPointText, PointsReadAsTheRulesSay) {
    TestClasses classes;
    std::mt19937_64 random(77);
    for (int round = 0; round < 4000; ++round) {
        const std::string text = randomPointText(random);
        SCOPED_TRACE("'" + text + "'");
        PlotDocument doc;

        // P2.
        bool ok = true;
        bool kept = text.find("inf") == std::string::npos;
        ScannedFields f;
        RGBA colour;
        const bool coloured = text.find('#') != std::string::npos;
        if (kept) {
            f = sscanfFields(text, 2, coloured ? 1 : 0);
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
                ASSERT_TRUE(!coloured || list->colorAt(0) == colour);
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
            f = sscanfFields(text, numbers, colours);
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
            ASSERT_TRUE(numbers < 6 || std::memcmp(list->normals(), want + 3, sizeof(P3)) == 0);
            ASSERT_EQ(list->numColors(), colours);
            ASSERT_TRUE(colours < 1 || list->firstColorAt(0) == first);
            ASSERT_TRUE(colours < 2 || list->secondColorAt(0) == second);
        }
    }
}
