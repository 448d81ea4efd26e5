// Zpa bytes: a load fails with one of the stated causes and leaves a fresh Canvas, or gives a
// document whose ZPX form loads and writes back byte for byte.
#include "FuzzLoad.h"

#include <string>

using namespace GrafelFuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Grafel::PlotDocument document;
    int cause = -1;
    const bool loaded = loadZpa(document, data, size, cause);
    require(isValid(document), "a Zpa load leaves no single Canvas or an open batch");
    if (loaded) {
        require(cause == 0, "a successful first load has a cause");
        // The Zpa reader may leave an explicit value equal to the inherited one (USubmesh 0 on
        // an object), which the ZPX reader drops: stability is required from the first reload.
        const std::string written = zpx(document);
        Grafel::PlotDocument reloaded;
        require(loadZpx(reloaded, reinterpret_cast<const std::uint8_t*>(written.data()),
                        written.size()),
                "the ZPX form of a Zpa document does not load");
        requireStableZpx(reloaded);
    } else {
        require(cause >= 2 && cause <= 4, "a failed load has no stated cause");
        require(isFreshCanvas(document), "a failed load leaves more than a fresh Canvas");
    }
    return 0;
}
