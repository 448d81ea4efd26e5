#include <grafel/foundation/FontStyle.h>
#include <grafel/foundation/Tokens.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

using namespace Grafel;
using Tessel::FixedWString;

namespace {

std::string xml(const FontStyle& font) {
    std::ostringstream out;
    out << font;
    return out.str();
}

std::string cmd(const FontStyle& font) {
    std::ostringstream out;
    putCmdValue(out, font);
    return out.str();
}

std::wstring family(const FontStyle& font) {
    return std::wstring(font.family().view());
}

} // namespace

TEST(FontStyle, DefaultsAndWrittenForms) {
    const FontStyle font;
    EXPECT_EQ(family(font), L"Times");
    EXPECT_EQ(font.size(), 11u);
    EXPECT_EQ(font.alignment(), getToken(id_Left));
    EXPECT_EQ(font, FontStyle::standard());
    EXPECT_EQ(xml(font), "'Times' 11 #000000 Left");
    EXPECT_EQ(cmd(font), "[\"Times\",11,[0,0,0],Left]");

    const FontStyle styled(FixedWString(L"A \"&\" B"), 9, true, true, RGBA(255, 255, 255, 0),
                           getToken(id_Right));
    EXPECT_EQ(xml(styled), "'A &quot;&amp;&quot; B' 9 Italic Bold #ffffff00 Right");
    EXPECT_EQ(cmd(styled), "[\"A \\\"&\\\" B\",9,Bold,Italic,[1,1,1,0],Right]");
    // The XML form reads back, once its entities are read.
    FontStyle read;
    ASSERT_TRUE(read.parse("'A \"&\" B' 9 Italic Bold #ffffff00 Right"));
    EXPECT_EQ(read, styled);
}

TEST(FontStyle, ParseReadsWordsInAnyOrder) {
    FontStyle font;
    ASSERT_TRUE(font.parse("'Times New Roman' 12 Bold #ff0000 Center"));
    EXPECT_EQ(family(font), L"Times New Roman");
    EXPECT_EQ(font.size(), 12u);
    EXPECT_TRUE(font.bold());
    EXPECT_FALSE(font.italic());
    EXPECT_EQ(font.color(), RGBA(255, 0, 0, 255));
    EXPECT_EQ(font.alignment(), getToken(id_Center));

    // Earlier settings do not survive a new parse.
    ASSERT_TRUE(font.parse("  Arial\t Right #00ff0080   14pt Italic"));
    EXPECT_EQ(family(font), L"Arial");
    EXPECT_EQ(font.size(), 14u);
    EXPECT_TRUE(font.italic());
    EXPECT_FALSE(font.bold());
    EXPECT_EQ(font.color().word(), 0x8000FF00u);
    EXPECT_EQ(font.alignment(), getToken(id_Right));
    ASSERT_TRUE(font.parse("Arial 12"));
    EXPECT_FALSE(font.italic());
    EXPECT_EQ(font.color(), RGBA::Black);
    EXPECT_EQ(font.alignment(), getToken(id_Left));

    // The generic families stand for fonts ("serif" is not the default "Times").
    for (auto [text, name] : {std::pair{"serif 10", L"Times New Roman"},
                              {"sans-serif 10", L"Arial"},
                              {"monospace 10", L"Courier New"},
                              {"'Z\xc3\xbcrich' 10", L"Z\u00fcrich"}}) {
        ASSERT_TRUE(font.parse(text)) << text;
        EXPECT_EQ(family(font), name) << text;
    }
}

TEST(FontStyle, ParseFailures) {
    for (const char* text :
         {"", "   ", "Arial", "Arial ", "Arial 12 ", "'Arial", "'Arial'", "'Arial' ", "Arial Bold",
          "Arial 0", "Arial 12 Top", "Arial 12 left", "Arial 12 #ff", "Arial -3",
          "Z\xc3\xbcrich 12"}) { // bytes from 0x80 up separate words
        FontStyle font;
        EXPECT_FALSE(font.parse(text)) << text;
    }
    FontStyle font;
    EXPECT_FALSE(font.parse(nullptr));

    // What was read before the failing word stays; the caller throws the value away.
    EXPECT_FALSE(font.parse("Arial 14 Bold Top"));
    EXPECT_EQ(family(font), L"Arial");
    EXPECT_EQ(font.size(), 14u);
    EXPECT_TRUE(font.bold());

    // The reader that the property layer uses writes nothing on failure.
    FontStyle kept(FixedWString(L"Kept"), 20, false, true, RGBA::White, getToken(id_Center));
    EXPECT_FALSE(parseValue("Arial 14 Top", kept));
    EXPECT_EQ(family(kept), L"Kept");
    EXPECT_EQ(kept.size(), 20u);
    EXPECT_TRUE(parseValue("Arial 14", kept));
    EXPECT_EQ(kept,
              FontStyle(FixedWString(L"Arial"), 14, false, false, RGBA::Black, getToken(id_Left)));
}

TEST(FontStyle, EqualityAndOrderFieldByField) {
    const Arbor::Token left = getToken(id_Left), right = getToken(id_Right);
    const RGBA black = RGBA::Black;
    // Each font orders before the next, decided by one field after another.
    const FontStyle chain[] = {
        FontStyle(FixedWString(), 99, true, true, RGBA::White, right),
        FontStyle(FixedWString(L""), 99, true, true, RGBA::White, right),
        FontStyle(FixedWString(L"A"), 10, true, true, RGBA::White, right),
        FontStyle(FixedWString(L"B"), 9, true, true, RGBA::White, right),
        FontStyle(FixedWString(L"B"), 10, false, true, RGBA::White, right),
        FontStyle(FixedWString(L"B"), 10, true, false, RGBA::White, right),
        FontStyle(FixedWString(L"B"), 10, true, true, black, right),
        FontStyle(FixedWString(L"B"), 10, true, true, RGBA::White, left < right ? left : right),
        FontStyle(FixedWString(L"B"), 10, true, true, RGBA::White, left < right ? right : left),
    };
    const size_t n = sizeof chain / sizeof chain[0];
    for (size_t i = 0; i < n; ++i)
        for (size_t j = 0; j < n; ++j) {
            EXPECT_EQ(chain[i] < chain[j], i < j) << i << ' ' << j;
            EXPECT_EQ(chain[i] == chain[j], i == j) << i << ' ' << j;
            EXPECT_EQ(chain[i] != chain[j], i != j) << i << ' ' << j;
        }
    // The family compares by text, not by the shared block.
    EXPECT_EQ(FontStyle(FixedWString(L"B"), 10, false, false, black, left),
              FontStyle(FixedWString(L"B"), 10, false, false, black, left));
}
