// ZPX bytes: a load either fails and leaves a fresh Canvas, or gives a document whose written
// form loads and writes back byte for byte; the same bytes handed over in pieces give the same.
#include "FuzzLoad.h"

using namespace GrafelFuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Grafel::PlotDocument whole;
    const bool loaded = loadZpx(whole, data, size);
    if (loaded) {
        require(isValid(whole), "a loaded document has no single Canvas or an open batch");
        requireStableZpx(whole);
    } else {
        require(isFreshCanvas(whole), "a failed load leaves more than a fresh Canvas");
    }

    // Pieces of 1 to 64 bytes, the size taken from the input so that every size is tried.
    const std::size_t piece = 1 + (size ? data[size / 2] % 64 : 0);
    Grafel::PlotDocument pieces;
    require(loadZpx(pieces, data, size, piece) == loaded,
            "a load in pieces answers otherwise than a load at once");
    if (loaded)
        require(zpx(pieces) == zpx(whole), "a load in pieces gives another document");
    else
        require(isFreshCanvas(pieces), "a failed load in pieces leaves more than a fresh Canvas");
    return 0;
}
