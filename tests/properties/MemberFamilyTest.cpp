#include <grafel/arbor/DomException.h>
#include <grafel/properties/AfterPropertyChangeEvent.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PropertyTypes.h>

#include "support/Reports.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace Grafel;
using Arbor::Ref;
using Arbor::Token;

// Ids used as tags by the classes below.
namespace Grafel {
constexpr int id_Holder = id_Obj2d;
constexpr int id_Shape = id_Arc2d;
} // namespace Grafel

namespace {

// A holder that inherits nothing, and a shape below it that inherits from its parent's
// parent, as primitives do.
#define HOLDER_TABLE(P)                                                                            \
    P(Optional, TokenProperty, LineStyle, Token(), getToken(id_Solid))                             \
    P(Optional, DoubleProperty, LineWidth, 0.0, 0.35)

#define SHAPE_TABLE(P)                                                                             \
    P(Mandatory, P2Property, Center, (P2(0, 0)), (P2(0, 0)))                                       \
    P(Mandatory, DoubleProperty, Radius, 1.0, 1.0)                                                 \
    P(Optional, ColorProperty, FillColor, RGBA(), (RGBA(255, 0, 0, 255)))                          \
    P(Inherited, TokenProperty, LineStyle, Token(), getToken(id_Solid))                            \
    P(Inherited, DoubleProperty, LineWidth, 0.0, 0.35)

class Holder : public PlotElement {
public:
    explicit Holder(Arbor::Document* d) : PlotElement(d) {}
    GRAFEL_ELEMENT_CLASS(Holder)
    GRAFEL_MEMBER_PROPERTIES(Holder, HOLDER_TABLE)
};
GRAFEL_DEFINE_MEMBER_PROPERTIES(Holder, HOLDER_TABLE)

class Shape : public PlotElement {
public:
    explicit Shape(Arbor::Document* d) : PlotElement(d) {}
    GRAFEL_ELEMENT_CLASS(Shape)
    GRAFEL_MEMBER_PROPERTIES(Shape, SHAPE_TABLE)
public:
    PlotElement* inheritingFrom(Token name) const override {
        auto* up = parent_ ? dynamic_cast<PlotElement*>(parent_->parentNode()) : nullptr;
        if (!up || up->hasAttribute(name)) return up;
        return up->inheritingFrom(name);
    }
    void getInheritanceChain(std::vector<PlotElement*>& chain) const override {
        auto* up = parent_ ? dynamic_cast<PlotElement*>(parent_->parentNode()) : nullptr;
        if (!up) return;
        chain.push_back(up);
        up->getInheritanceChain(chain);
    }
};
GRAFEL_DEFINE_MEMBER_PROPERTIES(Shape, SHAPE_TABLE)

} // namespace

namespace {

std::vector<std::string>& reports = TestSupport::reports();
constexpr auto collect = &TestSupport::collectReport;

struct Events : Arbor::IDocObserver {
    std::vector<std::string> heard;
    void handleEvent(Arbor::DomEvent& e) override {
        auto& a = static_cast<Arbor::DomAttributeEvent&>(e);
        heard.push_back(std::string(e.target()->tagName().text()) + "." + a.attribute().text());
    }
};

// holder > image (a holder too, inheriting nothing) > shape
struct Scene {
    ElementDocument doc;
    Ref<Holder> holder = static_cast<Holder*>(Holder::create(&doc));
    Ref<Holder> image = static_cast<Holder*>(Holder::create(&doc));
    Ref<Shape> shape = static_cast<Shape*>(Shape::create(&doc));
    Events events;
    Scene() {
        reports.clear();
        doc.domErrorHdl(collect);
        holder->appendChild(image.get());
        image->appendChild(shape.get());
        doc.addObserver(&events, tok_AfterPropertyChange);
    }
};

} // namespace

TEST(MemberFamily, ConstructorValuesUntilInsertedThenInheritedOrDefault) {
    ElementDocument doc;
    Ref<Shape> lone = static_cast<Shape*>(Shape::create(&doc));
    // Before insertion: the constructor's values, which differ from the defaults on purpose.
    EXPECT_EQ(lone->getFillColor(), RGBA());
    EXPECT_TRUE(lone->getLineStyle().isNull());
    EXPECT_TRUE(lone->hasAttribute(tok_Radius)); // mandatory: always present
    EXPECT_FALSE(lone->hasAttribute(tok_FillColor));

    Scene s;
    s.holder->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
    EXPECT_EQ(s.shape->getFillColor(), RGBA(255, 0, 0, 255)); // default after insertion
    EXPECT_EQ(s.shape->getLineStyle(), tok_Solid);
    EXPECT_EQ(s.shape->getLineWidth(), 2.0); // from the holder above the image
    EXPECT_EQ(s.shape->inheritingFrom(tok_LineWidth), s.holder.get());
    EXPECT_TRUE(s.shape->inheritingElement(s.holder.get(), tok_LineWidth));
    EXPECT_EQ(Shape::P2AttributePtr(id_Center),
              &Shape::getCenter == nullptr ? nullptr : Shape::P2AttributePtr(id_Center));
    EXPECT_EQ(Shape::P2AttributePtr(id_Radius), nullptr);
    EXPECT_NE(Shape::doubleAttributePtr(id_Radius), nullptr);
    EXPECT_EQ(Shape::doubleAttributePtr(id_Center), nullptr);
}

TEST(MemberFamily, ChangesAboveFlowDownAndStopAtExplicitValues) {
    Scene s;
    s.events.heard.clear();
    s.holder->setAttribute(tok_LineWidth, Arbor::DoubleVariant(3.0));
    EXPECT_EQ(s.shape->getLineWidth(), 3.0);
    // The holder fires for itself; the unset image re-derives its optional value (the default)
    // and lets the walk go on; the shape takes the new value from the holder.
    EXPECT_EQ(s.events.heard,
              (std::vector<std::string>{"Obj2d.LineWidth", "Obj2d.LineWidth", "Arc2d.LineWidth"}));
    // An explicit value on the shape stops the walk there.
    s.shape->setAttribute(tok_LineWidth, Arbor::DoubleVariant(5.0));
    s.events.heard.clear();
    s.holder->setAttribute(tok_LineWidth, Arbor::DoubleVariant(4.0));
    EXPECT_EQ(s.shape->getLineWidth(), 5.0);
    EXPECT_EQ(s.events.heard.size(), 2u);
}
