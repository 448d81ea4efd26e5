// GCC 12 cannot see that a shared count stays above zero while another copy lives, and
// reports the reads of the count after a copy dies as a use after free.
#pragma GCC diagnostic ignored "-Wuse-after-free"

#include <grafel/tessel/FixedString.h>

#include <gtest/gtest.h>

#include <utility>

using Tessel::FixedString;
using Tessel::FixedWString;

TEST(TesselFixedString, SharingAndRelease) {
    FixedString a("shared");
    EXPECT_EQ(a.useCount(), 1);
    {
        FixedString b = a;
        FixedString c;
        c = b;
        EXPECT_EQ(b.c_str(), a.c_str()); // one block, not a copy of the text
        EXPECT_EQ(a.useCount(), 3);
        c = c; // self-assignment keeps the count
        EXPECT_EQ(a.useCount(), 3);
        FixedString d = std::move(c);
        EXPECT_TRUE(c.isNull());
        EXPECT_EQ(a.useCount(), 3);
    }
    EXPECT_EQ(a.useCount(), 1);
    a = FixedString("other");
    EXPECT_STREQ(a.c_str(), "other");

    FixedString part("abcdef", 3);
    EXPECT_STREQ(part.c_str(), "abc");
    EXPECT_EQ(part.size(), 3u);
}

TEST(TesselFixedString, NullEmptyAndComparison) {
    FixedString null1;
    FixedString null2(static_cast<const char*>(nullptr));
    FixedString empty("");
    EXPECT_TRUE(null2.isNull());
    EXPECT_STREQ(null1.text(), "");
    EXPECT_EQ(null1.c_str(), nullptr);
    EXPECT_EQ(null1.useCount(), 0);
    EXPECT_TRUE(null1.empty() && empty.empty());
    EXPECT_FALSE(empty.isNull());

    EXPECT_EQ(null1, null2);
    EXPECT_NE(null1, empty); // null and empty differ
    EXPECT_TRUE(null1 < empty);
    EXPECT_FALSE(empty < null1);
    EXPECT_EQ(FixedString("abc"), FixedString("abc")); // different blocks, same text
    EXPECT_TRUE(FixedString("abc") < FixedString("abd"));
    EXPECT_FALSE(FixedString("abc") < FixedString("abc"));

    FixedWString wide(L"\u00E9t\u00E9");
    EXPECT_EQ(wide.size(), 3u);
    EXPECT_EQ(wide, FixedWString(std::wstring_view(L"\u00E9t\u00E9")));
    EXPECT_NE(wide, FixedWString(L"ete"));
}
