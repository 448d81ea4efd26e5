#include "support/Plots.h"

#include <grafel/arbor/DocumentFragment.h>
#include <grafel/arbor/DomException.h>

#include <gtest/gtest.h>

using namespace TestSupport;
using Arbor::DomException;

namespace {

const RGBA red(255, 0, 0, 255);
const RGBA blue(0, 0, 255, 255);

} // namespace

TEST(PrimitiveTree, ConstructorValuesUntilInserted) {
    // Made, never placed under a parent: tokens null and colours opaque black, whatever the
    // defaults say, and the mandatory values present.
    PlotDocument doc;
    auto arc = make<Arc2d>(doc, tok_Arc2d);
    auto pts = make<Pts2d>(doc, tok_Pts2d);
    auto poly = make<Poly2d>(doc, tok_Poly2d);
    auto asymptote = make<VerticalAsymptote>(doc, tok_VerticalAsymptote);
    auto text = make<Text2d>(doc, tok_Text2d);
    auto arrow = make<Arrow2d>(doc, tok_Arrow2d);
    EXPECT_TRUE(arc->getLineStyle().isNull());
    EXPECT_TRUE(arc->getFillPattern().isNull());
    EXPECT_EQ(arc->getFillColor(), RGBA::Black);
    EXPECT_EQ(pts->getPointColor(), RGBA::Black);
    EXPECT_EQ(poly->getLineColor2(), RGBA::Black);
    EXPECT_TRUE(asymptote->getVerticalAsymptotesStyle().isNull());
    EXPECT_EQ(text->getTextFont(), FontStyle());
    EXPECT_EQ(arc->getSemiAxisX(), 1.0);
    EXPECT_EQ(arrow->getTo().x, 1.0);

    // Any parent refreshes them, even an image that stands nowhere: no object, so defaults.
    auto image = make<Img2d>(doc, tok_Img2d);
    image->appendChild(arc.get());
    EXPECT_EQ(arc->getLineStyle(), tok_Solid);
    EXPECT_EQ(arc->getFillColor(), RGBA(255, 0, 0, 255));
}

TEST(PrimitiveTree, OwnDefaultsWhereNothingIsStated) {
    Plot p;
    // Each primitive falls back on its own descriptor, not on the object's.
    EXPECT_EQ(p.arc->getFillColor(), red);
    EXPECT_EQ(p.object->getFillColor(), RGBA::Black);
    EXPECT_FALSE(p.poly->getLinesVisible());
    EXPECT_TRUE(p.object->getLinesVisible());
    EXPECT_EQ(p.arrow->getTipAngle(), 0.5235987755982989);
    EXPECT_EQ(p.object->getTipAngle(), 0.17453292519943295);
}

TEST(PrimitiveTree, InsertionTakesTheObjectsValueThenItsStyles) {
    Plot p(false);
    set(p.defaults.get(), tok_LineColor, "#00ff00");
    set(p.defaults.get(), tok_FillPattern, "CrossedLines");
    set(p.typed.get(), tok_LineColor, "#0000ff"); // the object's type beats Default, however far
    set(p.object.get(), tok_LineWidth, "1.5");
    set(p.typed.get(), tok_LineWidth, "3");
    set(p.arc.get(), tok_LineStyle, "Dotted"); // stated on the primitive itself
    p.object->appendChild(p.image.get());

    EXPECT_EQ(p.arc->getLineWidth(), 1.5);
    EXPECT_EQ(p.arc->getLineColor(), blue);
    EXPECT_EQ(p.arc->getFillPattern(), tok_CrossedLines);
    EXPECT_EQ(p.arc->getLineStyle(), tok_Dotted);
    EXPECT_EQ(p.poly->getLineStyle(), tok_Solid);
    EXPECT_EQ(p.arc->inheritingFrom(tok_LineColor), p.typed.get());
    EXPECT_EQ(p.arc->inheritingFrom(tok_LineWidth), p.object.get());
    EXPECT_EQ(p.arc->inheritingFrom(tok_Closed), nullptr);
    for (PlotElement* e : p.primitives())
        if (e->hasProperty(tok_LineColor)) {
            const Arbor::Variant colour = e->getProperty(tok_LineColor);
            EXPECT_EQ(colour, RGBAVariant(blue)) << e->tagName().text();
        }

    // Taken out of the tree, they fall back on their own defaults.
    p.group->removeChild(p.object.get());
    p.object->removeChild(p.image.get());
    EXPECT_EQ(p.arc->getLineWidth(), 0.5);
    EXPECT_EQ(p.arc->getLineColor(), RGBA::Black);
    EXPECT_EQ(p.arc->getLineStyle(), tok_Dotted);
}

