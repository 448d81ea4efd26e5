#include <grafel/foundation/CmdOStream.h>
#include <grafel/foundation/NumberFormat.h>
#include <grafel/foundation/Points.h>
#include <grafel/foundation/ScalarText.h>
#include <grafel/foundation/TextRun.h>
#include <grafel/foundation/Tokens.h>

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <functional>
#include <iomanip>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using namespace Grafel;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int randomScale = 10; // the sanitizer build runs an order of magnitude slower
#else
constexpr int randomScale = 1;
#endif

double fromBits(std::uint64_t bits) {
    return std::bit_cast<double>(bits);
}

/// Values where formatting goes wrong first: zeros, the ends of the range, the edges of the
/// fixed form, non-finite values, and exact ties at the seventh significant digit.
std::vector<double> edgeCases() {
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double tiny = std::numeric_limits<double>::denorm_min();
    const double bigDenormal = fromBits(0x000fffffffffffff);
    const double signalling = fromBits(0x7ff0000000000001), payload = fromBits(0xfff8000000000042);
    const double third = 1.0 / 3.0, twoThirds = 2.0 / 3.0;
    // clang-format off
    std::vector<double> v{0.0, -0.0, tiny, -tiny, bigDenormal, DBL_MIN, DBL_MAX, -DBL_MAX,
        DBL_EPSILON, 1e-5, 1e-4, 0.0001234565, 123456, 1234567, 999999.5, 9999995, 999999, 1e21,
        1e22, 1e-320, inf, -inf, nan, -nan, signalling, payload, 0.1, third, twoThirds,
        123456789.123, 0.30000000000000004};
    // clang-format on
    // Exact ties: seven significant digits ending in 5, as integers, halves and quarters, and
    // scaled up by powers of ten while still exact.
    for (std::int64_t m : {1000005LL, 1234565LL, 1234575LL, 9999995LL, 5555555LL, 2500025LL}) {
        v.push_back(static_cast<double>(m));
        v.push_back(static_cast<double>(m) / 10);
        v.push_back(-static_cast<double>(m) / 10);
        for (double scale = 10; scale < 1e9; scale *= 10)
            v.push_back(static_cast<double>(m) * scale);
    }
    for (std::int64_t m : {1234525LL, 1234575LL, 9999975LL, 1000025LL}) v.push_back(m / 100.0);
    v.insert(v.end(), {0.125, 2.5, 0.5});
    for (int e = -1074; e <= 1023; e += 37) v.push_back(std::ldexp(1.0, e));
    return v;
}

std::string byOperator(const std::vector<double>& values,
                       const std::function<void(std::ostream&)>& setUp) {
    std::ostringstream out;
    setUp(out);
    for (double v : values) out << '|' << v;
    return out.str();
}

std::string byRun(const std::vector<double>& values,
                  const std::function<void(std::ostream&)>& setUp) {
    std::ostringstream out;
    setUp(out);
    TextRun run(out);
    for (double v : values) run << '|' << v;
    run.flush();
    return out.str();
}

std::string byPutNumber(const std::vector<double>& values,
                        const std::function<void(std::ostream&)>& setUp) {
    std::ostringstream out;
    setUp(out);
    for (double v : values) {
        out << '|';
        putNumber(out, v);
    }
    return out.str();
}

std::string exactText(double value) {
    char text[maxNumberChars];
    return std::string(text, NumberFormat::formatExact(text, value, 6));
}

std::string generalText(double value, int precision) {
    char text[maxNumberChars];
    return std::string(text, NumberFormat::formatGeneral(text, value, precision));
}

/// The first of `values` written differently by `a` and `b`, for a readable failure.
std::string firstDifference(const std::vector<double>& values,
                            const std::function<std::string(const std::vector<double>&)>& a,
                            const std::function<std::string(const std::vector<double>&)>& b) {
    for (double v : values)
        if (a({v}) != b({v})) return a({v}) + " vs " + b({v});
    return "no single value differs";
}

} // namespace

