#include <grafel/arbor/DomException.h>
#include <grafel/structure/Canvas.h>
#include <grafel/structure/TimeRange.h>

#include "support/Plots.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

using namespace TestSupport;
using Arbor::DomException;

TEST(Canvas, TheStandardLibrary) {
    Page p;
    p.canvas->setDefaults();
    EXPECT_EQ(p.canvas->getWidth(), 120.0);
    EXPECT_EQ(p.canvas->getHeight(), 80.0);
    EXPECT_EQ(p.canvas->getHeaderFont().family().view(), L"Arial");
    EXPECT_EQ(p.canvas->getBorderColor(), RGBA::White);
    // The object styles are there, in order, each with its Type.
    std::vector<std::string> types;
    for (Arbor::Node* n = p.canvas->firstChild(); n; n = n->nextSibling())
        if (n->nodeName() == tok_ObjStyle)
            types.push_back(static_cast<ObjStyle*>(n)->getType().text());
    EXPECT_EQ(types, (std::vector<std::string>{"Default", "Surface", "Curve2d", "Curve3d",
                                               "Function2d", "Implicit2d", "Polygon2d",
                                               "VectorField2d", "VectorField3d", "Plane"}));
    EXPECT_TRUE(reports().empty()) << reports().front();
}

TEST(Canvas, NumericRulesOfThePage) {
    Page p;
    EXPECT_THROW(p.canvas->setAttributeString(tok_Width, "0"), DomException);
    EXPECT_EQ(reports().back(), "illegal value [attribute 'Width']\n");
    EXPECT_EQ(p.canvas->getWidth(), 100.0);
    // Page sizes that must not be negative are nonetheless stored as given.
    p.canvas->setAttributeString(tok_Spacing, "-3");
    EXPECT_EQ(p.canvas->getSpacing(), -3.0);
    EXPECT_THROW(p.canvas->setAttributeString(tok_Rows, "-1"), DomException);
    EXPECT_THROW(p.canvas->setAttributeString(tok_version, "0"), DomException);
}

TEST(Canvas, ChildrenOptionsAndScenes) {
    Page p;
    Ref<PlotElement> range = p.doc.createPlotElement(tok_TimeRange);
    p.canvas->appendChild(range.get());
    Ref<PlotElement> second = p.doc.createPlotElement(tok_TimeRange);
    EXPECT_THROW(p.canvas->appendChild(second.get()), DomException);
    EXPECT_EQ(reports().back(), "option child 'TimeRange' defined twice [parent 'Canvas']\n");
    Ref<PlotElement> title = p.doc.createPlotElement(tok_Title);
    EXPECT_THROW(p.canvas->appendChild(title.get()), DomException);
    EXPECT_EQ(reports().back(), "not a valid content child 'Title' [parent 'Canvas']\n");
    // A time range holds no children.
    Ref<PlotElement> expr = p.doc.createPlotElement(tok_Expr);
    EXPECT_THROW(range->appendChild(expr.get()), DomException);
}

TEST(Canvas, XmlAndCommandForms) {
    Page p;
    p.canvas->setAttributeString(tok_id, "page");
    p.canvas->setAttributeString(tok_Consistent, "1");
    p.canvas->setAttributeString(tok_CurrentTime, "nan");
    p.canvas->setAttributeString(tok_OutputUnits, "In");
    p.canvas->setAttributeString(tok_Width, "25.4");
    std::ostringstream xml;
    p.canvas->putAttributesXml(xml);
    // id never reaches XML, a NaN time neither; Consistent does.
    EXPECT_EQ(xml.str(), " Width=\"25.4\" OutputUnits=\"In\" Consistent=\"1\"");

    std::ostringstream cmd;
    p.doc.putCmd(cmd, false);
    // Records by descending word: lower-case catalogue words come last in the catalogue.
    EXPECT_EQ(cmd.str(), "plot(\r\n  plot::Canvas(\r\n"
                         "    id=\"page\",\r\n"
                         "    Width=1,\r\n"
                         "    OutputUnits=unit::inch)):");
}

TEST(Canvas, AnimationStepsWithinTheTimeRange) {
    Page p;
    EXPECT_TRUE(std::isnan(p.doc.getNextAnimationTime(0, false))); // no TimeRange, no animation
    Ref<PlotElement> range = p.doc.createPlotElement(tok_TimeRange);
    range->setAttributeString(tok_TimeBegin, "1");
    range->setAttributeString(tok_TimeEnd, "5");
    p.canvas->appendChild(range.get());
    EXPECT_EQ(p.doc.getNextAnimationTime(2, false), 5.0);
    EXPECT_EQ(p.doc.getNextAnimationTime(2, true), 1.0);
    EXPECT_TRUE(std::isnan(p.doc.getNextAnimationTime(5, false)));
    EXPECT_TRUE(std::isnan(p.doc.getNextAnimationTime(1, true)));
    EXPECT_EQ(p.doc.getNextAnimationTime(std::nan(""), false), 5.0);
}
