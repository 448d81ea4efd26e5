#include <grafel/foundation/PointArray.h>
#include <grafel/foundation/Points.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>

using Grafel::P3;
using Grafel::PointArray;

namespace {

P3 nth(std::size_t i) {
    return P3(double(i), -double(i), 0.5 * double(i));
}

bool holdsSequence(const PointArray<P3>& a, std::size_t n) {
    if (a.size() != n) return false;
    for (std::size_t i = 0; i < n; ++i)
        if (!(a[i] == nth(i))) return false;
    return true;
}

} // namespace

// Small blocks live on the heap and large ones are mappings; the values must survive every
// change between the two: growth across the threshold and beyond it, trimming above and below
// it, copies and moves.
TEST(PointArray, ValuesSurviveEveryKindOfBlockChange) {
    constexpr std::size_t many = 300000; // about 7 MB: well past the first mapping
    PointArray<P3> a;
    EXPECT_EQ(a.data(), nullptr);
    for (std::size_t i = 0; i < many; ++i) a.push_back(nth(i));
    ASSERT_TRUE(holdsSequence(a, many));
    EXPECT_GE(a.capacity(), many);

    PointArray<P3> copy(a);
    a.shrinkToFit();
    EXPECT_LT(a.capacity() * sizeof(P3), many * sizeof(P3) + 4096); // within a page
    EXPECT_TRUE(holdsSequence(a, many));
    EXPECT_TRUE(holdsSequence(copy, many));

    // From a mapping back to the heap, keeping what is left.
    a.clear();
    for (std::size_t i = 0; i < 10; ++i) a.push_back(nth(i));
    a.shrinkToFit();
    EXPECT_EQ(a.capacity(), 10u);
    EXPECT_TRUE(holdsSequence(a, 10));

    PointArray<P3> moved(std::move(copy));
    EXPECT_EQ(copy.size(), 0u);
    EXPECT_TRUE(holdsSequence(moved, many));
    moved = a;
    EXPECT_TRUE(holdsSequence(moved, 10));
    a.reset();
    EXPECT_EQ(a.data(), nullptr);
    EXPECT_THROW(a.at(0), std::out_of_range);
    a.reserve(many);
    EXPECT_GE(a.capacity(), many);
    EXPECT_EQ(a.size(), 0u);
}
