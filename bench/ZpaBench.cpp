// Loading large Zpa inputs (a million coloured points in space, a 1000 x 1000 surface) against a
// plain loop that reads the same lines with std::from_chars into arrays, in the same iteration;
// the same through the per-character virtual path; and how the load time grows with the input.
#include <grafel/document/P3List.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/document/ZpaSources.h>
#include <grafel/foundation/Rgba.h>
#include <grafel/properties/ElementRegistry.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PropertyTypes.h>

#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace Grafel;

// Stand-ins for the space primitives the records build, registered only while a benchmark runs
// and only where the build has no class of its own for the tag.
#define ZPA_BENCH_POLY_TABLE(P)                                                                    \
    P(Optional, BoolProperty, Filled, false, false)                                                \
    P(Optional, BoolProperty, Closed, false, false)                                                \
    P(Optional, BoolProperty, PointsVisible, false, false)                                         \
    P(Optional, BoolProperty, LinesVisible, false, false)
#define ZPA_BENCH_MESH_TABLE(P)                                                                    \
    P(Optional, LongProperty, UMesh, 2L, 2L)                                                       \
    P(Optional, LongProperty, VMesh, 2L, 2L)                                                       \
    P(Optional, LongProperty, USubmesh, 0L, 0L)                                                    \
    P(Optional, LongProperty, VSubmesh, 0L, 0L)

class BenchPoly3d : public P3List {
public:
    explicit BenchPoly3d(Arbor::Document* d) : P3List(d) {}
    Arbor::Token tagName() const override { return tok_Poly3d; }
    Arbor::Node* cloneNode(bool) const override { return new BenchPoly3d(*this); }
    static PlotElement* create(Arbor::Document* d) { return new BenchPoly3d(d); }
    GRAFEL_MEMBER_PROPERTIES(BenchPoly3d, ZPA_BENCH_POLY_TABLE)
};
GRAFEL_DEFINE_MEMBER_PROPERTIES(BenchPoly3d, ZPA_BENCH_POLY_TABLE)

class BenchMesh3d : public P3List {
public:
    explicit BenchMesh3d(Arbor::Document* d) : P3List(d) {}
    Arbor::Token tagName() const override { return tok_Mesh3d; }
    Arbor::Node* cloneNode(bool) const override { return new BenchMesh3d(*this); }
    static PlotElement* create(Arbor::Document* d) { return new BenchMesh3d(d); }
    GRAFEL_MEMBER_PROPERTIES(BenchMesh3d, ZPA_BENCH_MESH_TABLE)
};
GRAFEL_DEFINE_MEMBER_PROPERTIES(BenchMesh3d, ZPA_BENCH_MESH_TABLE)

class BenchClasses {
public:
    BenchClasses() {
        standIn(id_Poly3d, &BenchPoly3d::create);
        standIn(id_Mesh3d, &BenchMesh3d::create);
    }
    ~BenchClasses() {
        for (auto [id, maker] : saved_) registerElementClass(id, maker);
    }
    BenchClasses(const BenchClasses&) = delete;
    BenchClasses& operator=(const BenchClasses&) = delete;

private:
    void standIn(int id, ElementMaker maker) {
        if (elementMaker(id)) return;
        saved_.emplace_back(id, nullptr);
        registerElementClass(id, maker);
    }
    std::vector<std::pair<int, ElementMaker>> saved_;
};

// The per-character path: a virtual call for each character, as a host writes it.
class CharParser : public ZpaParser {
public:
    CharParser(PlotDocument* document, const std::string& text)
        : ZpaParser(document), p_(text.data()), end_(text.data() + text.size()) {}
    bool readChar(int& c) override {
        if (p_ == end_) return false;
        c = static_cast<unsigned char>(*p_++);
        return true;
    }

private:
    const char* p_;
    const char* end_;
};

std::string number(double v) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.6g", v);
    return buffer;
}

// One primitive list with one polygon of `n` coloured points: "x y z r g b" per line.
const std::string& pointsText(long n) {
    static std::map<long, std::string> texts;
    std::string& text = texts[n];
    if (!text.empty()) return text;
    std::mt19937 random(1);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    text = "Zeph-Ascii-Data\npoints\n3 1\n1\n1\n" + std::to_string(n) + " 1\n0 0\n";
    for (long i = 0; i < n; ++i) {
        text += number(unit(random) * 20 - 10) + ' ' + number(unit(random) * 20 - 10) + ' ' +
                number(unit(random) * 20 - 10) + ' ' + number(unit(random)) + ' ' +
                number(unit(random)) + ' ' + number(unit(random)) + '\n';
    }
    return text;
}

