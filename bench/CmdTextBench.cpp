// Command text of a large document: the writer in the stream's default state, where numbers are
// made with std::to_chars, against the same writer on a stream whose numbers go through
// operator<<, and against a plain operator<< loop over the same numbers and words.
#include <grafel/document/PlotDocument.h>
#include <grafel/document/ZpxParser.h>
#include <grafel/document/ZpxParserHandler.h>

#include <benchmark/benchmark.h>

#include <ctime>
#include <locale>
#include <random>
#include <sstream>
#include <string>

using namespace Grafel;

namespace {

constexpr int systemCount = 200;
constexpr int objectsPerSystem = 100;

double threadSeconds() {
    timespec t;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

// A page of many coordinate systems with many objects, each with its own sizes, colours, directions
// and times: the numbers of command text are these attributes, the colours' components among them.
std::string makeDocument() {
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> size(0.1, 5);
    std::uniform_real_distribution<double> any(-1000, 1000);
    std::uniform_int_distribution<int> byte(0, 255);
    auto colour = [&] {
        char text[10];
        std::snprintf(text, sizeof text, "#%02x%02x%02x%02x", byte(random), byte(random),
                      byte(random), byte(random));
        return std::string(text);
    };
    std::ostringstream out;
    out << "<Canvas version=\"1\" Width=\"120\" Height=\"80\"><Scene2d>";
    for (int i = 0; i < systemCount * objectsPerSystem; ++i) {
        if (i % objectsPerSystem == 0) out << "<CoordinateSystem2d>";
        out << "<Obj2d Type=\"Function2d\" LineWidth=\"" << size(random) << "\" PointSize=\""
            << size(random) << "\" LineColor=\"" << colour() << "\" FillColor=\"" << colour()
            << "\" LineColor2=\"" << colour() << "\" LineColorDirectionX=\"" << any(random)
            << "\" LineColorDirectionY=\"" << any(random) << "\" TimeBegin=\"" << any(random)
            << "\" TimeEnd=\"" << any(random) << "\" TipAngle=\"" << any(random) << "\"/>";
        if (i % objectsPerSystem == objectsPerSystem - 1) out << "</CoordinateSystem2d>";
    }
    out << "</Scene2d></Canvas>";
    return out.str();
}

// The classic locale's number punctuation in a locale of its own: operator<< writes the same
// bytes, but the writers no longer see the default state and take the operator<< path.
std::locale classicCopy() {
    return std::locale(std::locale::classic(), new std::numpunct<char>);
}

void CmdTextVsOperator(benchmark::State& state) {
    PlotDocument doc;
    {
        ZpxParserHandler handler(&doc, false, nullptr);
        ZpxParser parser(&handler, true, nullptr);
        const std::string text = makeDocument();
        if (!parser.parseSave(text.data(), static_cast<int>(text.size()), true)) {
            state.SkipWithError("the document did not load");
            return;
        }
    }

    double fastTime = 0, operatorTime = 0;
    std::string fastText, operatorText;
    for (auto _ : state) {
        {
            std::ostringstream out;
            const double start = threadSeconds();
            doc.putCmd(out, false);
            fastTime += threadSeconds() - start;
            fastText = out.str();
        }
        {
            std::ostringstream out;
            out.imbue(classicCopy());
            const double start = threadSeconds();
            doc.putCmd(out, false);
            operatorTime += threadSeconds() - start;
            operatorText = out.str();
        }
    }
    const double n = static_cast<double>(state.iterations());
    state.counters["putCmd_ms"] = fastTime * 1e3 / n;
    state.counters["operator_ms"] = operatorTime * 1e3 / n;
    state.counters["ratio"] = fastTime / operatorTime;
    state.counters["sameBytes"] = fastText == operatorText;
    state.counters["MB"] = static_cast<double>(fastText.size()) / 1e6;
}
BENCHMARK(CmdTextVsOperator)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->Iterations(5);

} // namespace
