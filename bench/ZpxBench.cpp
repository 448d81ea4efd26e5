// Loading and writing large point lists as ZPX, against what the XML parser and the stream cost
// by themselves; how the load time grows with the number of points, and the memory a load takes
// at its peak.
#include <grafel/document/P2List.h>
#include <grafel/document/P3List.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/document/ZpxParser.h>
#include <grafel/document/ZpxParserHandler.h>
#include <grafel/properties/ElementRegistry.h>
#include <grafel/structure/Canvas.h>

#include "Measure.h"

#include <benchmark/benchmark.h>
#include <expat.h>
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Grafel;

constexpr int pointCount = 1000000;
// The text is handed over in pieces of this size, as a host reads a file.
constexpr std::size_t pieceSize = 1 << 20;

// Stand-ins for the point primitives, and a page that takes them, registered while a benchmark
// runs: a P2 list under Row1, a P3 list under Row2.
class BenchPoly2 : public P2List {
public:
    explicit BenchPoly2(Arbor::Document* d) : P2List(d) {}
    Arbor::Token tagName() const override { return tok_Row1; }
    Arbor::Node* cloneNode(bool) const override { return new BenchPoly2(*this); }
    static PlotElement* create(Arbor::Document* d) { return new BenchPoly2(d); }
};

class BenchPoly3 : public P3List {
public:
    explicit BenchPoly3(Arbor::Document* d) : P3List(d) {}
    Arbor::Token tagName() const override { return tok_Row2; }
    Arbor::Node* cloneNode(bool) const override { return new BenchPoly3(*this); }
    static PlotElement* create(Arbor::Document* d) { return new BenchPoly3(d); }
};

class BenchCanvas : public Canvas {
public:
    explicit BenchCanvas(Arbor::Document* d) : Canvas(d) {}
    static PlotElement* create(Arbor::Document* d) { return new BenchCanvas(d); }

protected:
    bool allowedContentChild(Arbor::Token tag) const override {
        return tag == tok_Row1 || tag == tok_Row2 || Canvas::allowedContentChild(tag);
    }
};

class BenchClasses {
public:
    BenchClasses() {
        for (auto [id, maker] :
             {std::pair{id_Canvas, &BenchCanvas::create}, std::pair{id_Row1, &BenchPoly2::create},
              std::pair{id_Row2, &BenchPoly3::create}}) {
            saved_.emplace_back(id, elementMaker(id));
            registerElementClass(id, maker);
        }
    }
    ~BenchClasses() {
        for (auto [id, maker] : saved_) registerElementClass(id, maker);
    }

private:
    std::vector<std::pair<int, ElementMaker>> saved_;
};

class BenchHandler : public ZpxParserHandler {
public:
    using ZpxParserHandler::ZpxParserHandler;
    bool elementName(const char* uri, const char* name, int& ns, int& id) override {
        for (int extra : {id_Row1, id_Row2}) {
            if (std::strcmp(name, getToken(extra).c_str()) == 0) {
                ns = 0;
                id = extra;
                return true;
            }
        }
        return ZpxParserHandler::elementName(uri, name, ns, id);
    }
};

// A page with one list of random points, as the stream writes numbers.
std::string makeDocument(bool space, int count) {
    std::mt19937_64 random(2024);
    std::uniform_real_distribution<double> coordinate(-1000, 1000);
    std::uniform_real_distribution<double> unit(-1, 1);
    std::ostringstream out;
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Canvas xmlns=\"" << zpxNamespaceUri
        << "\">" << (space ? "<Row2>" : "<Row1>");
    for (int i = 0; i < count; ++i) {
        if (space)
            out << "<P3>" << coordinate(random) << ' ' << coordinate(random) << ' '
                << coordinate(random) << ' ' << unit(random) << ' ' << unit(random) << ' '
                << unit(random) << "</P3>";
        else
            out << "<P2>" << coordinate(random) << ' ' << coordinate(random) << "</P2>";
    }
    out << (space ? "</Row2>" : "</Row1>") << "</Canvas>\n";
    return out.str();
}

const std::string& document(bool space, int count = pointCount) {
    static std::map<std::pair<bool, int>, std::string> made;
    std::string& text = made[{space, count}];
    if (text.empty()) text = makeDocument(space, count);
    return text;
}

bool load(PlotDocument& doc, const std::string& text, bool namespaces = true, bool runs = true) {
    BenchHandler handler(&doc, false, nullptr);
    ZpxParser parser(&handler, namespaces, nullptr);
    parser.setElementRuns(runs);
    return BenchMeasure::parseInPieces(parser, text, pieceSize);
}

// The same bytes in the same pieces through the C parser, with handlers that do nothing.
bool expatPass(const std::string& text) {
    return BenchMeasure::expatPass(text, pieceSize);
}

