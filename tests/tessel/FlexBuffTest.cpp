#include <grafel/tessel/FlexBuff.h>

#include <gtest/gtest.h>

using Tessel::FlexBuff;

TEST(TesselFlexBuff, InlineUpTo256ThenExactHeap) {
    FlexBuff<char> buffer;
    EXPECT_TRUE(buffer.isInline());
    buffer.reserve(256);
    EXPECT_TRUE(buffer.isInline());
    EXPECT_EQ(buffer.capacity(), 256u);

    buffer.reserve(257);
    EXPECT_FALSE(buffer.isInline());
    EXPECT_EQ(buffer.capacity(), 257u);
    const auto heap = reinterpret_cast<std::uintptr_t>(buffer.data());
    buffer.reserve(10); // shrinking does nothing
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(buffer.data()), heap);
    EXPECT_EQ(buffer.capacity(), 257u);
    buffer.reserve(1000);
    EXPECT_EQ(buffer.capacity(), 1000u);

    // The wide form counts elements, not bytes.
    FlexBuff<wchar_t> wide;
    wide.reserve(256);
    EXPECT_TRUE(wide.isInline());
    wide.reserve(257);
    EXPECT_FALSE(wide.isInline());
    wide[256] = L'x'; // the whole allocation is usable
    EXPECT_EQ(wide[256], L'x');
}
