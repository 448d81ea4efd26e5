#include <grafel/foundation/NaN.h>
#include <grafel/foundation/ValueVariants.h>

#include <gtest/gtest.h>

using namespace Grafel;
using Arbor::Variant;

TEST(ValueVariants, EqualityNeedsTheSameClass) {
    const P2Variant p2(P2(1, 2));
    const P3Variant p3(P3(1, 2, 0));
    const Variant& a = p2;
    const Variant& b = p3;
    EXPECT_NE(a, b);
    EXPECT_NE(b, a);
    EXPECT_NE(a, Variant());
    EXPECT_NE(Variant(RGBAVariant(RGBA::Black)), Variant(FontStyleVariant()));
    EXPECT_EQ(a, Variant(P2Variant(P2(1, 2))));
    EXPECT_NE(a, Variant(P2Variant(P2(1, 3))));
}

TEST(ValueVariants, HeapCopiesAreDeep) {
    P2Variant a(P2(1, 2));
    P2Variant b(a);
    EXPECT_NE(&a.val(), &b.val());
    EXPECT_EQ(a, b);

    // A copy made through the kernel's base class copies the point too.
    const Variant generic = a;
    const P2Variant* back = generic.as<P2Variant>();
    ASSERT_NE(back, nullptr);
    EXPECT_NE(&back->val(), &a.val());
    const P2& viewed = *back;
    EXPECT_EQ(viewed, P2(1, 2));

    b = P2Variant(P2(3, 4));
    EXPECT_EQ(a.val(), P2(1, 2));
    EXPECT_TRUE(a < b);
    EXPECT_FALSE(b < a);

    FontStyleVariant f;
    EXPECT_EQ(f.val(), FontStyle::standard());
    FontStyleVariant g = f;
    EXPECT_NE(&f.val(), &g.val());
    g = FontStyleVariant(FontStyle(Tessel::FixedWString(L"Arial"), 8, false, false, RGBA::White,
                                   FontStyle::standard().alignment()));
    EXPECT_EQ(f.val(), FontStyle::standard());
    EXPECT_TRUE(g < f); // "Arial" orders before "Times"
}

TEST(ValueVariants, OnePayloadEqualsItselfEvenWithNaN) {
    const P2Variant n(P2(NaN(), 0));
    EXPECT_EQ(n, n); // the same copy
    EXPECT_FALSE(n < n);
    const P2Variant m(n);
    EXPECT_NE(n, m); // two copies compare by value, and NaN equals nothing
    EXPECT_FALSE(n < m);
    EXPECT_FALSE(m < n);
}

TEST(ValueVariants, ColourLivesInTheWord) {
    const Arbor::VariantClass* cls = RGBAVariant::runtimeClass();
    EXPECT_TRUE(!cls->destroy && !cls->copy && !cls->equal && !cls->less);

    const RGBAVariant red(RGBA(255, 0, 0, 255));
    const RGBAVariant copy = red;
    EXPECT_EQ(copy.val(), RGBA(255, 0, 0, 255));
    EXPECT_EQ(copy, red);
    EXPECT_NE(copy, RGBAVariant(RGBA::White));
    // The kernel orders plain words as unsigned, which is the colour's own order.
    EXPECT_TRUE(Variant(RGBAVariant(RGBA(255, 255, 255, 0x7F))) <
                Variant(RGBAVariant(RGBA::Black)));
    EXPECT_FALSE(Variant(RGBAVariant(RGBA::Black)) < Variant(RGBAVariant(RGBA(0, 0, 0, 0x7F))));
}
