// Point lists at the scale of a sampled surface: the memory a million points take when pushed
// one by one, and writing them as XML against the same numbers and tags written by hand.
#include <grafel/document/P2List.h>
#include <grafel/properties/ElementDocument.h>

#include <benchmark/benchmark.h>

#include <ctime>
#include <sstream>

using namespace Grafel;
using Arbor::Ref;

namespace {

constexpr std::size_t million = 1'000'000;

// Processor time of this thread in seconds: the two cores are shared, and wall time would
// charge one side of a comparison with the other programs' turns.
double threadSeconds() {
    timespec t;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

// The least a concrete list needs: a tag and a copy.
class BenchRow : public P2List {
public:
    explicit BenchRow(Arbor::Document* d) : P2List(d) {}
    Arbor::Token tagName() const override { return getToken(id_Row1); }
    Arbor::Node* cloneNode(bool) const override { return new BenchRow(*this); }
};

P2 sample(std::size_t i) {
    const double t = static_cast<double>(i) * 1e-3;
    return P2(t, t * t - 0.5);
}

// Pushes a million points one at a time; the counters give the bytes of the storage against
// those of the bare coordinates, as pushed and after shrinkToFit.
void PushBackMillionMemory(benchmark::State& state) {
    ElementDocument doc;
    double capacityBytes = 0, shrunkBytes = 0, rawBytes = 0;
    for (auto _ : state) {
        Ref<BenchRow> row = new BenchRow(&doc);
        for (std::size_t i = 0; i < million; ++i) row->push_back(sample(i));
        capacityBytes = static_cast<double>(row->capacity() * sizeof(P2));
        rawBytes = static_cast<double>(row->size() * sizeof(P2));
        row->shrinkToFit();
        shrunkBytes = static_cast<double>(row->capacity() * sizeof(P2));
        benchmark::DoNotOptimize(row->points());
    }
    state.counters["rawBytes"] = rawBytes;
    state.counters["capacityBytes"] = capacityBytes;
    state.counters["shrunkBytes"] = shrunkBytes;
    state.counters["ratio"] = capacityBytes / rawBytes;
    state.counters["ratioShrunk"] = shrunkBytes / rawBytes;
    state.counters["elementBytes"] = sizeof(BenchRow);
}
BENCHMARK(PushBackMillionMemory)->Unit(benchmark::kMillisecond);

// putXml of a million points against a loop that writes the same tags and numbers with the
// stream's operator<<, each to a fresh ostringstream, both in every iteration so that they see
// the same machine state. The counter "ratio" is putXml's time over the loop's.
template <bool Colored> void PutXmlVsLoop(benchmark::State& state) {
    ElementDocument doc;
    Ref<BenchRow> row = new BenchRow(&doc);
    row->reserve(million, Colored);
    for (std::size_t i = 0; i < million; ++i) {
        if constexpr (Colored)
            row->push_back(sample(i), RGBA(i & 0xFF, i >> 8 & 0xFF, 128, 255));
        else
            row->push_back(sample(i));
    }

    double listTime = 0, loopTime = 0;
    std::streamoff listBytes = 0, loopBytes = 0;
    auto byList = [&] {
        std::ostringstream out;
        const double start = threadSeconds();
        row->putXml(out);
        listTime += threadSeconds() - start;
        listBytes = out.tellp();
    };
    auto byLoop = [&] {
        std::ostringstream out;
        const double start = threadSeconds();
        const P2* p = row->points();
        const RGBA* c = row->colors();
        out << "<Row1>";
        for (std::size_t i = 0; i < million; ++i) {
            out << "<P2>" << p[i].x << ' ' << p[i].y;
            if constexpr (Colored) out << ' ' << c[i];
            out << "</P2>";
        }
        out << "</Row1>";
        loopTime += threadSeconds() - start;
        loopBytes = out.tellp();
    };
    bool listFirst = true;
    for (auto _ : state) {
        // Which side runs first changes each time, so that neither always meets the heap as
        // the other left it.
        if (listFirst) {
            byList();
            byLoop();
        } else {
            byLoop();
            byList();
        }
        listFirst = !listFirst;
    }
    const double n = static_cast<double>(state.iterations());
    state.counters["putXml_ms"] = listTime * 1e3 / n;
    state.counters["loop_ms"] = loopTime * 1e3 / n;
    state.counters["ratio"] = listTime / loopTime;
    state.counters["sameBytes"] = listBytes == loopBytes;
}
BENCHMARK(PutXmlVsLoop<false>)
    ->Name("PutXmlVsLoop/plain")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->Iterations(6);
BENCHMARK(PutXmlVsLoop<true>)
    ->Name("PutXmlVsLoop/colored")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->Iterations(6);

} // namespace