TEST(PrimitiveTree, StyleChangesReachThePrimitivesThatFollowThem) {
    Plot p;
    set(p.defaults.get(), tok_LineWidth, "2");
    // The walk reaches them twice: once through the scene, once again from the style of the
    // object's type at scene level, which follows the Default style too.
    for (const char* tag : {"Arc2d", "Arrow2d", "Line2d", "Poly2d"})
        EXPECT_GE(p.heard.count(std::string(tag) + "@Img2d.LineWidth"), 1) << tag;
    EXPECT_EQ(p.heard.count("Pt2d@Img2d.LineWidth"), 0);
    EXPECT_EQ(p.line->getLineWidth(), 2.0);

    // A primitive with its own value hears nothing and keeps it.
    set(p.arc.get(), tok_LineWidth, "3");
    p.heard.events.clear();
    set(p.defaults.get(), tok_LineWidth, "2.5");
    EXPECT_EQ(p.heard.count("Arc2d@Img2d.LineWidth"), 0);
    EXPECT_EQ(p.arc->getLineWidth(), 3.0);
    EXPECT_EQ(p.line->getLineWidth(), 2.5);

    set(p.typed.get(), tok_LineWidth, "4");
    EXPECT_EQ(p.poly->getLineWidth(), 4.0);
    p.typed->removeAttribute(tok_LineWidth);
    EXPECT_EQ(p.poly->getLineWidth(), 2.5);
    p.defaults->removeAttribute(tok_LineWidth);
    EXPECT_EQ(p.poly->getLineWidth(), 0.5);

    // The object's own value; removed, the primitive's default comes back, not the style's.
    set(p.object.get(), tok_VerticalAsymptotesVisible, "0");
    EXPECT_FALSE(p.asymptote->getVerticalAsymptotesVisible());
    p.object->removeAttribute(tok_VerticalAsymptotesVisible);
    EXPECT_TRUE(p.asymptote->getVerticalAsymptotesVisible());

    // Out of range for the style's own descriptor: refused there, nothing changes below.
    EXPECT_THROW(set(p.defaults.get(), tok_LineWidth, "0"), DomException);
    EXPECT_EQ(p.poly->getLineWidth(), 0.5);
}

TEST(PrimitiveTree, StatedValuesAndRanges) {
    Plot p;
    set(p.object.get(), tok_PointSize, "3");
    set(p.pt.get(), tok_PointSize, "1");
    EXPECT_EQ(p.pt->getPointSize(), 1.0);
    p.pt->removeAttribute(tok_PointSize); // follows the object again
    EXPECT_EQ(p.pt->getPointSize(), 3.0);
    // setProperty to what would be inherited states nothing.
    p.pt->setProperty(tok_PointSize, Arbor::DoubleVariant(3.0));
    EXPECT_FALSE(p.pt->hasAttribute(tok_PointSize));
    EXPECT_THROW(p.pt->removeAttribute(tok_Position), DomException);
    // Sizes of lines and points must be positive, a tip may have no length.
    reports().clear();
    EXPECT_THROW(set(p.pt.get(), tok_PointSize, "0"), DomException);
    EXPECT_EQ(reports(), std::vector<std::string>{"illegal value [attribute 'PointSize']\n"});
    EXPECT_THROW(set(p.asymptote.get(), tok_VerticalAsymptotesWidth, "-1"), DomException);
    set(p.arrow.get(), tok_TipLength, "0");
    EXPECT_THROW(set(p.arrow.get(), tok_TipLength, "-0.5"), DomException);
    EXPECT_EQ(p.arrow->getTipLength(), 0.0);
}

