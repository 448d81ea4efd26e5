// The object-type catalogue: the first lookup of each served type, which builds its entry, and
// a later one against a std::unordered_map lookup of the same token. Each iteration runs over
// all served types; "per_lookup" is the time of one lookup.
#include <grafel/catalogue/StdObjTypes.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/structure/ObjType.h>

#include <benchmark/benchmark.h>

#include <unordered_map>
#include <vector>

namespace {

const std::vector<Arbor::Token>& served() {
    static const std::vector<Arbor::Token> types = Grafel::servedObjTypes();
    return types;
}

void perLookup(benchmark::State& state) {
    state.counters["per_lookup"] = benchmark::Counter(
        static_cast<double>(served().size()),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Only the first run in a process builds the entries: one iteration, and no repetitions.
void BM_StdObjTypeFirstCall(benchmark::State& state) {
    for (auto _ : state)
        for (Arbor::Token type : served()) benchmark::DoNotOptimize(Grafel::getStdObjType(type));
    perLookup(state);
}
BENCHMARK(BM_StdObjTypeFirstCall)->Iterations(1);

// The same building, repeatable: every list into a fresh document.
void BM_StdObjTypeBuildAll(benchmark::State& state) {
    for (auto _ : state) {
        Grafel::PlotDocument doc;
        std::vector<Arbor::Ref<Grafel::ObjType>> entries;
        for (Arbor::Token type : served())
            entries.emplace_back(Grafel::buildObjTypeList(&doc, type));
        benchmark::DoNotOptimize(entries.data());
    }
    perLookup(state);
}
BENCHMARK(BM_StdObjTypeBuildAll);

void BM_StdObjTypeLaterCall(benchmark::State& state) {
    for (Arbor::Token type : served()) Grafel::getStdObjType(type);
    for (auto _ : state)
        for (Arbor::Token type : served()) benchmark::DoNotOptimize(Grafel::getStdObjType(type));
    perLookup(state);
}
BENCHMARK(BM_StdObjTypeLaterCall);

void BM_StdObjTypeUnorderedMap(benchmark::State& state) {
    std::unordered_map<const char*, Grafel::ObjType*> map;
    for (Arbor::Token type : served()) map.emplace(type.c_str(), Grafel::getStdObjType(type));
    for (auto _ : state)
        for (Arbor::Token type : served()) {
            const auto it = map.find(type.c_str());
            benchmark::DoNotOptimize(it == map.end() ? nullptr : it->second);
        }
    perLookup(state);
}
BENCHMARK(BM_StdObjTypeUnorderedMap);

} // namespace
