// Every element whose effective value of a property changes hears an AfterPropertyChangeEvent
// for it: checked against snapshots of the whole tree over a long run of random edits, undo
// and redo included, rather than against hand-written lists of expected events.
#include <grafel/document/ZpxParser.h>
#include <grafel/document/ZpxParserHandler.h>

#include "support/Plots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

using namespace TestSupport;

namespace {

// Styles at every level that has them (page, scene, coordinate system, group), objects of two
// types with and without values of their own, and the primitives below them.
const char* const oracleText = R"(<?xml version="1.0" encoding="UTF-8"?>
<Canvas version="1" Width="160" Height="100">
<Scene2dStyle BorderWidth="0.5"/>
<CoordinateSystem2dStyle GridLineWidth="0.3"/>
<ObjStyle Type="Default" LineWidth="0.35" PointSize="1"/>
<ObjStyle Type="Function2d" PointSize="1.5"/>
<Scene2d id="s1">
<CoordinateSystem2dStyle GridLineWidth="0.4"/>
<ObjStyle Type="Curve2d" LineWidth="0.6"/>
<CoordinateSystem2d id="c1">
<ObjStyle Type="Default" PointSize="3"/>
<Obj2d id="f1" Type="Function2d"><Img2d><Poly2d><P2>0 0</P2><P2>1 1</P2></Poly2d></Img2d></Obj2d>
<Obj2d id="k1" Type="Curve2d" LineWidth="1"><Img2d><Poly2d><P2>0 0</P2></Poly2d></Img2d></Obj2d>
<Group2d id="g1">
<ObjStyle Type="Function2d" LineWidth="0.8"/>
<Obj2d id="f2" Type="Function2d"><Img2d><Poly2d><P2>0 0</P2></Poly2d></Img2d></Obj2d>
<Obj2d id="k2" Type="Curve2d" PointSize="2"><Img2d><Poly2d><P2>0 0</P2></Poly2d></Img2d></Obj2d>
<Group2d id="g2">
<ObjStyle Type="Default"/>
<Obj2d id="f3" Type="Function2d"><Img2d><Poly2d LineWidth="0.25"><P2>0 0</P2></Poly2d><Poly2d><P2>1 0</P2></Poly2d></Img2d></Obj2d>
</Group2d>
</Group2d>
</CoordinateSystem2d>
<CoordinateSystem2d id="c2" GridLineWidth="0.5">
<Obj2d id="k3" Type="Curve2d"><Img2d><Poly2d><P2>0 0</P2></Poly2d></Img2d></Obj2d>
</CoordinateSystem2d>
</Scene2d>
<Scene2d id="s2" BorderWidth="1">
<CoordinateSystem2dStyle/>
<ObjStyle Type="Function2d" LineWidth="2"/>
<CoordinateSystem2d id="c3">
<Obj2d id="f4" Type="Function2d"><Img2d><Poly2d><P2>0 0</P2></Poly2d></Img2d></Obj2d>
</CoordinateSystem2d>
</Scene2d>
</Canvas>)";

const Token names[] = {tok_LineWidth, tok_PointSize, tok_GridLineWidth, tok_BorderWidth};
const char* const values[] = {"0.25", "0.5", "1", "2"};

// The events heard, by element and property.
struct Tally : Arbor::IDocObserver {
    std::map<std::pair<const Arbor::Element*, Token>, long> heard;
    void handleEvent(Arbor::DomEvent& e) override {
        ++heard[{e.target(), static_cast<Arbor::DomAttributeEvent&>(e).attribute()}];
    }
};

struct Oracle {
    Tally tally; // outlives the document it observes
    PlotDocument doc;
    // Every (element, property) pair of the tree with a descriptor, in document order.
    std::vector<std::pair<PlotElement*, Token>> places;
    std::mt19937 rng;
    long extra = 0;

