// Reading an object's style value: stored on the object itself, against inherited from an
// ObjStyle three levels up (the nearest style of the object's type, or a Default one found
// after a walk through all levels for the type), and against the descriptor default found
// after both walks came up empty.
#include <grafel/structure/Obj2d.h>
#include <grafel/structure/ObjStyle.h>

#include "support/Plots.h"

#include <benchmark/benchmark.h>

#include <ctime>

using namespace Grafel;
using Arbor::Ref;
using Arbor::Token;

namespace {

using TestSupport::Level;

// top > [style, level > [level > [sibling, object, stored]]]: the object is three levels
// below the style, and `stored` holds the value itself. Every element carries a few other
// values, so that the lookups are not in one-record lists.
struct Tree {
    ElementDocument doc;
    Ref<Level> top = new Level(&doc, tok_Group2d);
    Ref<ObjStyle> style = static_cast<ObjStyle*>(doc.createPlotElement(tok_ObjStyle));
    Ref<Obj2d> object = makeObject();
    Ref<Obj2d> stored = makeObject();

    explicit Tree(Token styleType) {
        style->setAttribute(tok_Type, Arbor::TokenVariant(styleType));
        style->setAttribute(tok_PointSize, Arbor::DoubleVariant(3.0));
        top->appendChild(style.get());
        Arbor::Node* level = top->appendChild(new Level(&doc, tok_Group2d));
        level = level->appendChild(new Level(&doc, tok_Group2d));
        level->appendChild(makeObject().get());
        level->appendChild(object.get());
        level->appendChild(stored.get());
        stored->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
    }
    Ref<Obj2d> makeObject() {
        Ref<Obj2d> o = static_cast<Obj2d*>(doc.createPlotElement(tok_Obj2d));
        o->setAttribute(tok_Type, Arbor::TokenVariant(tok_Function2d));
        o->setAttribute(tok_id, Arbor::FixedStringVariant(Tessel::FixedStringBase<char>("f")));
        o->setAttribute(tok_Visible, Arbor::BoolVariant(true));
        o->setAttribute(tok_XMesh, Arbor::LongVariant(40));
        return o;
    }
};

void read(benchmark::State& state, Obj2d* object) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(object);
        double v = object->getLineWidth();
        benchmark::DoNotOptimize(v);
    }
}

void StoredOnObject(benchmark::State& state) {
    Tree t(tok_Function2d);
    read(state, t.stored.get());
}
BENCHMARK(StoredOnObject);

void FromTypeStyleThreeLevelsUp(benchmark::State& state) {
    Tree t(tok_Function2d);
    t.style->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
    read(state, t.object.get());
}
BENCHMARK(FromTypeStyleThreeLevelsUp);

void FromDefaultStyleThreeLevelsUp(benchmark::State& state) {
    Tree t(tok_Default);
    t.style->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
    read(state, t.object.get());
}
BENCHMARK(FromDefaultStyleThreeLevelsUp);

void DescriptorDefaultAfterBothWalks(benchmark::State& state) {
    Tree t(tok_Function2d);
    read(state, t.object.get());
}
BENCHMARK(DescriptorDefaultAfterBothWalks);

void GetPropertyFromTypeStyle(benchmark::State& state) {
    Tree t(tok_Function2d);
    t.style->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
    Obj2d* object = t.object.get();
    for (auto _ : state) {
        benchmark::DoNotOptimize(object);
        Arbor::Variant v = object->getProperty(tok_LineWidth);
        benchmark::DoNotOptimize(v);
    }
}
BENCHMARK(GetPropertyFromTypeStyle);

// A value set on the style and removed again: the change walks every element below the style's
// parent. Without observers no event is made; with one, each element that follows hears.
void setThenRemove(benchmark::State& state, bool observed) {
    struct Ignore : Arbor::IDocObserver {
        void handleEvent(Arbor::DomEvent&) override {}
    } ignore;
    Tree t(tok_Function2d);
    if (observed) t.doc.addObserver(&ignore, tok_AfterPropertyChange);
    ObjStyle* style = t.style.get();
    for (auto _ : state) {
        style->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
        style->removeAttribute(tok_LineWidth);
    }
    if (observed) t.doc.removeObserver(&ignore, tok_AfterPropertyChange);
}

void StyleSetThenRemove(benchmark::State& state) {
    setThenRemove(state, false);
}
BENCHMARK(StyleSetThenRemove);

void StyleSetThenRemoveObserved(benchmark::State& state) {
    setThenRemove(state, true);
}
BENCHMARK(StyleSetThenRemoveObserved);

// Processor time of this process: the machine is shared, and the ratio should not depend on
// what else runs.
double cpuSeconds() {
    return double(std::clock()) / CLOCKS_PER_SEC;
}

