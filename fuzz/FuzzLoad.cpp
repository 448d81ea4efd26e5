#include "FuzzLoad.h"

#include <grafel/document/ZpaSources.h>
#include <grafel/document/ZpxParser.h>
#include <grafel/document/ZpxParserHandler.h>
#include <grafel/foundation/Tokens.h>

#include <algorithm>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace GrafelFuzz {

namespace {

void formatReport(const char* format, va_list args) {
    char text[512];
    std::vsnprintf(text, sizeof text, format, args);
}

} // namespace

void fail(const char* what) {
    std::fprintf(stderr, "fuzz check failed: %s\n", what);
    std::abort();
}

bool loadZpx(Grafel::PlotDocument& document, const std::uint8_t* data, std::size_t size,
             std::size_t piece) {
    document.domErrorHdl(&formatReport);
    Grafel::ZpxParserHandler handler(&document, false, &formatReport);
    Grafel::ZpxParser parser(&handler, true, nullptr);
    if (piece == 0 || piece > static_cast<std::size_t>(INT_MAX))
        piece = std::max<std::size_t>(size, 1);
    const char* text = reinterpret_cast<const char*>(data);
    std::size_t at = 0;
    do {
        const std::size_t n = std::min(piece, size - at);
        const bool last = at + n == size;
        if (!parser.parseSave(text + at, static_cast<int>(n), last)) return false;
        at += n;
    } while (at < size);
    return true;
}

bool loadZpa(Grafel::PlotDocument& document, const std::uint8_t* data, std::size_t size,
             int& cause) {
    document.domErrorHdl(&formatReport);
    Grafel::ZpaMemoryParser parser(&document, reinterpret_cast<const char*>(data), size);
    const bool loaded = parser.parse();
    cause = parser.errorCause();
    return loaded;
}

std::string zpx(Grafel::PlotDocument& document) {
    std::ostringstream out;
    document.putXml(out);
    return out.str();
}

bool isValid(Grafel::PlotDocument& document) {
    Arbor::Element* root = document.documentElement();
    return root && root->tagName() == Grafel::tok_Canvas &&
           document.firstChild() == document.lastChild() && document.batchDepth() == 0;
}

bool isFreshCanvas(Grafel::PlotDocument& document) {
    if (!isValid(document)) return false;
    Arbor::Element* root = document.documentElement();
    if (root->hasChildNodes()) return false;
    for (int id = 1; id <= Grafel::tokenCount; ++id)
        if (root->hasAttribute(Grafel::getToken(id))) return false;
    return true;
}

void requireStableZpx(Grafel::PlotDocument& document) {
    const std::string written = zpx(document);
    Grafel::PlotDocument again;
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(written.data());
    if (!loadZpx(again, bytes, written.size())) {
        std::fprintf(stderr, "written:\n%s\n", written.c_str());
        fail("what was written does not load");
    }
    const std::string rewritten = zpx(again);
    // A number that overflowed to infinity is written as "inf", which the reader drops or
    // reads as NaN, a loss the text form has no room for; what that reload writes must hold.
    if (rewritten != written &&
        (written.find("inf") != std::string::npos || written.find("nan") != std::string::npos)) {
        Grafel::PlotDocument third;
        const auto* again_bytes = reinterpret_cast<const std::uint8_t*>(rewritten.data());
        require(loadZpx(third, again_bytes, rewritten.size()), "what was written does not load");
        require(zpx(third) == rewritten, "what was written does not write back the same");
        return;
    }
    if (rewritten != written) {
        std::fprintf(stderr, "written:\n%s\nwritten again:\n%s\n", written.c_str(),
                     rewritten.c_str());
        fail("what was written does not write back the same");
    }
}

} // namespace GrafelFuzz
