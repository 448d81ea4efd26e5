#include "document/ZpxTestHelpers.h"

#include <grafel/arbor/DomException.h>
#include <grafel/arbor/Range.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/structure/Canvas.h>

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <type_traits>

using namespace Grafel;
using Arbor::Ref;

namespace {

PlotElement* add(PlotDocument& doc, Arbor::Node* parent, Arbor::Token tag, const char* id) {
    PlotElement* e = doc.createPlotElement(tag);
    parent->appendChild(e);
    if (id) e->setAttributeString(tok_id, id);
    return e;
}

} // namespace

TEST(PlotDocument, WithoutADocumentElementEverythingIsQuiet) {
    PlotDocument doc;
    std::ostringstream out;
    doc.putCmd(out, false);
    EXPECT_EQ(out.str(), "");
    EXPECT_TRUE(std::isnan(doc.getInitialAnimationTime()));
    EXPECT_TRUE(std::isnan(doc.getNextAnimationTime(0, false)));
    EXPECT_EQ(doc.selectedElement(), nullptr);
    EXPECT_FALSE(doc.canDeleteSelection());
    doc.setCurrentAnimationTime(1);
    doc.fixupTree();
    // Tokens without a class make nothing, and say nothing.
    for (Arbor::Token t : {tok_P2, tok_Circle2d, tok_Dashed, Arbor::Token()})
        EXPECT_EQ(doc.createElement(t), nullptr);
}

// A copy could not carry the tree, its history or its observers: copying does not compile,
// and cloning a document is refused rather than answered with null.
static_assert(!std::is_copy_constructible_v<PlotDocument> &&
              !std::is_copy_assignable_v<PlotDocument>);

TEST(PlotDocument, CloningADocumentIsRefusedLoudly) {
    PlotDocument doc;
    doc.appendChild(Ref<PlotElement>(doc.createPlotElement(tok_Canvas)).get());
    for (bool deep : {true, false}) {
        try {
            Arbor::Node* clone = doc.cloneNode(deep);
            ADD_FAILURE() << "cloneNode(" << deep << ") answered " << clone;
        } catch (const Arbor::DomException& e) {
            EXPECT_EQ(e.code(), Arbor::DomException::NotSupportedErr);
        }
    }
    EXPECT_NE(doc.documentElement(), nullptr);
}

TEST(PlotDocument, ReportsGoToTheHandlerPrefixFirst) {
    PlotDocument doc;
    ZpxTest::calls().clear();
    Ref<PlotElement> canvas = doc.createPlotElement(tok_Canvas);
    canvas->domError("value %s\n", "x"); // no handler yet: dropped
    doc.domErrorHdl(ZpxTest::collect);
    canvas->domError("value %s\n", "y");
    EXPECT_EQ(ZpxTest::calls(), (std::vector<std::string>{"Grafel error: ", "value y\n"}));
}

TEST(PlotDocument, SelectionByElementAndById) {
    PlotDocument doc;
    PlotElement* canvas = add(doc, &doc, tok_Canvas, "page");
    PlotElement* a = add(doc, canvas, tok_ObjStyle, nullptr);
    PlotElement* b = add(doc, canvas, tok_ObjStyle, nullptr);
    doc.selectElement(b);
    EXPECT_EQ(doc.selectedElement(), b);
    EXPECT_TRUE(doc.selectElementId(Tessel::FixedStringBase<char>("page")));
    EXPECT_EQ(doc.selectedElement(), canvas);
    EXPECT_FALSE(doc.canDeleteSelection()); // the Canvas stays
    EXPECT_FALSE(doc.selectElementId(Tessel::FixedStringBase<char>("none")));
    EXPECT_EQ(doc.selectedElement(), nullptr);
    doc.selectElement(a);
    EXPECT_EQ(doc.selectedElement(), a);
    doc.selectElement(nullptr);
    EXPECT_EQ(doc.selectedElement(), nullptr);
    doc.selectElement(a);
    EXPECT_FALSE(doc.selectElementId(Tessel::FixedStringBase<char>("")));
    EXPECT_EQ(doc.selectedElement(), nullptr);
    // A range around two siblings selects nothing; one around a text node neither.
    Arbor::Range* range = doc.firstSelectedRange();
    range->setStart(canvas, 0);
    range->setEnd(canvas, 2);
    EXPECT_EQ(doc.selectedElement(), nullptr);
}

TEST(PlotDocument, DeleteSelectionIsOneUndoStepAndClearsConsistent) {
    PlotDocument doc;
    PlotElement* canvas = add(doc, &doc, tok_Canvas, nullptr);
    canvas->setAttributeString(tok_Consistent, "1");
    PlotElement* style = add(doc, canvas, tok_ObjStyle, nullptr);
    doc.selectElement(style);
    ASSERT_TRUE(doc.canDeleteSelection());
    doc.deleteSelection();
    EXPECT_EQ(canvas->firstChild(), nullptr);
    EXPECT_EQ(canvas->getProperty(tok_Consistent), Arbor::BoolVariant(false));
    ASSERT_TRUE(doc.undo());
    EXPECT_EQ(canvas->firstChild(), style);
    EXPECT_EQ(canvas->getProperty(tok_Consistent), Arbor::BoolVariant(true));
    EXPECT_FALSE(doc.canUndo()); // the removal and the flag were one step
}

TEST(PlotDocument, AnimationEntryPointsReachTheCanvas) {
    PlotDocument doc;
    PlotElement* canvas = add(doc, &doc, tok_Canvas, nullptr);
    EXPECT_TRUE(std::isnan(doc.getInitialAnimationTime()));
    canvas->setAttributeString(tok_InitialTime, "2");
    EXPECT_EQ(doc.getInitialAnimationTime(), 2.0);
    doc.setCurrentAnimationTime(3);
    EXPECT_EQ(doc.getInitialAnimationTime(), 3.0);
    EXPECT_TRUE(canvas->hasAttribute(tok_CurrentTime));
}