TEST(NumberFormat, EdgeCasesMatchOperatorAtEveryPrecision) {
    const std::vector<double> values = edgeCases();
    for (int precision : {6, -1, 0, 1, 2, 3, 7, 10, 15, 16, 17, 20, 24, 25, 40}) {
        auto setUp = [precision](std::ostream& out) { out.precision(precision); };
        EXPECT_EQ(byRun(values, setUp), byOperator(values, setUp))
            << "precision " << precision << ": "
            << firstDifference(
                   values, [&](auto& v) { return byRun(v, setUp); },
                   [&](auto& v) { return byOperator(v, setUp); });
        EXPECT_EQ(byPutNumber(values, setUp), byOperator(values, setUp)) << precision;
    }
    EXPECT_TRUE(NumberFormat(std::ostringstream()).direct());
}

// Any state but the default one goes through operator<<, piece by piece: a field width
// applies to the first piece only, as it does with <<.
TEST(NumberFormat, OtherStreamStatesWriteWhatOperatorWrites) {
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        std::string do_grouping() const override { return "\3"; }
        char do_thousands_sep() const override { return '.'; }
    };
    const std::vector<std::function<void(std::ostream&)>> states = {
        [](std::ostream& o) { o << std::showpos; },
        [](std::ostream& o) { o << std::fixed; },
        [](std::ostream& o) { o << std::scientific << std::uppercase; },
        [](std::ostream& o) { o << std::hexfloat; },
        [](std::ostream& o) { o << std::showpoint; },
        [](std::ostream& o) { o << std::setw(12) << std::setfill('*'); },
        [](std::ostream& o) { o << std::unitbuf; },
        [](std::ostream& o) { o.imbue(std::locale(std::locale::classic(), new Comma)); },
    };
    std::vector<double> values = edgeCases();
    values.resize(40);
    for (std::size_t i = 0; i < states.size(); ++i) {
        std::ostringstream probe;
        states[i](probe);
        EXPECT_FALSE(NumberFormat(probe).direct()) << "state " << i;
        EXPECT_EQ(byRun(values, states[i]), byOperator(values, states[i])) << "state " << i;
    }
    // Flags that do not touch numbers keep the fast path.
    std::ostringstream out;
    out << std::hex << std::boolalpha << std::left;
    EXPECT_TRUE(NumberFormat(out).direct());
    // A failed stream stays failed and gets nothing.
    out.setstate(std::ios_base::failbit);
    putNumber(out, 1.5);
    EXPECT_EQ(out.str(), "");
}

TEST(NumberFormat, RandomBitPatternsMatchOperator) {
    std::mt19937_64 random(20240611);
    const int batches = 150 / randomScale;
    std::vector<double> values(10000);
    auto setUp = [](std::ostream&) {};
    for (int b = 0; b < batches; ++b) {
        for (double& v : values) v = fromBits(random());
        ASSERT_EQ(byRun(values, setUp), byOperator(values, setUp)) << firstDifference(
            values, [&](auto& v) { return byRun(v, setUp); },
            [&](auto& v) { return byOperator(v, setUp); });
    }
    // Other precisions, fewer values.
    for (int precision : {1, 3, 10, 17}) {
        auto withPrecision = [precision](std::ostream& out) { out.precision(precision); };
        for (double& v : values) v = fromBits(random());
        ASSERT_EQ(byRun(values, withPrecision), byOperator(values, withPrecision)) << precision;
    }
}

