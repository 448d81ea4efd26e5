#include <grafel/foundation/CmdString.h>
#include <grafel/foundation/NaN.h>
#include <grafel/foundation/Points.h>
#include <grafel/foundation/Rgba.h>
#include <grafel/foundation/ScalarText.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/foundation/Units.h>
#include <grafel/foundation/WideText.h>

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>

using namespace Grafel;

namespace {

template <class T> std::string xml(const T& value) {
    std::ostringstream out;
    putXmlValue(out, value);
    return out.str();
}

template <class T> std::string cmd(const T& value) {
    std::ostringstream out;
    putCmdValue(out, value);
    return out.str();
}

std::string cmdString(const wchar_t* text) {
    std::ostringstream out;
    putCmdString(out, text);
    return out.str();
}

} // namespace

TEST(RgbaText, ParseAcceptsOptionalHashAlphaAndTrailingText) {
    // The blank ends the colour (alpha stays 255); at most four pairs are read.
    const std::pair<const char*, std::uint32_t> cases[] = {
        {"ffffff", 0xFFFFFFFFu},     {" \t\r\n#A0b0C080", 0x80A0B0C0u},
        {"#102030ff", 0xFF102030u},  {"#ffffff80zz", 0x80FFFFFFu},
        {"#ffffff 80", 0xFFFFFFFFu}, {"#1020304050", 0x40102030u}};
    for (auto [text, word] : cases) {
        RGBA c;
        EXPECT_TRUE(c.parse(text)) << text;
        EXPECT_EQ(c.word(), word) << text;
    }
    RGBA c;
    EXPECT_TRUE(c.parse(L"#10203040"));
    EXPECT_EQ(c.word(), 0x40102030u);
}

TEST(RgbaText, ParseFailuresLeaveTheColourUntouched) {
    const RGBA before(1, 2, 3, 4);
    for (const char* text : {"", "  ", "#", "#ff", "#fffff", "#fffffff", "#10203 0ff", "# ffffff",
                             "#gg0000", "#ffffff8", "x"}) {
        RGBA c = before;
        EXPECT_FALSE(c.parse(text)) << text;
        EXPECT_EQ(c, before) << text;
    }
    RGBA c = before;
    EXPECT_FALSE(c.parse(static_cast<const char*>(nullptr)));
    EXPECT_FALSE(c.parse(L"#ff"));
    EXPECT_FALSE(c.parse(L"#\xFF10"
                         L"00000")); // a full-width digit is no digit
    EXPECT_EQ(c, before);
}

TEST(RgbaText, WritesAndReadsBack) {
    EXPECT_EQ(xml(RGBA::White), "#ffffff");
    EXPECT_EQ(xml(RGBA::Black), "#000000");
    EXPECT_EQ(xml(RGBA(0x12, 0xAB, 0xCD, 0x7F)), "#12abcd7f");
    std::ostringstream hexStream;
    hexStream << std::hex << std::uppercase << RGBA(0xAB, 0, 0, 255);
    EXPECT_EQ(hexStream.str(), "#ab0000"); // independent of the stream's flags

    for (std::uint32_t word : {0u, 0xFF000000u, 0x80FF00FFu, 0x01020304u}) {
        RGBA c = RGBA::White;
        const RGBA source(word >> 16 & 0xFF, word >> 8 & 0xFF, word & 0xFF, word >> 24);
        ASSERT_TRUE(c.parse(xml(source).c_str()));
        EXPECT_EQ(c, source);
    }

    EXPECT_EQ(cmd(RGBA::White), "[1,1,1]");
    EXPECT_EQ(cmd(RGBA(255, 0, 0, 0)), "[1,0,0,0]");
    EXPECT_EQ(cmd(RGBA(51, 102, 153, 255)), "[0.2,0.4,0.6]");
}