// A surface record with a `side` x `side` mesh: "x y z" per line.
const std::string& surfaceText(long side) {
    static std::map<long, std::string> texts;
    std::string& text = texts[side];
    if (!text.empty()) return text;
    const std::string s = std::to_string(side);
    text = "Zeph-Ascii-Data\nsurface\n3 1\n2\nu\nv\nsin(u*v)\n" + s + " 0\n" + s +
           " 0\nu\n0\n3\nv\n0\n3\n";
    for (long j = 0; j < side; ++j)
        for (long i = 0; i < side; ++i) {
            const double u = 3.0 * double(i) / double(side - 1);
            const double v = 3.0 * double(j) / double(side - 1);
            text += number(u) + ' ' + number(v) + ' ' + number(std::sin(u * v)) + '\n';
        }
    return text;
}

double cpuSeconds() {
    timespec t;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) + 1e-9 * double(t.tv_nsec);
}

// The baseline: the point lines after `skip` header lines, read with from_chars into arrays.
std::size_t fromCharsPass(const std::string& text, int skip, int fields) {
    std::vector<P3> points;
    std::vector<RGBA> colors;
    const char* p = text.data();
    const char* end = p + text.size();
    for (int i = 0; i < skip; ++i) p = static_cast<const char*>(std::memchr(p, '\n', end - p)) + 1;
    while (p != end) {
        const char* eol = static_cast<const char*>(std::memchr(p, '\n', end - p));
        double v[6];
        for (int f = 0; f < fields; ++f) {
            while (*p == ' ') ++p;
            p = std::from_chars(p, eol, v[f]).ptr;
        }
        points.push_back(P3(v[0], v[1], v[2]));
        if (fields == 6)
            colors.push_back(RGBA(static_cast<unsigned long>(v[3] * 255),
                                  static_cast<unsigned long>(v[4] * 255),
                                  static_cast<unsigned long>(v[5] * 255), 255));
        p = eol + 1;
    }
    return points.size() + colors.size();
}

template <class Parser> double timedLoad(const std::string& text) {
    PlotDocument doc;
    const double t0 = cpuSeconds();
    if constexpr (std::is_same_v<Parser, ZpaMemoryParser>) {
        ZpaMemoryParser parser(&doc, text.data(), text.size());
        if (!parser.parse()) return 0;
    } else {
        CharParser parser(&doc, text);
        if (!parser.parse()) return 0;
    }
    return cpuSeconds() - t0;
}

// Load (buffered and per character) against the from_chars loop, in the same iteration.
void versusFromChars(benchmark::State& state, const std::string& text, int skip, int fields) {
    BenchClasses classes;
    double baseline = 0;
    double buffered = 0;
    double perChar = 0;
    for (auto _ : state) {
        double t0 = cpuSeconds();
        benchmark::DoNotOptimize(fromCharsPass(text, skip, fields));
        baseline += cpuSeconds() - t0;
        const double b = timedLoad<ZpaMemoryParser>(text);
        const double c = timedLoad<CharParser>(text);
        if (b == 0 || c == 0) state.SkipWithError("the load failed");
        buffered += b;
        perChar += c;
        state.SetIterationTime(b);
    }
    state.counters["ratio_to_from_chars"] = buffered / baseline;
    state.counters["ratio_per_char_path"] = perChar / baseline;
    state.counters["from_chars_ms"] = 1e3 * baseline / double(state.iterations());
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(text.size()));
}

void ZpaColoredPoints(benchmark::State& state) {
    versusFromChars(state, pointsText(1000000), 7, 6);
}

void ZpaSurface(benchmark::State& state) {
    versusFromChars(state, surfaceText(1000), 14, 3);
}

// The load of 2N points over that of N (2.0 is linear).
void ZpaScaling(benchmark::State& state) {
    BenchClasses classes;
    const std::string& half = pointsText(500000);
    const std::string& full = pointsText(1000000);
    double t[2] = {};
    for (auto _ : state) {
        t[0] += timedLoad<ZpaMemoryParser>(half);
        t[1] += timedLoad<ZpaMemoryParser>(full);
        state.SetIterationTime(t[1]);
    }
    state.counters["ratio_2N_to_N"] = t[1] / t[0];
}

BENCHMARK(ZpaColoredPoints)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(ZpaSurface)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(ZpaScaling)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);

} // namespace