// The same reads as StoredOnObject and FromTypeStyleThreeLevelsUp, in turns within each
// iteration, so that both see the same machine state. The counter "ratio" is the inherited
// read's time over the own read's.
void InheritedOverOwnRatio(benchmark::State& state) {
    Tree t(tok_Function2d);
    t.style->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
    Obj2d* own = t.stored.get();
    Obj2d* inherited = t.object.get();
    constexpr int reads = 200000;
    double ownTime = 0, inheritedTime = 0;
    for (auto _ : state) {
        const double t0 = cpuSeconds();
        for (int k = 0; k < reads; ++k) {
            benchmark::DoNotOptimize(own);
            double v = own->getLineWidth();
            benchmark::DoNotOptimize(v);
        }
        const double t1 = cpuSeconds();
        for (int k = 0; k < reads; ++k) {
            benchmark::DoNotOptimize(inherited);
            double v = inherited->getLineWidth();
            benchmark::DoNotOptimize(v);
        }
        const double t2 = cpuSeconds();
        ownTime += t1 - t0;
        inheritedTime += t2 - t1;
    }
    state.counters["ratio"] = inheritedTime / ownTime;
}
BENCHMARK(InheritedOverOwnRatio)->Unit(benchmark::kMillisecond)->Iterations(20);

// A style above `state.range(0)` objects, observed, set and removed again: once as two plain
// edits, once as the same edits in one batch, in turns within each iteration. In the batch
// each object's two events are the same news and are delivered once, so the batch holds as
// many distinct events as there are objects. The counter "ratio" is the batch's time over the
// plain edits'; it stays flat as the objects grow when holding an event costs the same however
// many are held.
// A style of Type Function2d followed by `objects` sibling objects of that type, observed.
struct SiblingObjects {
    struct Count : Arbor::IDocObserver {
        long heard = 0;
        void handleEvent(Arbor::DomEvent&) override { ++heard; }
    } count;
    ElementDocument doc;
    Ref<Level> top = new Level(&doc, tok_Group2d);
    Ref<ObjStyle> style = static_cast<ObjStyle*>(doc.createPlotElement(tok_ObjStyle));

    explicit SiblingObjects(long objects) {
        style->setAttribute(tok_Type, Arbor::TokenVariant(tok_Function2d));
        top->appendChild(style.get());
        for (long k = 0; k < objects; ++k) {
            Ref<PlotElement> o = doc.createPlotElement(tok_Obj2d);
            o->setAttribute(tok_Type, Arbor::TokenVariant(tok_Function2d));
            top->appendChild(o.get());
        }
        doc.addObserver(&count, tok_AfterPropertyChange);
        // Each object collects its styles on the first edit, as once drawn in a viewer; the
        // timed edits are the ones after that.
        edit();
    }
    ~SiblingObjects() { doc.removeObserver(&count, tok_AfterPropertyChange); }

    /// Sets a value on the style and removes it again: every object hears of both.
    void edit() {
        style->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
        style->removeAttribute(tok_LineWidth);
    }
};

void BatchedOverPlainStyleEditRatio(benchmark::State& state) {
    SiblingObjects tree(state.range(0));
    double plainTime = 0, batchTime = 0;
    for (auto _ : state) {
        const double t0 = cpuSeconds();
        tree.edit();
        const double t1 = cpuSeconds();
        tree.doc.beginBatchChanges();
        tree.edit();
        tree.doc.endBatchChanges();
        const double t2 = cpuSeconds();
        plainTime += t1 - t0;
        batchTime += t2 - t1;
    }
    state.counters["ratio"] = batchTime / plainTime;
}
BENCHMARK(BatchedOverPlainStyleEditRatio)
    ->Arg(100)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20);

// The same style edit over 1000 sibling objects and over 100, in turns within each iteration.
// The counter "ratio" is the time per object at 1000 over that at 100: 1 when an edit costs the
// same for each object however many siblings it has.
void StyleEditPerObjectGrowth(benchmark::State& state) {
    SiblingObjects few(100), many(1000);
    double fewTime = 0, manyTime = 0;
    for (auto _ : state) {
        const double t0 = cpuSeconds();
        for (int k = 0; k < 10; ++k) few.edit();
        const double t1 = cpuSeconds();
        many.edit();
        const double t2 = cpuSeconds();
        fewTime += t1 - t0;
        manyTime += t2 - t1;
    }
    state.counters["ratio"] = manyTime / fewTime;
}
BENCHMARK(StyleEditPerObjectGrowth)->Unit(benchmark::kMillisecond)->Iterations(20);

} // namespace