TEST(Rgba, ConstructorsSettersAndOrder) {
    EXPECT_EQ(RGBA().word(), 0xFF000000u);
    EXPECT_EQ(RGBA(0x1234, 0x80).word(), 0x80343434u);
    EXPECT_EQ(RGBA(0x1FF, 0x100, 0x2, 0xFF).word(), 0xFFFF0002u);
    RGBA c = RGBA::Black;
    c.setRed(0x3FF);
    c.setGreen(0x12);
    c.setBlue(0x134);
    c.setAlpha(0x1AB);
    EXPECT_EQ(c.word(), 0xABFF1234u);
    EXPECT_EQ(c.red(), 0xFFu);
    EXPECT_EQ(c.alpha(), 0xABu);
    // Unsigned order: an opaque colour orders after every translucent one.
    EXPECT_LT(RGBA(255, 255, 255, 0x7F), RGBA::Black);
    EXPECT_LT(RGBA::Black, RGBA::White);
}

TEST(PointText, FormsAndReaders) {
    EXPECT_EQ(xml(P2(1.5, -2)), "1.5 -2");
    EXPECT_EQ(xml(P3(0.1, 1e20, 0)), "0.1 1e+20 0");
    EXPECT_EQ(cmd(P2(1.5, -2)), "[1.5,-2]");
    EXPECT_EQ(cmd(P3(1, 2, 3)), "[1,2,3]");

    P2 p(7, 7);
    EXPECT_TRUE(parseValue(" +1.5\t0x10 junk", p));
    EXPECT_EQ(p, P2(1.5, 16));
    EXPECT_TRUE(parseValue("nan -inf", p));
    EXPECT_TRUE(std::isnan(p.x));
    EXPECT_TRUE(std::isinf(p.y) && p.y < 0);
    p = P2(7, 7);
    EXPECT_FALSE(parseValue("1", p));
    EXPECT_FALSE(parseValue("", p));
    EXPECT_FALSE(parseValue("1 x", p));
    EXPECT_FALSE(parseValue(nullptr, p));
    EXPECT_EQ(p, P2(7, 7));

    P3 q(7, 7, 7);
    EXPECT_FALSE(parseValue("1 2", q));
    EXPECT_EQ(q, P3(7, 7, 7));
    EXPECT_TRUE(parseValue("1 2 3 4", q));
    EXPECT_EQ(q, P3(1, 2, 3));
}

TEST(Points, NaNEqualsNothingAndLeavesPairsUnordered) {
    const P2 n(NaN(), 0);
    EXPECT_FALSE(n == n);
    EXPECT_TRUE(n != n);
    EXPECT_FALSE(P3(0, NaN(), 0) == P3(0, NaN(), 0));
    EXPECT_FALSE(P4(1, 2, 3, NaN()) == P4(1, 2, 3, NaN()));

    EXPECT_TRUE(P2(0, 5) < P2(1, 0));
    EXPECT_TRUE(P2(1, 0) < P2(1, 5));
    EXPECT_FALSE(P2(1, NaN()) < P2(1, 2) || P2(1, 2) < P2(1, NaN()));
    EXPECT_FALSE(P2(NaN(), 0) < P2(1, 2) || P2(1, 2) < P2(NaN(), 0));
    EXPECT_TRUE(P2(0, NaN()) < P2(1, 0)); // the NaN field is never reached
    EXPECT_TRUE(P3(1, 2, 3) < P3(1, 2, 4));
    EXPECT_FALSE(P4(1, 2, 3, 5) < P4(1, 2, 3, 4));
}

TEST(ScalarText, NumbersReadAsSscanfDoes) {
    for (auto [text, value] : {std::pair{"  +2.5x", 2.5}, {"0x1p4", 16.0}, {"\n-inf", -INFINITY}}) {
        double d = 7;
        EXPECT_TRUE(parseValue(text, d) && d == value) << text;
    }
    for (auto [text, value] : {std::pair{" 42 ", 42L}, {"-4.7", -4L}}) {
        long l = 7;
        EXPECT_TRUE(parseValue(text, l) && l == value) << text;
    }
    for (const char* text : {"", "  ", "abc", "x1"}) {
        double d = 7;
        long l = 7;
        EXPECT_FALSE(parseValue(text, d) || parseValue(text, l)) << text;
        EXPECT_TRUE(d == 7 && l == 7) << text;
    }
}

