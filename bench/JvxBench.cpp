// The model export of a coloured 1000 x 1000 mesh against a loop that writes the same numbers
// (points, point colours, faces, neighbours, face colours) with operator<<, in the same run.
#include "Measure.h"
#include "document/ZpxTestHelpers.h"

#include <grafel/output/JVXWriter.h>
#include <grafel/primitives/Mesh3d.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <sstream>

namespace {

using namespace Grafel;
using namespace BenchMeasure;

constexpr int side = 1000;

Mesh3d* coloredMesh(PlotDocument& doc) {
    const std::string page =
        "<Canvas version=\"1\"><Scene3d><CoordinateSystem3d><Obj3d Type=\"Surface\"><Img3d>"
        "<Mesh3d UMesh=\"1000\" VMesh=\"1000\" FillColorType=\"Functional\" PointsVisible=\"0\"/>"
        "</Img3d></Obj3d></CoordinateSystem3d></Scene3d></Canvas>";
    if (!ZpxTest::load(doc, page)) return nullptr;
    Arbor::Node* n = doc.documentElement();
    for (int depth = 0; n && depth < 5; ++depth) n = n->firstChild();
    auto* mesh = dynamic_cast<Mesh3d*>(n);
    if (!mesh) return nullptr;
    mesh->reserve(std::size_t(side) * side, false, 1);
    for (int r = 0; r < side; ++r)
        for (int c = 0; c < side; ++c) {
            const double x = -3 + 6.0 * c / (side - 1), y = -3 + 6.0 * r / (side - 1);
            const double z = std::sin(x) * std::cos(y);
            mesh->push_back(P3(x, y, z), RGBA(std::uint8_t(c), std::uint8_t(r), 128, 255));
        }
    return mesh;
}

/// The numbers of the model, each through operator<<.
void streamLoop(std::ostream& out, const Mesh3d& mesh) {
    const P3* p = mesh.points();
    const RGBA* colors = mesh.faceColors();
    const long n = long(mesh.size()), nU = side, nV = side;
    for (long i = 0; i < n; ++i) out << p[i].x << ' ' << p[i].y << ' ' << p[i].z << '\n';
    for (long i = 0; i < n; ++i)
        out << long(colors[i].red()) << ' ' << long(colors[i].green()) << ' '
            << long(colors[i].blue()) << '\n';
    for (long r = 0; r + 1 < nV; ++r)
        for (long c = 0; c + 1 < nU; ++c) {
            const long i = r * nU + c;
            out << i << ' ' << i + 1 << ' ' << i + 1 + nU << ' ' << i + nU << '\n';
        }
    for (long r = 0; r + 1 < nV; ++r)
        for (long c = 0; c + 1 < nU; ++c) {
            const long j = r * (nU - 1) + c;
            out << j + 1 << ' ' << j + nU - 1 << ' ' << j - 1 << ' ' << j - nU + 1 << '\n';
        }
    for (long r = 0; r + 1 < nV; ++r)
        for (long c = 0; c + 1 < nU; ++c) {
            const RGBA k = colors[r * nU + c];
            out << long(k.red()) << ' ' << long(k.green()) << ' ' << long(k.blue()) << '\n';
        }
}

void BM_JvxMeshVersusStream(benchmark::State& state) {
    PlotDocument doc;
    const Mesh3d* mesh = coloredMesh(doc);
    if (!mesh) {
        state.SkipWithError("the mesh could not be built");
        return;
    }
    JVXWriter writer(&doc);
    writer.setFixedDate("bench");
    double grafel = 0, plain = 0, bytes = 0;
    for (auto _ : state) {
        const double t0 = cpuSeconds();
        {
            std::ostringstream out;
            streamLoop(out, *mesh);
            benchmark::DoNotOptimize(out.tellp());
        }
        const double t1 = cpuSeconds();
        {
            std::ostringstream out;
            writer.write(&out, JavaViewWriter::noTime);
            bytes = double(out.tellp());
        }
        const double t2 = cpuSeconds();
        plain += t1 - t0;
        grafel += t2 - t1;
        state.SetIterationTime(t2 - t1);
    }
    state.counters["ratio_to_stream"] = grafel / plain;
    state.counters["stream_ms"] = 1e3 * plain / double(state.iterations());
    state.counters["output_MB"] = bytes / 1e6;
}

BENCHMARK(BM_JvxMeshVersusStream)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
