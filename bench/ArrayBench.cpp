// A density raster of a million cells: its load against a bare pass of the XML parser over the
// same bytes (and the same for a colour raster), its write against the same numbers written with
// operator<<, and the memory its cells take against their raw bytes.
#include <grafel/document/PlotDocument.h>
#include <grafel/document/ZpxParser.h>
#include <grafel/document/ZpxParserHandler.h>
#include <grafel/primitives/ColorArray2d.h>
#include <grafel/primitives/DensityArray2d.h>

#include "Measure.h"

#include <benchmark/benchmark.h>
#include <expat.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <random>
#include <sstream>
#include <string>

namespace {

using namespace Grafel;

constexpr int side = 1000;
// The text is handed over in pieces of this size, as a host reads a file.
constexpr std::size_t pieceSize = 1 << 20;

// A page with one raster of side x side random values, as the stream writes numbers.
const std::string& rasterDocument() {
    static const std::string text = [] {
        std::mt19937_64 random(2024);
        std::uniform_real_distribution<double> value(-1000, 1000);
        std::ostringstream out;
        out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Canvas xmlns=\"" << zpxNamespaceUri
            << "\"><Scene2d><CoordinateSystem2d><Obj2d Type=\"Density\"><Img2d>"
            << "<DensityArray2d XMesh=\"" << side << "\" YMesh=\"" << side << "\">";
        for (int i = 0; i < side * side; ++i) out << value(random) << ' ';
        out << "</DensityArray2d></Img2d></Obj2d></CoordinateSystem2d></Scene2d></Canvas>\n";
        return out.str();
    }();
    return text;
}

// The same with random opaque colours, as "#rrggbb".
const std::string& colorDocument() {
    static const std::string text = [] {
        std::mt19937_64 random(2025);
        std::ostringstream out;
        out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Canvas xmlns=\"" << zpxNamespaceUri
            << "\"><Scene2d><CoordinateSystem2d><Obj2d Type=\"Density\"><Img2d>"
            << "<ColorArray2d XMesh=\"" << side << "\" YMesh=\"" << side << "\">";
        for (int i = 0; i < side * side; ++i)
            out << RGBA(std::uint8_t(random()), std::uint8_t(random()), std::uint8_t(random()), 255)
                << ' ';
        out << "</ColorArray2d></Img2d></Obj2d></CoordinateSystem2d></Scene2d></Canvas>\n";
        return out.str();
    }();
    return text;
}

bool load(PlotDocument& doc, const std::string& text) {
    return BenchMeasure::loadZpx(doc, text, pieceSize);
}

template <class T = DensityArray2d> T* raster(Arbor::Node* node) {
    for (Arbor::Node* n = node->firstChild(); n; n = n->nextSibling()) {
        if (auto* d = dynamic_cast<T*>(n)) return d;
        if (T* d = raster<T>(n)) return d;
    }
    return nullptr;
}

// Load against the plain parser pass in the same iteration; the storage of the cells after the
// load against their raw bytes (the rest of the element is a constant).
void BM_DensityArrayLoad(benchmark::State& state) {
    double storage = 0;
    BenchMeasure::loadAgainstExpat(state, rasterDocument(), pieceSize, load,
                                   [&](PlotDocument& doc) {
                                       const DensityArray2d* d = raster(&doc);
                                       if (!d || d->size() != std::size_t(side) * side)
                                           state.SkipWithError("cells missing");
                                       else
                                           storage = double(d->capacity()) / double(d->size());
                                   });
    state.counters["storage_to_raw_cells"] = storage;
}

// The colour raster's load against the plain parser pass in the same iteration.
void BM_ColorArrayLoad(benchmark::State& state) {
    BenchMeasure::loadAgainstExpat(state, colorDocument(), pieceSize, load, [&](PlotDocument& doc) {
        const ColorArray2d* c = raster<ColorArray2d>(&doc);
        if (!c || c->size() != std::size_t(side) * side) state.SkipWithError("cells missing");
    });
}

// Writing the raster against a loop that writes the same numbers with operator<< to the same
// kind of stream.
void BM_DensityArrayWrite(benchmark::State& state) {
    PlotDocument doc;
    if (!load(doc, rasterDocument())) state.SkipWithError("the load failed");
    const DensityArray2d* d = raster(&doc);
    BenchMeasure::writeAgainstStream(
        state,
        [&](std::ostream& out) {
            const double* v = d->values();
            for (std::size_t i = 0; i < d->size(); ++i) out << v[i] << ' ';
        },
        [&](std::ostream& out) { doc.putXml(out); });
}

BENCHMARK(BM_DensityArrayLoad)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_ColorArrayLoad)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_DensityArrayWrite)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
