#include <grafel/tessel/Converter.h>

#include <gtest/gtest.h>

#include <utility>

using Tessel::NarrowToWideConverter;
using Tessel::WideToNarrowConverter;

TEST(TesselConverter, Utf8SubstitutesOrStops) {
    const std::string bad = "ab\xC3(cd\xFF";
    EXPECT_EQ(toWideString(bad, NarrowToWideConverter("UTF-8", true)), L"ab\uFFFD(cd\uFFFD");
    EXPECT_EQ(toWideString(bad, NarrowToWideConverter("utf8", false)), L"ab");
    EXPECT_EQ(toWideString(std::string("a\0b", 3), NarrowToWideConverter("utf-8", true)),
              std::wstring(L"a\0b", 3));

    const std::wstring wide = {L'x', static_cast<wchar_t>(0xD800), L'\u00E9'};
    EXPECT_EQ(toNarrowString(wide, WideToNarrowConverter("UTF-8", true)), "x\xEF\xBF\xBD\xC3\xA9");
    EXPECT_EQ(toNarrowString(wide, WideToNarrowConverter("UTF-8", false)), "x");
}

TEST(TesselConverter, OtherEncodingsGoThroughIconv) {
    NarrowToWideConverter fromLatin1("ISO-8859-1", true);
    WideToNarrowConverter toLatin1("ISO-8859-1", true);
    EXPECT_EQ(fromLatin1.encoding(), "ISO-8859-1");
    EXPECT_EQ(toWideString("caf\xE9", fromLatin1), L"caf\u00E9");
    EXPECT_EQ(toNarrowString(L"caf\u00E9 \u4E2D!", toLatin1), "caf\xE9 ?!");
    EXPECT_EQ(toNarrowString(L"caf\u00E9 \u4E2D!", WideToNarrowConverter("ISO-8859-1", false)),
              "caf\xE9 ");

    // Malformed and truncated input in a multibyte encoding.
    NarrowToWideConverter fromEucJp("EUC-JP", true);
    EXPECT_EQ(toWideString("a\xA4\xA2"
                           "b\xFF"
                           "c\xA4",
                           fromEucJp),
              L"a\u3042b\uFFFDc\uFFFD");
    EXPECT_EQ(toWideString("a\xA4\xA2"
                           "b\xFF"
                           "c",
                           NarrowToWideConverter("EUC-JP", false)),
              L"a\u3042b");

    // A stateful encoding: the substitute is written in step with the shift state, and the
    // text ends in the initial state.
    WideToNarrowConverter toJis("ISO-2022-JP", true);
    const std::string jis = toNarrowString(L"\u3042\u00E9\u3044x", toJis);
    EXPECT_EQ(toWideString(jis, NarrowToWideConverter("ISO-2022-JP", true)), L"\u3042?\u3044x");
    EXPECT_EQ(toNarrowString(L"\u3042\u00E9\u3044x", toJis), jis); // state reset on each call
    const std::string cut =
        toNarrowString(L"\u3042\u00E9", WideToNarrowConverter("ISO-2022-JP", false));
    EXPECT_EQ(cut.substr(cut.size() - 3), "\x1B(B"); // back to ASCII after the stop

    // Big input passes the internal block size.
    const std::wstring big(5000, L'\u00E9');
    EXPECT_EQ(toWideString(toNarrowString(big, toLatin1), fromLatin1), big);
}

TEST(TesselConverter, UnknownEncodingFallsBackAndCopiesWork) {
    NarrowToWideConverter unknown("NO-SUCH-ENCODING-42", true);
    EXPECT_EQ(unknown.encoding(), "UTF-8");
    EXPECT_EQ(toWideString("\xC3\xA9", unknown), L"\u00E9");
    EXPECT_EQ(NarrowToWideConverter(nullptr, true).encoding(), "UTF-8");

    WideToNarrowConverter original("ISO-8859-15", true);
    WideToNarrowConverter copy(original);
    WideToNarrowConverter assigned("UTF-8", false);
    assigned = copy;
    WideToNarrowConverter moved(std::move(original));
    EXPECT_EQ(toNarrowString(L"\u20AC", copy), "\xA4");
    EXPECT_EQ(toNarrowString(L"\u20AC", assigned), "\xA4");
    EXPECT_EQ(toNarrowString(L"\u20AC", moved), "\xA4");
    EXPECT_TRUE(assigned.substitutes());
}