    explicit Oracle(unsigned seed) : rng(seed) {
        reports().clear();
        doc.domErrorHdl(collectReport);
        ZpxParserHandler handler(&doc, false, collectReport);
        ZpxParser parser(&handler, true, nullptr);
        const std::string text = oracleText;
        EXPECT_TRUE(parser.parseSave(text.data(), int(text.size()), true))
            << ::testing::PrintToString(reports());
        collect(doc.documentElement());
        doc.addObserver(&tally, tok_AfterPropertyChange);
        doc.newUndoTask();
    }
    ~Oracle() { doc.removeObserver(&tally, tok_AfterPropertyChange); }

    void collect(Arbor::Node* n) {
        if (auto* e = PlotElement::from(n))
            for (Token name : names)
                if (e->propertyInfo(name)) places.emplace_back(e, name);
        for (Arbor::Node* c = n ? n->firstChild() : nullptr; c; c = c->nextSibling()) collect(c);
    }
    std::vector<Arbor::Variant> snapshot() const {
        std::vector<Arbor::Variant> values;
        for (const auto& [e, name] : places) values.push_back(e->getProperty(name));
        return values;
    }
    static std::string who(const PlotElement* e, Token name) {
        const AttributeListElement* list = e->asAttributeList();
        const Arbor::Variant* id = list ? list->findAttribute(tok_id) : nullptr;
        std::string s =
            id ? id->as<Arbor::FixedStringVariant>()->val().c_str()
               : std::string(e->tagName().c_str()) + "@" + e->parentNode()->nodeName().c_str();
        return s + "." + name.c_str();
    }
    size_t pick(size_t n) { return std::uniform_int_distribution<size_t>(0, n - 1)(rng); }

    // One edit of a random place: set, remove, or set to the value it inherits anyway.
    std::string edit() {
        const auto& [e, name] = places[pick(std::size(places))];
        switch (pick(3)) {
        case 0: {
            const char* v = values[pick(std::size(values))];
            e->setAttributeString(name, v);
            return "set " + who(e, name) + "=" + v;
        }
        case 1:
            if (e->hasAttribute(name)) e->removeAttribute(name);
            return "remove " + who(e, name);
        default:
            if (PlotElement* from = e->inheritingFrom(name))
                e->setProperty(name, from->getProperty(name));
            return "set inherited " + who(e, name);
        }
    }
    std::string step() {
        const size_t op = pick(10);
        if (op == 0) return doc.undo() ? "undo" : "undo (none)";
        if (op == 1) return doc.redo() ? "redo" : "redo (none)";
        if (op == 2) {
            doc.beginBatchChanges();
            std::string what = "batch:";
            for (size_t k = 2 + pick(4); k > 0; --k) {
                const size_t inner = pick(8);
                what += " " + (inner == 0   ? std::string(doc.undo() ? "undo" : "-")
                               : inner == 1 ? std::string(doc.redo() ? "redo" : "-")
                                            : edit());
                if (pick(2)) doc.newUndoTask();
            }
            doc.endBatchChanges();
            return what;
        }
        return edit();
    }

    // Runs `steps` steps; false, with a message, at the first element that changed unheard.
    ::testing::AssertionResult run(int steps) {
        for (int s = 0; s < steps; ++s) {
            if (pick(4) != 0) doc.newUndoTask(); // now and then two steps make one task
            const std::vector<Arbor::Variant> before = snapshot();
            tally.heard.clear();
            const std::string what = step();
            // Undo, redo and batches deliver when they end, each element and property once.
            const bool batched =
                what.starts_with("batch") || what.starts_with("undo") || what.starts_with("redo");
            const std::vector<Arbor::Variant> after = snapshot();
            for (size_t k = 0; k < places.size(); ++k) {
                const auto& [e, name] = places[k];
                const auto found = tally.heard.find({e, name});
                const long heard = found == tally.heard.end() ? 0 : found->second;
                if (batched && heard > 1)
                    return ::testing::AssertionFailure()
                           << "step " << s << " (" << what << "): " << who(e, name) << " heard "
                           << heard << " times";
                if (before[k] == after[k]) {
                    extra += heard;
                    continue;
                }
                if (heard == 0)
                    return ::testing::AssertionFailure()
                           << "step " << s << " (" << what << "): " << who(e, name)
                           << " changed and heard nothing";
                extra += heard - 1;
            }
            // A primitive with no value of its own shows its object's, however the change came.
            for (const auto& [e, name] : places) {
                auto* object = PlotElement::from(e->parentNode()->parentNode());
                if (!e->isStyle() && e->parentNode()->nodeName() == tok_Img2d &&
                    !e->hasAttribute(name) && !(e->getProperty(name) == object->getProperty(name)))
                    return ::testing::AssertionFailure()
                           << "step " << s << " (" << what << "): " << who(e, name)
                           << " does not show its object's value";
            }
        }
        return ::testing::AssertionSuccess();
    }
};

