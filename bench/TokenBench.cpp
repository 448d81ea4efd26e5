// The two token lookups against the plain containers they stand in for: getTokenId against a
// hash map over the same texts, getToken against an array of the same words. Each iteration
// runs over the whole catalogue; "per_lookup" is the time of one lookup.
#include <grafel/foundation/Tokens.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace {

// Copies of the catalogue texts, apart from the interned ones, as a reader would hold them.
const std::vector<std::string>& catalogueTexts() {
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> out;
        for (int id = 1; id <= Grafel::tokenCount; ++id) out.emplace_back(Grafel::getToken(id));
        return out;
    }();
    return texts;
}

void perLookup(benchmark::State& state) {
    state.counters["per_lookup"] =
        benchmark::Counter(Grafel::tokenCount, benchmark::Counter::kIsIterationInvariantRate |
                                                   benchmark::Counter::kInvert);
}

void BM_TokenIdPerfectHash(benchmark::State& state) {
    const auto& texts = catalogueTexts();
    for (auto _ : state)
        for (const std::string& text : texts)
            benchmark::DoNotOptimize(Grafel::getTokenId(text.c_str()));
    perLookup(state);
}
BENCHMARK(BM_TokenIdPerfectHash);

void BM_TokenIdUnorderedMap(benchmark::State& state) {
    const auto& texts = catalogueTexts();
    std::unordered_map<std::string_view, int> ids;
    for (std::size_t i = 0; i < texts.size(); ++i) ids.emplace(texts[i], static_cast<int>(i) + 1);
    for (auto _ : state)
        for (const std::string& text : texts) {
            // From a C string, as getTokenId gets it: the length is part of the work.
            const auto it = ids.find(std::string_view(text.c_str()));
            benchmark::DoNotOptimize(it == ids.end() ? 0 : it->second);
        }
    perLookup(state);
}
BENCHMARK(BM_TokenIdUnorderedMap);

// Both loops sum the words, so that every load has to happen; hiding the id from the compiler
// keeps the bounds check of getToken and stops the plain loop from being vectorised.
void BM_TokenGetter(benchmark::State& state) {
    for (auto _ : state) {
        std::uintptr_t sum = 0;
        for (int id = 1; id <= Grafel::tokenCount; ++id) {
            benchmark::DoNotOptimize(id);
            sum += Grafel::getToken(id).word();
        }
        benchmark::DoNotOptimize(sum);
    }
    perLookup(state);
}
BENCHMARK(BM_TokenGetter);

void BM_TokenPlainArray(benchmark::State& state) {
    const char* words[Grafel::tokenCount + 1] = {};
    for (int id = 1; id <= Grafel::tokenCount; ++id) words[id] = Grafel::getToken(id);
    benchmark::DoNotOptimize(words);
    for (auto _ : state) {
        std::uintptr_t sum = 0;
        for (int id = 1; id <= Grafel::tokenCount; ++id) {
            benchmark::DoNotOptimize(id);
            sum += reinterpret_cast<std::uintptr_t>(words[id]);
        }
        benchmark::DoNotOptimize(sum);
    }
    perLookup(state);
}
BENCHMARK(BM_TokenPlainArray);

} // namespace
