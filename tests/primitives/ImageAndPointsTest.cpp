// The time of an image, and the symbolic points of an object.
#include "support/Plots.h"

#include <grafel/arbor/DomException.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace TestSupport;
using Arbor::DomException;

namespace {

void setVal(Arbor::Node* bound, double v) {
    static_cast<PlotElement*>(bound)->setAttribute(tok_Val, Arbor::DoubleVariant(v));
}

/// The plot with the object's time range [0, 10] and parameter range [0, 1].
struct Animated : Plot {
    Ref<Arbor::Node> begin, end;
    Animated() {
        object->setAttribute(tok_TimeEnd, Arbor::DoubleVariant(10));
        begin = doc.createElement(tok_ParameterBegin);
        end = doc.createElement(tok_ParameterEnd);
        setVal(begin.get(), 0);
        setVal(end.get(), 1);
        object->appendChild(begin.get());
        object->appendChild(end.get());
    }
    void param(ImgBase* img, double v) { img->setAttribute(tok_Param, Arbor::DoubleVariant(v)); }
};

} // namespace

TEST(PrimitiveImage, TimeComesFromTheObjectAndIsKept) {
    Animated a;
    EXPECT_TRUE(std::isnan(a.image->getParam()));
    EXPECT_TRUE(std::isnan(a.image->getTime())); // no Param
    a.param(a.image.get(), 0.25);
    EXPECT_EQ(a.image->getTime(), 2.5);

    // Kept: the option children of the object do not reach the image.
    setVal(a.end.get(), 2);
    EXPECT_EQ(a.image->getTime(), 2.5);
    EXPECT_EQ(a.image->getTime(0, 1, 0, 1), 2.5);
    // Cleared by a change of its own attributes...
    a.image->setAttribute(tok_TitlePositionX, Arbor::DoubleVariant(1));
    EXPECT_EQ(a.image->getTime(), 1.25); // 0.25 of [0, 2] mapped onto [0, 10]
    // ...by a change above, on its way down to the primitives...
    a.object->setAttribute(tok_TimeEnd, Arbor::DoubleVariant(40));
    EXPECT_EQ(a.image->getTime(), 5);
    setVal(a.end.get(), 1);
    EXPECT_EQ(a.image->getTime(), 5);
    // ...and by a move.
    a.object->removeChild(a.image.get());
    EXPECT_TRUE(std::isnan(a.image->getTime())); // under no object
    a.object->appendChild(a.image.get());
    EXPECT_EQ(a.image->getTime(), 10);
}

TEST(PrimitiveImage, TimeNeedsAnObjectWithBothRanges) {
    Animated a;
    a.param(a.image.get(), 0.5);
    // The mapping itself: an empty parameter range gives the begin, and is not kept.
    EXPECT_EQ(a.image->getTime(3, 10, 1, 1), 3);
    EXPECT_EQ(a.image->getTime(3, 10, 0, 1), 6.5);
    EXPECT_EQ(a.image->getTime(0, 10, 0, 1), 6.5); // kept from the call before

    Animated b;
    b.param(b.image.get(), 0.5);
    setVal(b.end.get(), NaN());
    EXPECT_TRUE(std::isnan(b.image->getTime()));
    setVal(b.end.get(), 1);
    b.object->setAttribute(tok_TimeBegin, Arbor::DoubleVariant(NaN()));
    EXPECT_TRUE(std::isnan(b.image->getTime()));
    b.object->removeAttribute(tok_TimeBegin);
    b.object->removeChild(b.end.get());
    EXPECT_TRUE(std::isnan(b.image->getTime())); // no ParameterEnd
    b.object->appendChild(b.end.get());
    EXPECT_EQ(b.image->getTime(), 5);

    // An image anywhere but under an object has no time, however complete its arguments.
    Plot c;
    auto image = make<Img2d>(c.doc, tok_Img2d);
    image->setAttribute(tok_Param, Arbor::DoubleVariant(0.5));
    c.group->appendChild(image.get());
    EXPECT_TRUE(std::isnan(image->getTime()));
    auto image3 = make<Img3d>(c.doc, tok_Img3d);
    image3->setAttribute(tok_Param, Arbor::DoubleVariant(0.5));
    EXPECT_TRUE(std::isnan(image3->getTime()));

    // A plane image has no z title position; a space image has.
    EXPECT_FALSE(image->hasProperty(tok_TitlePositionZ));
    EXPECT_THROW(image->setAttribute(tok_TitlePositionZ, Arbor::DoubleVariant(1)), DomException);
    image3->setAttribute(tok_TitlePositionZ, Arbor::DoubleVariant(1));
    EXPECT_EQ(xml(image3.get()), "<Img3d TitlePositionZ=\"1\" Param=\"0.5\"></Img3d>");
}

TEST(PrimitiveImage, ChangesOfTheImageStopAtItsPrimitives) {
    Plot p;
    p.heard.events.clear();
    p.image->setAttribute(tok_Param, Arbor::DoubleVariant(0.5));
    EXPECT_EQ(p.heard.events, std::vector<std::string>{"Img2d@Obj2d.Param"});
    // A change above goes through the image, which has no such property, to the primitives.
    p.heard.events.clear();
    p.object->setAttribute(tok_AntiAliased, Arbor::BoolVariant(false));
    EXPECT_EQ(p.heard.count("Img2d@Obj2d.AntiAliased"), 0);
    EXPECT_EQ(p.heard.count("Text2d@Img2d.AntiAliased"), 0);
    EXPECT_EQ(p.heard.count("Pts2d@Img2d.AntiAliased"), 1);
    EXPECT_FALSE(p.line->getAntiAliased());
}

