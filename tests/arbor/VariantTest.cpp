#include <grafel/arbor/Variant.h>

#include <gtest/gtest.h>

using namespace Arbor;

namespace {
// A plain-word type of its own, with an all-null class table.
class WordVariant : public Variant {
public:
    explicit WordVariant(unsigned v) : Variant(runtimeClass()) { new (payload()) unsigned(v); }
    unsigned val() const { return word<unsigned>(); }
    static const VariantClass* runtimeClass() {
        static const VariantClass table{nullptr, nullptr, nullptr, nullptr};
        return &table;
    }
};
} // namespace

TEST(Variant, PlainWordsCompareBitwiseAndStayWithinTheVariant) {
    WordVariant a(7), b(7), c(8);
    EXPECT_EQ(a, b);
    EXPECT_NE(a, c);
    EXPECT_TRUE(a < c);
    Variant copy = a;
    EXPECT_EQ(copy, a);
    EXPECT_EQ(copy.as<WordVariant>()->val(), 7u);
    EXPECT_EQ(sizeof(Variant), 2 * sizeof(void*));
    // Same bits, different class: not equal.
    EXPECT_NE(Variant(LongVariant(1)), Variant(BoolVariant(true)));
    EXPECT_NE(Variant(), Variant(LongVariant(0)));
    EXPECT_EQ(Variant(), Variant());
}

TEST(Variant, DynamicCastAndTypedValues) {
    Variant v = DoubleVariant(2.5);
    EXPECT_EQ(v.dynamicCast(DoubleVariant::runtimeClass()), &v);
    EXPECT_EQ(v.dynamicCast(LongVariant::runtimeClass()), nullptr);
    EXPECT_EQ(v.as<LongVariant>(), nullptr);
    EXPECT_EQ(v.as<DoubleVariant>()->val(), 2.5);
}

TEST(Variant, StringsShareTheirTextAndCompareByIt) {
    Tessel::FixedStringBase<char> s("hello");
    {
        FixedStringVariant a(s);
        Variant b = a;
        EXPECT_EQ(s.useCount(), 3);
        EXPECT_EQ(b, FixedStringVariant(Tessel::FixedStringBase<char>("hello")));
        EXPECT_TRUE(FixedStringVariant(Tessel::FixedStringBase<char>("a")) < b);
        Variant moved = std::move(b);
        EXPECT_EQ(s.useCount(), 3);
        EXPECT_TRUE(b.isEmpty());
        moved = LongVariant(1); // the string reference goes with the old value
        EXPECT_EQ(s.useCount(), 2);
    }
    EXPECT_EQ(s.useCount(), 1);
    FixedUStringVariant w(Tessel::FixedStringBase<wchar_t>(L"wide"));
    EXPECT_NE(Variant(w), Variant(FixedStringVariant(Tessel::FixedStringBase<char>("wide"))));
    EXPECT_STREQ(w.val().c_str(), L"wide");
}