using BenchMeasure::cpuSeconds;
using BenchMeasure::resetPeak;
using BenchMeasure::statusBytes;

std::size_t arrayBytes(Arbor::Node* list) {
    if (auto* l2 = dynamic_cast<P2List*>(list))
        return l2->size() * sizeof(P2) + (l2->colored() ? l2->size() * sizeof(RGBA) : 0);
    auto* l3 = dynamic_cast<P3List*>(list);
    return l3->size() * sizeof(P3) * (l3->hasNormals() ? 2 : 1) +
           l3->size() * sizeof(RGBA) * l3->numColors();
}

struct LoadResult {
    double seconds = 0;
    // Peak of the load, counting the input text, over the final arrays plus the input text;
    // 0 where the system does not tell.
    double peakRatio = 0;
    double peakMB = 0;
};

LoadResult measuredLoad(const std::string& text, bool namespaces = true, bool runs = true) {
    LoadResult r;
    PlotDocument doc;
    malloc_trim(0); // memory freed before must not hide what the load takes
    const std::size_t before = statusBytes("VmRSS:");
    const bool peakKnown = resetPeak();
    const double t0 = cpuSeconds();
    if (!load(doc, text, namespaces, runs)) return r;
    r.seconds = cpuSeconds() - t0;
    if (peakKnown && before) {
        const std::size_t arrays = arrayBytes(doc.documentElement()->firstChild());
        // The input text was resident before; the peak counts it as part of the load.
        const double peak = double(statusBytes("VmHWM:") - before) + double(text.size());
        r.peakRatio = peak / double(arrays + text.size());
        r.peakMB = peak / 1e6;
    }
    return r;
}

// Load against the plain parser pass, in the same iteration, and the peak memory of the load
// against the final arrays plus the input text. The load is also timed with the parser's
// namespace processing off, which a host may choose for text in the default namespace, and with
// every point element read as events of its own.
void loadVersusExpat(benchmark::State& state, bool space) {
    BenchClasses classes;
    const std::string& text = document(space);
    double zpx = 0;
    double zpxPlainNames = 0;
    double zpxEvents = 0;
    double expat = 0;
    LoadResult last;
    for (auto _ : state) {
        const double t0 = cpuSeconds();
        if (!expatPass(text)) state.SkipWithError("the plain pass failed");
        expat += cpuSeconds() - t0;
        last = measuredLoad(text);
        if (last.seconds == 0) state.SkipWithError("the load failed");
        zpx += last.seconds;
        state.SetIterationTime(last.seconds);
        zpxPlainNames += measuredLoad(text, false).seconds;
        zpxEvents += measuredLoad(text, true, false).seconds;
    }
    state.counters["ratio_to_expat"] = zpx / expat;
    state.counters["ratio_no_namespaces"] = zpxPlainNames / expat;
    state.counters["ratio_without_runs"] = zpxEvents / expat;
    state.counters["expat_ms"] = 1e3 * expat / double(state.iterations());
    state.counters["peak_MB"] = last.peakMB;
    state.counters["peak_to_arrays_plus_input"] = last.peakRatio;
    state.counters["input_MB"] = double(text.size()) / 1e6;
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(text.size()));
}

// Loads of 1M, 2M and 4M points in each iteration: the time of each size over that of the
// half size (2.0 is linear), and the largest peak ratio of the three.
void loadScaling(benchmark::State& state, bool space) {
    BenchClasses classes;
    constexpr int sizes[] = {1000000, 2000000, 4000000};
    for (int n : sizes) document(space, n); // made before the clock runs
    double seconds[3] = {};
    double peak = 0;
    for (auto _ : state) {
        double total = 0;
        for (int i = 0; i < 3; ++i) {
            const LoadResult r = measuredLoad(document(space, sizes[i]));
            if (r.seconds == 0) state.SkipWithError("the load failed");
            seconds[i] += r.seconds;
            total += r.seconds;
            peak = std::max(peak, r.peakRatio);
        }
        state.SetIterationTime(total);
    }
    state.counters["doubling_1M_2M"] = seconds[1] / seconds[0];
    state.counters["doubling_2M_4M"] = seconds[2] / seconds[1];
    state.counters["ns_per_point_4M"] = 1e9 * seconds[2] / double(state.iterations()) / sizes[2];
    state.counters["peak_to_arrays_plus_input"] = peak;
}

