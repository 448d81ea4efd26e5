#include <grafel/tessel/Utf.h>

#include <gtest/gtest.h>

#include <string>

using Tessel::FlexBuff;

namespace {

std::wstring toWide(const std::string& text) {
    FlexBuff<wchar_t> out;
    const long n = Tessel::utf8ToUtf16(text.data(), static_cast<long>(text.size()), out);
    EXPECT_EQ(out[static_cast<size_t>(n)], L'\0');
    return std::wstring(out.data(), static_cast<size_t>(n));
}

std::string toUtf8(const std::wstring& text) {
    FlexBuff<char> out;
    const long n = Tessel::utf16ToUtf8(text.data(), static_cast<long>(text.size()), out);
    EXPECT_EQ(out[static_cast<size_t>(n)], '\0');
    return std::string(out.data(), static_cast<size_t>(n));
}

} // namespace

TEST(TesselUtf, WellFormedRoundTrip) {
    const std::string text = "plain ASCII long enough for the fast path, \xC3\xA9t\xC3\xA9 "
                             "\xE4\xB8\xAD \xF0\x9F\x98\x80 \xEF\xBF\xBF \xF4\x8F\xBF\xBF end";
    const std::wstring wide = toWide(text);
    EXPECT_EQ(wide.substr(0, 5), L"plain");
    EXPECT_NE(wide.find(L"\u00E9t\u00E9 \u4E2D \U0001F600 \uFFFF \U0010FFFF end"),
              std::wstring::npos);
    EXPECT_EQ(toUtf8(wide), text);
    EXPECT_EQ(Tessel::validUtf8Length(text.data(), static_cast<long>(text.size())),
              static_cast<long>(text.size()));

    // Length -1 reads to the NUL; a null text is empty.
    FlexBuff<wchar_t> out;
    EXPECT_EQ(Tessel::utf8ToUtf16("ab\0cd", -1, out), 2);
    EXPECT_EQ(Tessel::utf8ToUtf16("ab\0cd", 5, out), 5);
    EXPECT_EQ(out[2], L'\0');
    EXPECT_EQ(Tessel::utf8ToUtf16(nullptr, 7, out), 0);
    EXPECT_EQ(out[0], L'\0');
}

TEST(TesselUtf, MalformedBecomesOneReplacementPerMaximalSubpart) {
    // The example of the Unicode standard on maximal subparts.
    EXPECT_EQ(toWide("\x61\xF1\x80\x80\xE1\x80\xC2\x62\x80\x63\x80\xBF\x64"),
              L"a\uFFFD\uFFFD\uFFFDb\uFFFDc\uFFFD\uFFFDd");
    EXPECT_EQ(toWide("\xC0\xAF"), L"\uFFFD\uFFFD");                     // overlong
    EXPECT_EQ(toWide("\xE0\x80\x80"), L"\uFFFD\uFFFD\uFFFD");           // overlong
    EXPECT_EQ(toWide("\xED\xA0\x80x"), L"\uFFFD\uFFFD\uFFFDx");         // surrogate
    EXPECT_EQ(toWide("\xF4\x90\x80\x80"), L"\uFFFD\uFFFD\uFFFD\uFFFD"); // beyond U+10FFFF
    EXPECT_EQ(toWide("\xF5\xFF"), L"\uFFFD\uFFFD");
    EXPECT_EQ(toWide("ok\xF0\x9F\x98"), L"ok\uFFFD"); // truncated at the end
    EXPECT_EQ(toWide("\xE2\x82z"), L"\uFFFDz");       // truncated in the middle

    const std::string bad = "abc\xE2\x82z";
    EXPECT_EQ(Tessel::validUtf8Length(bad.data(), static_cast<long>(bad.size())), 3);
    const char eight[8] = {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'}; // no NUL behind
    EXPECT_EQ(Tessel::validUtf8Length(eight, 8), 8);
}

TEST(TesselUtf, InvalidWideUnitsBecomeReplacement) {
    const wchar_t text[] = {L'a', 0xD800, L'b', 0xDFFF, 0x110000, -1, 0x10FFFF, 0};
    EXPECT_EQ(toUtf8(text), "a\xEF\xBF\xBD"
                            "b\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xF4\x8F\xBF\xBF");
    EXPECT_EQ(Tessel::validUtf32Length(text, 7), 1);

    // Output larger than the inline storage of the buffer.
    const std::wstring big(1000, L'\u4E2D');
    FlexBuff<char> out;
    EXPECT_EQ(Tessel::utf16ToUtf8(big.c_str(), -1, out), 3000);
    EXPECT_FALSE(out.isInline());
    EXPECT_EQ(toWide(std::string(out.data(), 3000)), big);
}