TEST(ScalarText, BoolRules) {
    for (const char* text : {"1", "true", "   1", "1 x", "true yes"}) {
        bool b = false;
        EXPECT_TRUE(parseValue(text, b) && b) << text;
    }
    for (const char* text : {"0", "false", " 0 1", "false true"}) {
        bool b = true;
        EXPECT_TRUE(parseValue(text, b) && !b) << text;
    }
    for (const char* text : {"TRUE", "False", "1x", "10", "truex", "\t1", "1\t", "", " ", "yes"}) {
        bool b = true;
        EXPECT_FALSE(parseValue(text, b)) << text;
        EXPECT_TRUE(b) << text;
    }
    EXPECT_EQ(xml(true), "1");
    EXPECT_EQ(xml(false), "0");
    EXPECT_EQ(cmd(true), "TRUE");
    EXPECT_EQ(cmd(false), "FALSE");
}

TEST(ScalarText, TokenTakesOneWord) {
    Arbor::Token t;
    EXPECT_TRUE(parseValue(" \t\r\nvalue-text-word rest", t));
    EXPECT_STREQ(t.c_str(), "value-text-word");
    EXPECT_EQ(Arbor::Token::find("value-text-word"), t);
    EXPECT_TRUE(parseValue("a\vb", t)); // only the four blanks end a word
    EXPECT_STREQ(t.c_str(), "a\vb");
    EXPECT_FALSE(parseValue(" \t\r\n", t));
    EXPECT_FALSE(parseValue("", t));
    EXPECT_STREQ(t.c_str(), "a\vb");
    // Written as XML text: a control character no XML document can hold becomes U+FFFD.
    EXPECT_EQ(xml(t), "a\xEF\xBF\xBD"
                      "b");
    EXPECT_EQ(cmd(Arbor::Token()), "");
}

TEST(CmdString, EscapesAndConvertsToUtf8) {
    EXPECT_EQ(cmdString(L"a\"b\\c\td\ne\rf\bg"), "a\\\"b\\\\c\\td\\ne\\rf\\bg");
    EXPECT_EQ(cmdString(L"caf\u00e9 \x01'"), "caf\xc3\xa9 \x01'");
    EXPECT_EQ(cmdString(L""), "");
    EXPECT_EQ(cmdString(nullptr), "");
    EXPECT_EQ(cmd(Tessel::FixedWString(L"say \"hi\"")), "\"say \\\"hi\\\"\"");
    EXPECT_EQ(cmd(Tessel::FixedString("a\\b")), "\"a\\b\""); // UTF-8 strings stand as they are
}

TEST(WideText, ConversionAndEscaping) {
    const Tessel::FixedWString empty = utf8ToFixedMString(nullptr);
    EXPECT_FALSE(empty.isNull());
    EXPECT_TRUE(empty.empty());
    EXPECT_EQ(utf8ToFixedMString("Z\xc3\xbcrich").view(), L"Z\u00fcrich");
    EXPECT_EQ(utf8ToFixedMString("a\xff").view(), L"a\uFFFD");

    std::ostringstream out;
    putCData(out, Tessel::FixedWString());
    putCData(out, Tessel::FixedWString(L"<a&b>"));
    EXPECT_EQ(out.str(), "&lt;a&amp;b&gt;");
}

TEST(Units, FactorsApplyWithoutRounding) {
    const Arbor::Token mm = getToken(id_MM), in = getToken(id_In), pt = getToken(id_Pt);
    EXPECT_EQ(mm2units(mm, 10), 10);
    EXPECT_EQ(units2mm(mm, 10), 10);
    EXPECT_EQ(mm2units(pt, 25.4), 72);
    EXPECT_EQ(units2mm(pt, 72), 25.4);
    EXPECT_EQ(mm2units(in, 10), 10 * 0.03937007874015748);
    EXPECT_EQ(units2mm(in, 1), 1 / 0.03937007874015748);
    EXPECT_EQ(mm2units(getToken(id_Left), 25.4), 72); // any other unit counts as points
    EXPECT_EQ(mm2units(Arbor::Token(), 25.4), 72);
}
