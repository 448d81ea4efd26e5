#include <grafel/foundation/Tokens.h>

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <string>
#include <vector>

using namespace Grafel;
using Arbor::Token;

namespace {

// The catalogue as the build read it: texts[i] has id i + 1.
const std::vector<std::string>& catalogue() {
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> out;
        std::ifstream in(GRAFEL_SOURCE_DIR "/foundation/tokens.txt");
        for (std::string line; std::getline(in, line);)
            if (!line.empty() && line[0] != '#') out.push_back(line);
        return out;
    }();
    return texts;
}

// The id a lookup of `text` must give: its id in the catalogue, else 0.
int expectedId(const std::string& text) {
    static const std::map<std::string, int> ids = [] {
        std::map<std::string, int> out;
        for (std::size_t i = 0; i < catalogue().size(); ++i)
            out[catalogue()[i]] = static_cast<int>(i) + 1;
        return out;
    }();
    const auto it = ids.find(text);
    return it == ids.end() ? 0 : it->second;
}

} // namespace

TEST(TokenCatalogue, IdsOutsideTheCatalogueGiveTheNullToken) {
    ASSERT_EQ(catalogue().size(), static_cast<std::size_t>(tokenCount));
    EXPECT_TRUE(getToken(0).isNull());
    EXPECT_TRUE(getToken(-1).isNull());
    EXPECT_TRUE(getToken(tokenCount + 1).isNull());
    EXPECT_TRUE(getToken(-2147483647 - 1).isNull());
    EXPECT_TRUE(getToken(2147483647).isNull());
    EXPECT_STREQ(getToken(1).c_str(), "Absolute");
    EXPECT_STREQ(getToken(tokenCount).c_str(), "version");
}

TEST(TokenCatalogue, EveryTextAndIdRoundTrip) {
    for (int id = 1; id <= tokenCount; ++id) {
        const std::string& text = catalogue()[id - 1];
        EXPECT_EQ(getTokenId(text.c_str()), id) << text;
        EXPECT_EQ(getToken(getTokenId(text.c_str())), Token(text.c_str(), true)) << text;
        EXPECT_EQ(getTokenId(getToken(id)), id) << text;
    }
}

// Words reserved for events and errors stay out of the catalogue.
TEST(TokenCatalogue, ReservedWordsAreNotInTheCatalogue) {
    EXPECT_EQ(getTokenId("AfterPropertyChange"), 0);
    EXPECT_EQ(getTokenId("err_MarginTooLarge"), 0);
}

// Sorted tables of tokens rely on this: ordering by word is ordering by text.
TEST(TokenCatalogue, WordsAscendWithTheTexts) {
    for (int id = 1; id < tokenCount; ++id)
        EXPECT_LT(getToken(id), getToken(id + 1)) << catalogue()[id - 1];
}

TEST(TokenCatalogue, LookupIsExactAndBounded) {
    EXPECT_EQ(getTokenId("version"), 530);
    EXPECT_EQ(getTokenId("Version"), 0);
    EXPECT_EQ(getTokenId(nullptr), 0);
    // Unknown texts of every length the lookup bounds: none, too short, too long, not ASCII.
    for (const std::string& text :
         std::vector<std::string>{"", "A", "VerticalAsymptotesVisibleX", "Absolute\xff",
                                  "\xc3\xa9t\xc3\xa9", std::string(100000, 'V')})
        EXPECT_EQ(getTokenId(text.c_str()), 0) << text.size();
}

// Every text with one byte changed, dropped or appended must give 0 or the id of the text it
// became: the hash must never lead a near miss to a wrong record.
TEST(TokenCatalogue, NearMissesFindNothingOrTheirOwnId) {
    std::string variant;
    for (const std::string& text : catalogue()) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            for (int c = 1; c < 256; ++c) {
                if (c == static_cast<unsigned char>(text[i])) continue;
                variant = text;
                variant[i] = static_cast<char>(c);
                ASSERT_EQ(getTokenId(variant.c_str()), expectedId(variant)) << variant;
            }
            variant = text;
            variant.erase(i, 1);
            ASSERT_EQ(getTokenId(variant.c_str()), expectedId(variant)) << variant;
        }
        for (int c = 1; c < 128; ++c) {
            variant = text + static_cast<char>(c);
            ASSERT_EQ(getTokenId(variant.c_str()), expectedId(variant)) << variant;
        }
    }
}
