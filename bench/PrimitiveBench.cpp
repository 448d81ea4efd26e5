// Primitives in a tree: inserting many arcs into one image, each taking its inherited values
// from the object above (its own value, a style of its type, a Default style), against making
// the same arcs with no tree; and a typed getter against a plain field read.
#include <grafel/document/PlotDocument.h>
#include <grafel/primitives/Arc2d.h>
#include <grafel/primitives/Img2d.h>
#include <grafel/structure/Obj2d.h>
#include <grafel/structure/ObjStyle.h>

#include "support/Plots.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <memory>
#include <vector>

using namespace Grafel;
using Arbor::Ref;
using Arbor::Token;

namespace {

constexpr long arcs = 100000;

using TestSupport::Level;

// canvas > [Default style, scene > [Function2d style, group > [object > image]]]. Each
// source answers some of an arc's inherited values: the object LineWidth, the typed style
// LineColor and Filled, the Default style FillPattern and LineStyle; the rest are defaults.
struct Plot {
    PlotDocument doc;
    Ref<Img2d> image;

    Plot() {
        Arbor::Node* canvas = doc.appendChild(new Level(&doc, tok_Canvas));
        PlotElement* defaults = style(canvas, tok_Default);
        defaults->setAttribute(tok_FillPattern, Arbor::TokenVariant(tok_Solid));
        defaults->setAttribute(tok_LineStyle, Arbor::TokenVariant(tok_Dashed));
        Arbor::Node* scene = canvas->appendChild(new Level(&doc, tok_Scene2d));
        PlotElement* typed = style(scene, tok_Function2d);
        typed->setAttribute(tok_LineColor, RGBAVariant(RGBA(0, 0, 255, 255)));
        typed->setAttribute(tok_Filled, Arbor::BoolVariant(false));
        Arbor::Node* group = scene->appendChild(new Level(&doc, tok_Group2d));
        auto* object = static_cast<PlotElement*>(doc.createPlotElement(tok_Obj2d));
        group->appendChild(object);
        object->setAttribute(tok_Type, Arbor::TokenVariant(tok_Function2d));
        object->setAttribute(tok_LineWidth, Arbor::DoubleVariant(0.25));
        image = static_cast<Img2d*>(doc.createPlotElement(tok_Img2d));
        object->appendChild(image.get());
    }
    PlotElement* style(Arbor::Node* parent, Token type) {
        PlotElement* s = doc.createPlotElement(tok_ObjStyle);
        parent->appendChild(s);
        s->setAttribute(tok_Type, Arbor::TokenVariant(type));
        return s;
    }
};

void perArc(benchmark::State& state) {
    state.counters["per_arc"] = benchmark::Counter(
        double(arcs), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void InsertArcsUnderOneImage(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto plot = std::make_unique<Plot>();
        state.ResumeTiming();
        for (long k = 0; k < arcs; ++k)
            plot->image->appendChild(plot->doc.createPlotElement(tok_Arc2d));
        state.PauseTiming();
        if (plot->image->lastChild() == nullptr ||
            static_cast<Arc2d*>(plot->image->lastChild())->getLineWidth() != 0.25)
            state.SkipWithError("the arcs did not take the object's value");
        plot.reset();
        state.ResumeTiming();
    }
    perArc(state);
}
BENCHMARK(InsertArcsUnderOneImage)->Unit(benchmark::kMillisecond);

void CreateArcsWithoutTree(benchmark::State& state) {
    PlotDocument doc;
    std::vector<Ref<PlotElement>> kept;
    kept.reserve(arcs);
    for (auto _ : state) {
        for (long k = 0; k < arcs; ++k) kept.emplace_back(doc.createPlotElement(tok_Arc2d));
        state.PauseTiming();
        kept.clear();
        state.ResumeTiming();
    }
    perArc(state);
}
BENCHMARK(CreateArcsWithoutTree)->Unit(benchmark::kMillisecond);

// Processor time of this process: the machine is shared, and the ratio should not depend on
// what else runs.
double cpuSeconds() {
    return double(std::clock()) / CLOCKS_PER_SEC;
}

// InsertArcsUnderOneImage and CreateArcsWithoutTree in turns within each iteration, so that
// both see the same machine state. The counter "ratio" is the time of making and inserting an
// arc over the time of making it alone.
void InsertOverCreateRatio(benchmark::State& state) {
    double createTime = 0, insertTime = 0;
    for (auto _ : state) {
        PlotDocument doc;
        std::vector<Ref<PlotElement>> kept;
        kept.reserve(arcs);
        auto plot = std::make_unique<Plot>();
        const double t0 = cpuSeconds();
        for (long k = 0; k < arcs; ++k) kept.emplace_back(doc.createPlotElement(tok_Arc2d));
        const double t1 = cpuSeconds();
        for (long k = 0; k < arcs; ++k)
            plot->image->appendChild(plot->doc.createPlotElement(tok_Arc2d));
        const double t2 = cpuSeconds();
        createTime += t1 - t0;
        insertTime += t2 - t1;
    }
    state.counters["ratio"] = insertTime / createTime;
}
BENCHMARK(InsertOverCreateRatio)->Unit(benchmark::kMillisecond)->Iterations(10);

void TypedGetterOnArc(benchmark::State& state) {
    Plot plot;
    auto* arc = static_cast<Arc2d*>(plot.image->appendChild(plot.doc.createPlotElement(tok_Arc2d)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(arc);
        double v = arc->getLineWidth();
        benchmark::DoNotOptimize(v);
    }
}
BENCHMARK(TypedGetterOnArc);

struct PlainArc {
    double centerX, centerY, semiAxisX, semiAxisY, lineWidth;
};

void PlainFieldRead(benchmark::State& state) {
    PlainArc plain{0, 0, 1, 1, 0.25};
    PlainArc* arc = &plain;
    for (auto _ : state) {
        benchmark::DoNotOptimize(arc);
        double v = arc->lineWidth;
        benchmark::DoNotOptimize(v);
    }
}
BENCHMARK(PlainFieldRead);

} // namespace
