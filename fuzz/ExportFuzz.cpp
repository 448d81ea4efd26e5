// The writers of every document that loads, from ZPX bytes or, when these are no ZPX, from Zpa
// bytes: they must neither crash nor hang, whatever the tree holds.
#include "FuzzLoad.h"

#include <sstream>

using namespace GrafelFuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Grafel::PlotDocument document;
    int cause = 0;
    if (!loadZpx(document, data, size) && !loadZpa(document, data, size, cause)) return 0;

    for (const bool replot : {false, true}) {
        std::ostringstream out;
        document.putCmd(out, replot);
    }

    // JavaView export goes here once its writers are in: the JVX and the JVD form of the
    // document, each into a string stream, a JavaViewExportError counting as a clean refusal.
    return 0;
}