// Writing against a loop that writes the same numbers with operator<< to the same kind of
// stream.
void writeVersusStream(benchmark::State& state, bool space) {
    BenchClasses classes;
    PlotDocument doc;
    if (!load(doc, document(space))) state.SkipWithError("the load failed");
    Arbor::Node* list = doc.documentElement()->firstChild();
    double zpx = 0;
    double plain = 0;
    std::size_t written = 0;
    for (auto _ : state) {
        const double t0 = cpuSeconds();
        {
            std::ostringstream out;
            if (space) {
                auto* l = static_cast<P3List*>(list);
                const P3* p = l->points();
                const P3* n = l->normals();
                for (std::size_t i = 0; i < l->size(); ++i)
                    out << p[i].x << ' ' << p[i].y << ' ' << p[i].z << ' ' << n[i].x << ' '
                        << n[i].y << ' ' << n[i].z << ' ';
            } else {
                auto* l = static_cast<P2List*>(list);
                const P2* p = l->points();
                for (std::size_t i = 0; i < l->size(); ++i) out << p[i].x << ' ' << p[i].y << ' ';
            }
            benchmark::DoNotOptimize(out.tellp());
        }
        const double t1 = cpuSeconds();
        {
            std::ostringstream out;
            doc.putXml(out);
            written = static_cast<std::size_t>(out.tellp());
        }
        const double t2 = cpuSeconds();
        plain += t1 - t0;
        zpx += t2 - t1;
        state.SetIterationTime(t2 - t1);
    }
    state.counters["ratio_to_stream"] = zpx / plain;
    state.counters["stream_ms"] = 1e3 * plain / double(state.iterations());
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(written));
}

void BM_ZpxLoadP2(benchmark::State& state) {
    loadVersusExpat(state, false);
}
void BM_ZpxLoadP3Normals(benchmark::State& state) {
    loadVersusExpat(state, true);
}
void BM_ZpxLoadScalingP2(benchmark::State& state) {
    loadScaling(state, false);
}
void BM_ZpxLoadScalingP3Normals(benchmark::State& state) {
    loadScaling(state, true);
}
void BM_ZpxWriteP2(benchmark::State& state) {
    writeVersusStream(state, false);
}
void BM_ZpxWriteP3Normals(benchmark::State& state) {
    writeVersusStream(state, true);
}

BENCHMARK(BM_ZpxLoadP2)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_ZpxLoadP3Normals)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_ZpxLoadScalingP2)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_ZpxLoadScalingP3Normals)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK(BM_ZpxWriteP2)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_ZpxWriteP3Normals)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace

// The 3D point primitives in the tree a file holds them in (page, scene, coordinate system,
// object, image), against the plain parser pass over the same bytes; and their arrays against
// the bytes of the coordinates they hold.
namespace {

std::string sceneDocument(Arbor::Token tag) {
    std::mt19937_64 random(2024);
    std::uniform_real_distribution<double> coordinate(-1000, 1000);
    std::ostringstream out;
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Canvas xmlns=\"" << zpxNamespaceUri
        << "\"><Scene3d><CoordinateSystem3d><Obj3d Type=\"PrimitiveList3d\"><Img3d><" << tag.text()
        << '>';
    for (int i = 0; i < pointCount; ++i)
        out << "<P3>" << coordinate(random) << ' ' << coordinate(random) << ' '
            << coordinate(random) << "</P3>";
    out << "</" << tag.text() << "></Img3d></Obj3d></CoordinateSystem3d></Scene3d></Canvas>\n";
    return out.str();
}

const P3List* firstSpaceList(Arbor::Node* node) {
    for (Arbor::Node* n = node->firstChild(); n; n = n->nextSibling()) {
        if (const auto* list = dynamic_cast<const P3List*>(n)) return list;
        if (const P3List* list = firstSpaceList(n)) return list;
    }
    return nullptr;
}

void primitiveLoadVersusExpat(benchmark::State& state, Arbor::Token tag) {
    double arrayRatio = 0;
    BenchMeasure::loadAgainstExpat(
        state, sceneDocument(tag), pieceSize,
        [](PlotDocument& doc, const std::string& text) { return load(doc, text); },
        [&](PlotDocument& doc) {
            const P3List* list = firstSpaceList(&doc);
            if (!list || list->size() != std::size_t(pointCount))
                state.SkipWithError("the points did not arrive");
            else
                arrayRatio = double(list->capacity()) / double(list->size());
        });
    // The point array over 24 bytes a point; the list keeps no normals or colours here.
    state.counters["array_to_coordinate_bytes"] = arrayRatio;
}

void BM_ZpxLoadPoly3d(benchmark::State& state) {
    primitiveLoadVersusExpat(state, tok_Poly3d);
}
void BM_ZpxLoadPts3d(benchmark::State& state) {
    primitiveLoadVersusExpat(state, tok_Pts3d);
}

BENCHMARK(BM_ZpxLoadPoly3d)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_ZpxLoadPts3d)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