namespace {

Ref<Arbor::Node> item(PlotDocument& doc, const wchar_t* text) {
    Ref<Arbor::Node> e(doc.createElement(tok_IExpr));
    if (text) e->appendChild(doc.createTextNode(text));
    return e;
}

void write(Arbor::Node* point, std::initializer_list<const wchar_t*> texts) {
    Arbor::Node* n = point->firstChild();
    for (const wchar_t* t : texts) {
        n->appendChild(point->ownerDocument()->createTextNode(t));
        n = n->nextSibling();
    }
}

} // namespace

TEST(PrimitivePoints, PointsHoldTheirCoordinatesAndAtMostFourMore) {
    PlotDocument doc;
    auto point = make<Point2d>(doc, tok_Point2d);
    auto point3 = make<Point3d>(doc, tok_Point3d);
    EXPECT_EQ(point->items(), 2u);
    EXPECT_EQ(point3->items(), 3u);
    EXPECT_EQ(point->firstChild()->nodeName(), tok_IExpr);
    EXPECT_THROW(point->removeChild(point->firstChild()), DomException);
    Ref<Arbor::Node> value(doc.createElement(tok_VExpr));
    EXPECT_THROW(point->appendChild(value.get()), DomException);
    for (int k = 0; k < 4; ++k) point->appendChild(item(doc, L"1").get());
    EXPECT_THROW(point->appendChild(item(doc, L"1").get()), DomException);
    EXPECT_EQ(point->items(), 6u);
    for (int k = 0; k < 4; ++k) point3->appendChild(item(doc, L"1").get());
    EXPECT_EQ(point3->items(), 7u);
    EXPECT_THROW(point3->appendChild(item(doc, L"1").get()), DomException);
    // One for one is always fine.
    point3->replaceChild(item(doc, L"z").get(), point3->firstChild());
    EXPECT_FALSE(point3->hasAttribute(tok_Type));
    EXPECT_EQ(point3->propertyInfo(tok_Type), nullptr);
}

TEST(PrimitivePoints, CommandTextNestsTheColourAfterTheCoordinates) {
    PlotDocument doc;
    auto point = make<Point2d>(doc, tok_Point2d);
    EXPECT_EQ(cmd(point.get()), "  [NIL,NIL]");
    write(point.get(), {L"a", L"b^2"});
    EXPECT_EQ(cmd(point.get()), "  [a,b^2]");
    for (const wchar_t* c : {L"0.5", L"1", L"0"}) point->appendChild(item(doc, c).get());
    EXPECT_EQ(cmd(point.get()), "  [a,b^2,[0.5,1,0]]");

    auto points = make<Points2d>(doc, tok_Points2d);
    EXPECT_EQ(cmd(points.get()), "  Points2d=NIL");
    points->appendChild(point.get());
    auto second = make<Point2d>(doc, tok_Point2d);
    write(second.get(), {L"1", L"2"});
    points->appendChild(second.get());
    EXPECT_EQ(cmd(points.get()), "  Points2d=[\r\n    [a,b^2,[0.5,1,0]],\r\n    [1,2]]");
    EXPECT_THROW(points->appendChild(make<Point3d>(doc, tok_Point3d).get()), DomException);
    EXPECT_THROW(make<Points3d>(doc, tok_Points3d)->appendChild(second.get()), DomException);

    // An object takes its points as an option child, once.
    Plot p;
    p.object->appendChild(make<Points2d>(p.doc, tok_Points2d).get());
    EXPECT_NE(p.object->findChild(tok_Points2d), nullptr);
    EXPECT_THROW(p.object->appendChild(make<Points2d>(p.doc, tok_Points2d).get()), DomException);
}

TEST(PrimitivePoints, ClonesKeepTheirNumberOfExpressions) {
    PlotDocument doc;
    auto point = make<Point2d>(doc, tok_Point2d);
    write(point.get(), {L"x", L"y"});
    point->appendChild(item(doc, L"1").get());
    Ref<Arbor::Node> deep(point->cloneNode(true));
    EXPECT_EQ(deep->items(), 3u);
    EXPECT_EQ(cmd(static_cast<PlotElement*>(deep.get())), "  [x,y,[1]]");
    Ref<Arbor::Node> shallow(point->cloneNode(false));
    EXPECT_EQ(cmd(static_cast<PlotElement*>(shallow.get())), "  [NIL,NIL]");
    Ref<Point2d> copy(new Point2d(*point));
    EXPECT_EQ(cmd(copy.get()), "  [x,y,[1]]");

    auto points = make<Points2d>(doc, tok_Points2d);
    points->appendChild(point.get());
    Ref<Arbor::Node> list(points->cloneNode(true));
    EXPECT_EQ(cmd(static_cast<PlotElement*>(list.get())), "  Points2d=[\r\n    [x,y,[1]]]");
}
