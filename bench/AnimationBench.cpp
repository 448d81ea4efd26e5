// One step of the animation clock over a large animated plot, against a plain walk that visits
// every element of the same tree once; and stepping through all moments of the animation for
// two sizes of the plot, which should cost in proportion to the size.
//
// The plot: transforms with ten objects each, every object and every transform with its own span
// over the whole time range and ten frames spread over it (images for an object, maps for a
// transform), so that everything changes at the same ten moments and the number of moments does
// not grow with the plot. 10,000 objects stand in 1,000 transforms.
#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/ValueVariants.h>
#include <grafel/properties/PlotElement.h>

#include <benchmark/benchmark.h>

#include <cmath>

using namespace Grafel;
using Arbor::Ref;
using Arbor::Token;

namespace {

constexpr double timeEnd = 100.0;
constexpr int imagesPerObject = 10;
constexpr int objectsPerTransform = 10;
constexpr int framesPerTransform = 10;

struct AnimatedPlot {
    PlotDocument doc;

    explicit AnimatedPlot(int objects) {
        Ref<PlotElement> canvas = make(tok_Canvas);
        doc.appendChild(canvas.get());
        Ref<PlotElement> range = make(tok_TimeRange);
        setDouble(range.get(), tok_TimeEnd, timeEnd);
        canvas->appendChild(range.get());
        Ref<PlotElement> scene = make(tok_Scene2d);
        canvas->appendChild(scene.get());
        Ref<PlotElement> system = make(tok_CoordinateSystem2d);
        scene->appendChild(system.get());
        for (int t = 0; t < objects / objectsPerTransform; ++t) {
            Ref<PlotElement> transform = make(tok_Transform2d, tok_Rotate2d);
            animate(transform.get());
            for (int i = 0; i < framesPerTransform; ++i) {
                Ref<PlotElement> frame = make(tok_Tr2d);
                setDouble(frame.get(), tok_Param, double(i) / framesPerTransform);
                transform->appendChild(frame.get());
            }
            for (int o = 0; o < objectsPerTransform; ++o) {
                Ref<PlotElement> object = make(tok_Obj2d, tok_Curve2d);
                animate(object.get());
                for (int i = 0; i < imagesPerObject; ++i) {
                    Ref<PlotElement> image = make(tok_Img2d);
                    setDouble(image.get(), tok_Param, double(i) / imagesPerObject);
                    object->appendChild(image.get());
                }
                transform->appendChild(object.get());
            }
            system->appendChild(transform.get());
        }
    }

    Ref<PlotElement> make(Token tag, Token type = Token()) {
        Ref<PlotElement> e = doc.createPlotElement(tag);
        if (!type.isNull()) e->setAttribute(tok_Type, Arbor::TokenVariant(type));
        return e;
    }
    static void setDouble(PlotElement* e, Token name, double v) {
        e->setAttribute(name, Arbor::DoubleVariant(v));
    }
    /// The whole time range for a span, and a parameter range of [0, 1].
    void animate(PlotElement* e) {
        setDouble(e, tok_TimeBegin, 0);
        setDouble(e, tok_TimeEnd, timeEnd);
        for (Token tag : {tok_ParameterBegin, tok_ParameterEnd}) {
            Ref<PlotElement> bound = make(tag);
            setDouble(bound.get(), tok_Val, tag == tok_ParameterBegin ? 0 : 1);
            e->appendChild(bound.get());
        }
    }
};

/// Visits every element below `node` once, asking each for nothing but its tag.
long plainWalk(Arbor::Node* node) {
    long count = 0;
    for (Arbor::Node* n = node->firstChild(); n; n = n->nextSibling()) {
        if (PlotElement* e = PlotElement::from(n)) {
            const Token tag = e->tagName();
            count += tag == tok_Img2d || tag == tok_Tr2d;
            count += plainWalk(n) + 1;
        }
    }
    return count;
}

constexpr int plotObjects = 10000;

void PlainWalk(benchmark::State& state) {
    AnimatedPlot plot(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(plainWalk(&plot.doc));
}
BENCHMARK(PlainWalk)->Arg(plotObjects / 2)->Arg(plotObjects)->Unit(benchmark::kMillisecond);

// From the middle of the range, so that each object looks at half its images.
void OneStep(benchmark::State& state) {
    AnimatedPlot plot(static_cast<int>(state.range(0)));
    const double from = timeEnd / 2 + 1;
    for (auto _ : state) benchmark::DoNotOptimize(plot.doc.getNextAnimationTime(from, false));
}
BENCHMARK(OneStep)->Arg(plotObjects / 2)->Arg(plotObjects)->Unit(benchmark::kMillisecond);

void AllMoments(benchmark::State& state) {
    AnimatedPlot plot(static_cast<int>(state.range(0)));
    long moments = 0;
    for (auto _ : state) {
        moments = 0;
        for (double t = 0; !std::isnan(t); t = plot.doc.getNextAnimationTime(t, false)) ++moments;
    }
    state.counters["moments"] = double(moments);
}
BENCHMARK(AllMoments)->Arg(plotObjects / 2)->Arg(plotObjects)->Unit(benchmark::kMillisecond);

} // namespace
