// What the benchmarks measure alike: processor time, the process's memory as the system counts
// it, and a pass of the bare XML parser over a text, as the baseline of a load.
#pragma once

#include <expat.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
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

} // namespace BenchMeasure