unsigned seedToUse() {
    // Another seed can be tried by hand: GRAFEL_ORACLE_SEED=n grafel_tests --gtest_filter=...
    const char* s = std::getenv("GRAFEL_ORACLE_SEED");
    return s ? unsigned(std::strtoul(s, nullptr, 10)) : 20261123u;
}

} // namespace

TEST(ChangeEvents, EveryElementWhoseValueChangesHearsOfItUndoAndRedoIncluded) {
    Oracle oracle(seedToUse());
    ASSERT_GT(oracle.places.size(), 30u);
    EXPECT_TRUE(oracle.run(3000));
    EXPECT_TRUE(reports().empty()) << ::testing::PrintToString(reports());
    // Extra events are allowed (the rules tell some elements whose value stayed, and tell a
    // few twice); the count is printed so that a change in it is seen.
    std::printf("[ change events ] %ld extra events over 3000 steps\n", oracle.extra);
}

namespace {

// The events heard, in order, as "who.Property#element" (elements without an id share a name).
struct Sequence : Arbor::IDocObserver {
    std::vector<std::string> heard;
    void handleEvent(Arbor::DomEvent& e) override {
        std::ostringstream s;
        s << Oracle::who(PlotElement::from(e.target()),
                         static_cast<Arbor::DomAttributeEvent&>(e).attribute())
          << '#' << static_cast<const void*>(e.target());
        heard.push_back(s.str());
    }
};

std::vector<std::string> firstOnly(const std::vector<std::string>& events) {
    std::vector<std::string> out;
    for (const std::string& e : events)
        if (std::find(out.begin(), out.end(), e) == out.end()) out.push_back(e);
    return out;
}

std::vector<std::string> sorted(std::vector<std::string> events) {
    std::sort(events.begin(), events.end());
    return events;
}

} // namespace

TEST(ChangeEvents, ABatchDeliversEachElementAndPropertyOnceInTheOrderOfFirstFiring) {
    Oracle oracle(seedToUse());
    PlotDocument& doc = oracle.doc;
    Sequence seq;
    doc.addObserver(&seq, tok_AfterPropertyChange);
    // The Default style of the page: its change reaches every object below several levels of
    // styles, and each of them once per level on the way.
    Arbor::Node* style = doc.documentElement()->findChild(tok_ObjStyle);
    ASSERT_NE(style, nullptr);
    auto* styleElement = PlotElement::from(style);

    styleElement->setAttributeString(tok_LineWidth, "0.7");
    const std::vector<std::string> plain = seq.heard;
    const std::vector<std::string> once = firstOnly(plain);
    ASSERT_GT(once.size(), 3u);
    EXPECT_GT(plain.size(), once.size()); // outside a batch every firing is delivered
    doc.newUndoTask();
    ASSERT_TRUE(doc.undo());

    seq.heard.clear();
    doc.beginBatchChanges();
    doc.beginBatchChanges();
    styleElement->setAttributeString(tok_LineWidth, "0.7");
    doc.endBatchChanges();
    EXPECT_TRUE(seq.heard.empty());                         // held until the outermost batch closes
    styleElement->setAttributeString(tok_LineWidth, "0.7"); // the same news again: no repeat
    doc.endBatchChanges();
    EXPECT_EQ(seq.heard, once);

    for (bool undo : {true, false}) {
        doc.newUndoTask();
        seq.heard.clear();
        ASSERT_TRUE(undo ? doc.undo() : doc.redo());
        EXPECT_EQ(sorted(seq.heard), sorted(once)) << (undo ? "undo" : "redo");
    }
    doc.removeObserver(&seq, tok_AfterPropertyChange);
}