TEST(NumberFormat, ExactModeReadsBackAndKeepsTheDefaultWhereThatIsExact) {
    EXPECT_EQ(exactText(123456789.123), "123456789.123");
    EXPECT_EQ(generalText(123456789.123, 6), "1.23457e+08");
    EXPECT_EQ(exactText(0.1), "0.1");
    EXPECT_EQ(exactText(1e21), "1e+21");
    EXPECT_EQ(exactText(0.30000000000000004), "0.30000000000000004");
    EXPECT_EQ(exactText(std::numeric_limits<double>::denorm_min()), "4.94066e-324");
    EXPECT_EQ(exactText(-std::numeric_limits<double>::quiet_NaN()), "-nan");
    EXPECT_EQ(exactText(-std::numeric_limits<double>::infinity()), "-inf");

    // Each number reads back bit for bit through the readers' own parse, with the smallest
    // precision of at least six that does, which is the default text when that reads back.
    auto check = [](double v) -> ::testing::AssertionResult {
        if (std::isnan(v)) return ::testing::AssertionSuccess();
        const std::string text = exactText(v);
        double back = 0;
        if (!parseValue(text.c_str(), back) ||
            std::bit_cast<std::uint64_t>(back) != std::bit_cast<std::uint64_t>(v))
            return ::testing::AssertionFailure() << text << " does not read back";
        const int precision = NumberFormat::exactPrecision(v, 6);
        if (text != generalText(v, precision))
            return ::testing::AssertionFailure() << text << " is not %." << precision << "g";
        if (precision > 6) {
            const std::string shorter = generalText(v, precision - 1);
            double other = 0;
            if (parseValue(shorter.c_str(), other) && other == v)
                return ::testing::AssertionFailure() << shorter << " already reads back";
        }
        return ::testing::AssertionSuccess();
    };
    for (double v : edgeCases()) ASSERT_TRUE(check(v));
    // Powers of two and their neighbours, where the rounding interval is lopsided.
    for (int e = -1074; e <= 1023; ++e) {
        const double p = std::ldexp(1.0, e);
        ASSERT_TRUE(check(p));
        ASSERT_TRUE(check(std::nextafter(p, 0.0)));
        ASSERT_TRUE(check(-std::nextafter(p, INFINITY)));
    }
    std::mt19937_64 random(7);
    for (int i = 0; i < 200000 / randomScale; ++i) ASSERT_TRUE(check(fromBits(random())));
}

TEST(NumberFormat, ExactModeIsAStreamManipulator) {
    std::ostringstream out;
    EXPECT_FALSE(hasExactNumbers(out));
    out << exactNumbers;
    EXPECT_TRUE(hasExactNumbers(out));
    EXPECT_TRUE(NumberFormat(out).exact());
    putXmlValue(out, 123456789.123);
    out << ' ';
    putCmdValue(out, P2(0.1, 2.0 / 3.0));
    out << streamNumbers << ' ';
    putXmlValue(out, 123456789.123);
    EXPECT_EQ(out.str(), "123456789.123 [0.1,0.6666666666666666] 1.23457e+08");

    // In another state the stream's format keeps its say, with the precision raised.
    std::ostringstream plus;
    plus << exactNumbers << std::showpos;
    putNumber(plus, 123456789.123);
    plus << ' ';
    putNumber(plus, 0.5);
    EXPECT_EQ(plus.str(), "+123456789.123 +0.5");
    // A higher precision than the default is kept as the least.
    std::ostringstream precise;
    precise << exactNumbers;
    precise.precision(10);
    putNumber(precise, 2.0 / 3.0);
    precise << ' ';
    putNumber(precise, 0.25);
    EXPECT_EQ(precise.str(), "0.6666666666666666 0.25");
}

// Command text collects what is written inside items; whatever goes straight to the stream
// still lands in order, and all of it is there when the outermost item ends.
TEST(NumberFormat, CommandStreamKeepsTheOrderOfDirectWrites) {
    for (bool plain : {true, false}) {
        std::ostringstream text;
        if (!plain) text << std::showpoint;
        CmdOStream out(text, tok_MM);
        out << "plot(";
        EXPECT_EQ(text.str(), "plot(");
        out.beginItem();
        out << tok_Width << '=' << 1.5;
        putCmdValue(out.stream(), RGBA(255, 0, 0, 255));
        out << ',';
        out.putSize(2.0);
        out.endItem();
        EXPECT_EQ(text.str(), plain ? "plot(  Width=1.5[1,0,0],2"
                                    : "plot(  Width=1.50000[1.00000,0.00000,0.00000],2.00000");
    }
}
