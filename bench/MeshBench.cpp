// A function surface of 1000 x 1000 points with normals as a Mesh3d in a whole page: its load
// against a bare parser pass over the same bytes, its writing against a loop that writes the
// same numbers with operator<<, and the memory its arrays keep against their raw bytes.
#include "Measure.h"

#include <grafel/document/PlotDocument.h>
#include <grafel/document/ZpxParser.h>
#include <grafel/document/ZpxParserHandler.h>
#include <grafel/primitives/Mesh3d.h>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cmath>
#include <sstream>
#include <string>

namespace {

using namespace Grafel;
using namespace BenchMeasure;

constexpr int side = 1000;
constexpr std::size_t pieceSize = 1 << 20;

// z = sin(x) cos(y) sampled on the grid, with its normals, as the stream writes numbers.
const std::string& meshPage() {
    static const std::string text = [] {
        std::ostringstream out;
        out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Canvas xmlns=\"" << zpxNamespaceUri
            << "\" version=\"1\"><Scene3d><CoordinateSystem3d><Obj3d Type=\"Function3d\">"
               "<Img3d><Mesh3d UMesh=\""
            << side << "\" VMesh=\"" << side << "\">";
        for (int r = 0; r < side; ++r) {
            const double y = -3 + 6.0 * r / (side - 1);
            for (int c = 0; c < side; ++c) {
                const double x = -3 + 6.0 * c / (side - 1);
                const double nx = -std::cos(x) * std::cos(y);
                const double ny = std::sin(x) * std::sin(y);
                const double length = std::sqrt(nx * nx + ny * ny + 1);
                out << "<P3>" << x << ' ' << y << ' ' << std::sin(x) * std::cos(y) << ' '
                    << nx / length << ' ' << ny / length << ' ' << 1 / length << "</P3>";
            }
        }
        out << "</Mesh3d></Img3d></Obj3d></CoordinateSystem3d></Scene3d></Canvas>\n";
        return out.str();
    }();
    return text;
}

bool load(PlotDocument& doc, const std::string& text) {
    return BenchMeasure::loadZpx(doc, text, pieceSize);
}

Mesh3d* meshOf(PlotDocument& doc) {
    Arbor::Node* n = doc.documentElement();
    for (int depth = 0; n && depth < 5; ++depth) n = n->firstChild();
    return dynamic_cast<Mesh3d*>(n);
}

std::size_t rawBytes(const Mesh3d& mesh) {
    return mesh.size() * sizeof(P3) * (mesh.hasNormals() ? 2 : 1) +
           mesh.size() * sizeof(RGBA) * mesh.numColors();
}

// Load against the bare pass in the same iteration; the memory the document keeps after the
// load against the raw bytes of its arrays, and the peak of the load against arrays plus input.
void BM_MeshLoadVersusExpat(benchmark::State& state) {
    const std::string& text = meshPage();
    double grafel = 0;
    double expat = 0;
    double kept = 0;
    double peak = 0;
    for (auto _ : state) {
        double t0 = cpuSeconds();
        if (!expatPass(text, pieceSize)) state.SkipWithError("the plain pass failed");
        expat += cpuSeconds() - t0;

        PlotDocument doc;
        malloc_trim(0);
        const std::size_t before = statusBytes("VmRSS:");
        const bool peakKnown = resetPeak();
        t0 = cpuSeconds();
        if (!load(doc, text)) state.SkipWithError("the load failed");
        const double seconds = cpuSeconds() - t0;
        grafel += seconds;
        state.SetIterationTime(seconds);
        const Mesh3d* mesh = meshOf(doc);
        if (!mesh || mesh->size() != std::size_t(side) * side)
            state.SkipWithError("the mesh is not all there");
        else if (before) {
            const double raw = double(rawBytes(*mesh));
            kept = double(statusBytes("VmRSS:") - before) / raw;
            if (peakKnown)
                peak = (double(statusBytes("VmHWM:") - before) + double(text.size())) /
                       (raw + double(text.size()));
        }
    }
    state.counters["ratio_to_expat"] = grafel / expat;
    state.counters["expat_ms"] = 1e3 * expat / double(state.iterations());
    state.counters["kept_to_raw_arrays"] = kept;
    state.counters["peak_to_arrays_plus_input"] = peak;
    state.counters["input_MB"] = double(text.size()) / 1e6;
}

// Writing the page against the same numbers through operator<< to the same kind of stream.
void BM_MeshWriteVersusStream(benchmark::State& state) {
    PlotDocument doc;
    if (!load(doc, meshPage())) state.SkipWithError("the load failed");
    const Mesh3d* mesh = meshOf(doc);
    writeAgainstStream(
        state,
        [&](std::ostream& out) {
            const P3* p = mesh->points();
            const P3* n = mesh->normals();
            for (std::size_t i = 0; i < mesh->size(); ++i)
                out << p[i].x << ' ' << p[i].y << ' ' << p[i].z << ' ' << n[i].x << ' ' << n[i].y
                    << ' ' << n[i].z << ' ';
        },
        [&](std::ostream& out) { doc.putXml(out); });
}

BENCHMARK(BM_MeshLoadVersusExpat)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_MeshWriteVersusStream)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