TEST(PrimitiveTree, XmlHoldsWhatWasStatedOnly) {
    Plot p;
    set(p.object.get(), tok_LineWidth, "1.5"); // inherited: never written by the primitive
    EXPECT_EQ(xml(p.arc.get()), "<Arc2d SemiAxisY=\"1\" SemiAxisX=\"1\" Center=\"0 0\"></Arc2d>");
    EXPECT_EQ(xml(p.image.get()).substr(0, 14), "<Img2d><Arc2d ");

    set(p.arc.get(), tok_EndAngle, "3");
    set(p.arc.get(), tok_FillColor, "#0000ff");
    p.arc->setAttributeString(tok_Center, "1 -2");
    EXPECT_EQ(xml(p.arc.get()), "<Arc2d SemiAxisY=\"1\" SemiAxisX=\"1\" FillColor=\"#0000ff\" "
                                "EndAngle=\"3\" Center=\"1 -2\"></Arc2d>");
    p.pts->push_back(P2(1, 2), red);
    p.pts->setAttributeString(tok_PointStyle, "Stars");
    EXPECT_EQ(xml(p.pts.get()), "<Pts2d PointStyle=\"Stars\"><P2>1 2 #ff0000</P2></Pts2d>");
    p.text->appendChild(p.doc.createTextNode(L"a < b"));
    p.text->setAttributeString(tok_TextRotation, "0.5");
    EXPECT_EQ(xml(p.text.get()), "<Text2d TextRotation=\"0.5\" Position=\"0 0\">a &lt; b</Text2d>");
    set(p.image.get(), tok_Param, "0.25");
    EXPECT_EQ(xml(p.image.get()).substr(0, 20), "<Img2d Param=\"0.25\">");
}

TEST(PrimitiveTree, PointListClonesKeepTheirPoints) {
    Plot p;
    p.poly->push_back(P2(0, 0));
    p.poly->push_back(P2(1, 0));
    p.poly->push_back(P2(1, 1));
    set(p.poly.get(), tok_Closed, "1");
    Ref<Poly2d> poly(static_cast<Poly2d*>(p.poly->cloneNode(false)));
    EXPECT_EQ(xml(poly.get()), xml(p.poly.get()));
    EXPECT_EQ(poly->parentNode(), nullptr);

    p.text->appendChild(p.doc.createTextNode(L"label"));
    Ref<Arbor::Node> text(p.text->cloneNode(true));
    EXPECT_EQ(xml(text.get()), "<Text2d Position=\"0 0\">label</Text2d>");
    Ref<Arbor::Node> bare(p.text->cloneNode(false));
    EXPECT_EQ(bare->firstChild(), nullptr);

    // A deep copy of an image copies its primitives, points included.
    Ref<Arbor::Node> image(p.image->cloneNode(true));
    EXPECT_EQ(image->items(), p.image->items());
    EXPECT_EQ(static_cast<Poly2d*>(image->findChild(tok_Poly2d))->size(), 3u);
}

TEST(PrimitiveTree, ChildrenAreRefused) {
    Plot p;
    Ref<Arbor::Node> line(p.doc.createElement(tok_Line2d));
    for (PlotElement* e : p.primitives()) {
        reports().clear();
        EXPECT_THROW(e->appendChild(line.get()), DomException) << e->tagName().text();
        if (e != p.text.get()) {
            EXPECT_TRUE(reports().empty()) << e->tagName().text();
        }
    }
    Ref<Arbor::Node> word(p.doc.createTextNode(L"x"));
    EXPECT_THROW(p.arc->appendChild(word.get()), DomException);
    EXPECT_EQ(p.arc->firstChild(), nullptr);

    // A text takes text; only the head of an incoming chain is looked at.
    reports().clear();
    EXPECT_THROW(p.text->appendChild(line.get()), DomException);
    EXPECT_EQ(reports(), std::vector<std::string>{"not a text node child [parent 'Text2d']\n"});
    Ref<Arbor::DocumentFragment> chain(p.doc.createDocumentFragment());
    chain->appendChild(p.doc.createTextNode(L"x"));
    chain->appendChild(p.doc.createElement(tok_Line2d));
    p.text->appendChild(chain.get());
    EXPECT_EQ(p.text->items(), 2u);
    p.text->removeChild(p.text->firstChild()); // removals are free
    EXPECT_EQ(p.text->items(), 1u);

    // An image takes the primitives of its dimension only.
    reports().clear();
    Ref<Arbor::Node> object(p.doc.createElement(tok_Obj2d));
    EXPECT_THROW(p.image->appendChild(object.get()), DomException);
    EXPECT_EQ(reports(),
              std::vector<std::string>{"not a valid content child 'Obj2d' [parent 'Img2d']\n"});
    auto image3 = make<Img3d>(p.doc, tok_Img3d);
    EXPECT_THROW(image3->appendChild(line.get()), DomException);
    p.image->appendChild(line.get());
}
