// What the benchmarks measure alike: processor time, the process's memory as the system counts
// it, and a pass of the bare XML parser over a text, as the baseline of a load.
#pragma once

#include <grafel/document/PlotDocument.h>
#include <grafel/document/ZpxParser.h>
#include <grafel/document/ZpxParserHandler.h>

#include <benchmark/benchmark.h>
#include <expat.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <sstream>
#include <string>

namespace BenchMeasure {

/// Processor time of this process: the machine may be shared, and the ratios should not depend
/// on what else runs.
inline double cpuSeconds() {
    return double(std::clock()) / CLOCKS_PER_SEC;
}

/// A line of /proc/self/status in bytes ("VmRSS:", "VmHWM:"), 0 where the system does not tell.
/// Large arrays are mappings of their own, which no allocator sees.
inline std::size_t statusBytes(const char* key) {
    std::FILE* f = std::fopen("/proc/self/status", "r");
    if (!f) return 0;
    char line[256];
    std::size_t kb = 0;
    const std::size_t n = std::strlen(key);
    while (std::fgets(line, sizeof line, f))
        if (std::strncmp(line, key, n) == 0) kb = std::strtoull(line + n, nullptr, 10);
    std::fclose(f);
    return kb * 1024;
}

/// Resets the peak that VmHWM reports, so that a load is measured by itself.
inline bool resetPeak() {
    std::FILE* f = std::fopen("/proc/self/clear_refs", "w");
    if (!f) return false;
    const bool ok = std::fputs("5", f) >= 0;
    return std::fclose(f) == 0 && ok;
}

inline void XMLCALL noStart(void*, const XML_Char*, const XML_Char**) {}
inline void XMLCALL noEnd(void*, const XML_Char*) {}
inline void XMLCALL noText(void*, const XML_Char*, int) {}

/// `text` in pieces of `piece` bytes through the C parser, with handlers that do nothing.
inline bool expatPass(const std::string& text, std::size_t piece) {
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(parser, noStart, noEnd);
    XML_SetCharacterDataHandler(parser, noText);
    bool ok = true;
    for (std::size_t at = 0; ok && at < text.size(); at += piece) {
        const std::size_t n = std::min(piece, text.size() - at);
        ok = XML_Parse(parser, text.data() + at, static_cast<int>(n), at + n == text.size()) ==
             XML_STATUS_OK;
    }
    XML_ParserFree(parser);
    return ok;
}

/// `text` in pieces of `piece` bytes through `parser` (a ZPX parser over its handler), as a
/// reader of a large file feeds it; false at the first piece it refuses.
template <class Parser>
bool parseInPieces(Parser& parser, const std::string& text, std::size_t piece) {
    for (std::size_t at = 0; at < text.size(); at += piece) {
        const std::size_t n = std::min(piece, text.size() - at);
        if (!parser.parseSave(text.data() + at, static_cast<int>(n), at + n == text.size()))
            return false;
    }
    return true;
}

/// `text` loaded into `doc` as a reader of a large file does it: the library's ZPX reader fed
/// in pieces of `piece` bytes.
inline bool loadZpx(Grafel::PlotDocument& doc, const std::string& text, std::size_t piece) {
    Grafel::ZpxParserHandler handler(&doc, false, nullptr);
    Grafel::ZpxParser parser(&handler, true, nullptr);
    return parseInPieces(parser, text, piece);
}

/// The iterations of a load benchmark: each times a bare pass over `text` in pieces of `piece`,
/// then `load(doc, text)` into a fresh document, whose time is the iteration's; `check(doc)`
/// then looks, untimed, at what arrived. Sets "ratio_to_expat", "expat_ms" and the bytes.
template <class Load, class Check>
void loadAgainstExpat(benchmark::State& state, const std::string& text, std::size_t piece,
                      Load load, Check check) {
    double loading = 0;
    double expat = 0;
    for (auto _ : state) {
        const double t0 = cpuSeconds();
        if (!expatPass(text, piece)) state.SkipWithError("the plain pass failed");
        const double t1 = cpuSeconds();
        Grafel::PlotDocument doc;
        if (!load(doc, text)) state.SkipWithError("the load failed");
        const double t2 = cpuSeconds();
        expat += t1 - t0;
        loading += t2 - t1;
        state.SetIterationTime(t2 - t1);
        check(doc);
    }
    state.counters["ratio_to_expat"] = loading / expat;
    state.counters["expat_ms"] = 1e3 * expat / double(state.iterations());
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(text.size()));
}

/// The iterations of a write benchmark: each times `plain(out)`, the same numbers written with
/// operator<<, then `ours(out)`, whose time is the iteration's, each into a fresh string
/// stream. Sets "ratio_to_stream" and "stream_ms".
template <class Plain, class Ours>
void writeAgainstStream(benchmark::State& state, Plain plain, Ours ours) {
    double writing = 0;
    double stream = 0;
    for (auto _ : state) {
        const double t0 = cpuSeconds();
        {
            std::ostringstream out;
            plain(out);
            benchmark::DoNotOptimize(out.tellp());
        }
        const double t1 = cpuSeconds();
        {
            std::ostringstream out;
            ours(out);
            benchmark::DoNotOptimize(out.tellp());
        }
        const double t2 = cpuSeconds();
        stream += t1 - t0;
        writing += t2 - t1;
        state.SetIterationTime(t2 - t1);
    }
    state.counters["ratio_to_stream"] = writing / stream;
    state.counters["stream_ms"] = 1e3 * stream / double(state.iterations());
}

} // namespace BenchMeasure
