// Reading properties: a typed member getter against a plain struct field, and a list-family
// property inherited through three levels against the same chain of std::map lookups.
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/LibraryElement.h>
#include <grafel/properties/ListTable.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PrimitiveBase.h>
#include <grafel/properties/PropertyTypes.h>

#include <benchmark/benchmark.h>

#include <map>
#include <vector>

using namespace Grafel;
using Arbor::Ref;
using Arbor::Token;

namespace Grafel {
constexpr int id_BenchShape = id_Row1;
constexpr int id_BenchLevel = id_Row2;
} // namespace Grafel

namespace {

#define BENCH_SHAPE_TABLE(P)                                                                       \
    P(Mandatory, DoubleProperty, Radius, 1.0, 1.0)                                                 \
    P(Inherited, DoubleProperty, LineWidth, 0.0, 0.35)

class BenchShape : public PrimitiveBase {
public:
    explicit BenchShape(Arbor::Document* d) : PrimitiveBase(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(BenchShape)
    GRAFEL_MEMBER_PROPERTIES(BenchShape, BENCH_SHAPE_TABLE)
};
GRAFEL_DEFINE_MEMBER_PROPERTIES(BenchShape, BENCH_SHAPE_TABLE)

#define BENCH_LEVEL_TABLE(P) P(Inherited, DoubleListProperty, LineWidth, 0.35)
GRAFEL_DEFINE_PROPERTY_LIST(BenchLevelMgr, BENCH_LEVEL_TABLE)

// Inherits from its parent: the shortest rule that gives a chain of levels.
class BenchLevel : public LibraryElement {
public:
    explicit BenchLevel(Arbor::Document* d) : LibraryElement(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(BenchLevel)
    GRAFEL_LIST_GETTERS(BENCH_LEVEL_TABLE)
    Property* propertyInfo(Token name) const override { return BenchLevelMgrInstance().find(name); }
    PlotElement* inheritingFrom(Token name) const override {
        auto* up = PlotElement::from(parent_);
        if (!up || up->hasAttribute(name)) return up;
        return up->inheritingFrom(name);
    }

protected:
    bool allowedContentChild(Token) const override { return true; }
    int tagNameToOptionChildFlag(Token) const override { return 0; }
    int allowedOptionChildren() const override { return 0; }
    int mandatoryOptionChildren() const override { return 0; }
};

struct PlainShape {
    double radius = 1.0;
    double lineWidth = 0.35;
};

void MemberGetter(benchmark::State& state) {
    ElementDocument doc;
    Ref<PlotElement> shape = BenchShape::create(&doc);
    auto* s = static_cast<BenchShape*>(shape.get());
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        double v = s->getLineWidth();
        benchmark::DoNotOptimize(v);
    }
}
BENCHMARK(MemberGetter);

void PlainStructField(benchmark::State& state) {
    PlainShape shape;
    PlainShape* s = &shape;
    for (auto _ : state) {
        benchmark::DoNotOptimize(s);
        double v = s->lineWidth;
        benchmark::DoNotOptimize(v);
    }
}
BENCHMARK(PlainStructField);

// Four levels: the top one holds the value, the bottom one is read.
struct LevelChain {
    ElementDocument doc;
    Ref<PlotElement> top = BenchLevel::create(&doc);
    BenchLevel* bottom;
    LevelChain() {
        top->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
        PlotElement* e = top.get();
        for (int i = 0; i < 3; ++i)
            e = static_cast<PlotElement*>(e->appendChild(BenchLevel::create(&doc)));
        bottom = static_cast<BenchLevel*>(e);
    }
};

void ListPropertyThreeLevelsUp(benchmark::State& state) {
    LevelChain chain;
    BenchLevel* bottom = chain.bottom;
    for (auto _ : state) {
        benchmark::DoNotOptimize(bottom);
        double v = bottom->getLineWidth();
        benchmark::DoNotOptimize(v);
    }
}
BENCHMARK(ListPropertyThreeLevelsUp);

void ListGetPropertyThreeLevelsUp(benchmark::State& state) {
    LevelChain chain;
    PlotElement* e = chain.bottom;
    for (auto _ : state) {
        benchmark::DoNotOptimize(e);
        Arbor::Variant v = e->getProperty(tok_LineWidth);
        benchmark::DoNotOptimize(v);
    }
}
BENCHMARK(ListGetPropertyThreeLevelsUp);

void MapChainThreeLevelsUp(benchmark::State& state) {
    // The same question asked of four maps, nearest first, keyed by name as text.
    std::vector<std::map<std::string, double>> levels(4);
    levels[3]["LineWidth"] = 2.0;
    for (int i = 0; i < 3; ++i) levels[i]["Other" + std::to_string(i)] = 1.0;
    const std::string name = "LineWidth";
    for (auto _ : state) {
        double v = 0.35;
        for (auto& level : levels) {
            auto it = level.find(name);
            if (it != level.end()) {
                v = it->second;
                break;
            }
        }
        benchmark::DoNotOptimize(v);
    }
}
BENCHMARK(MapChainThreeLevelsUp);

} // namespace
