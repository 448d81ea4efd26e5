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
constexpr int id_AmbientLamp = id_AmbientLight;
constexpr int id_PointLamp = id_PointLight;
constexpr int id_DistantLamp = id_DistantLight;
constexpr int id_FlatLamp = id_SpotLight;
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
    GRAFEL_ELEMENT_CLASS_UNLISTED(Holder)
    GRAFEL_MEMBER_PROPERTIES(Holder, HOLDER_TABLE)
};
GRAFEL_DEFINE_MEMBER_PROPERTIES(Holder, HOLDER_TABLE)

class Shape : public PlotElement {
public:
    explicit Shape(Arbor::Document* d) : PlotElement(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(Shape)
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

// Three tables, each extending the one before, as the lights do; FlatLamp holds the same rows
// in one table, for the size. The lamps inherit from their parent.
#define AMBIENT_TABLE(P)                                                                           \
    P(Mandatory, DoubleProperty, LightIntensity, 1.0, 1.0)                                         \
    P(Inherited, ColorProperty, LightColor, RGBA::Black, RGBA::White)
#define POINT_TABLE(P)                                                                             \
    P(Mandatory, P3Property, Position, (P3(1, 1, 1)), (P3(0, 10, 0)))                              \
    P(Inherited, BoolProperty, CameraCoordinates, false, false)
#define DISTANT_TABLE(P) P(Mandatory, P3Property, Target, (P3(0, 0, 0)), (P3(0, 0, 0)))

class AmbientLamp : public PlotElement {
public:
    explicit AmbientLamp(Arbor::Document* d) : PlotElement(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(AmbientLamp)
    GRAFEL_MEMBER_PROPERTIES(AmbientLamp, AMBIENT_TABLE)
public:
    PlotElement* inheritingFrom(Token name) const override {
        auto* up = dynamic_cast<PlotElement*>(parent_);
        return up && up->hasAttribute(name) ? up : nullptr;
    }
    void getInheritanceChain(std::vector<PlotElement*>& chain) const override {
        if (auto* up = dynamic_cast<PlotElement*>(parent_)) chain.push_back(up);
    }
};
GRAFEL_DEFINE_MEMBER_PROPERTIES(AmbientLamp, AMBIENT_TABLE)

class PointLamp : public AmbientLamp {
public:
    explicit PointLamp(Arbor::Document* d) : AmbientLamp(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(PointLamp)
    GRAFEL_MEMBER_PROPERTIES_EXTENDING(PointLamp, AmbientLamp, POINT_TABLE)
};
GRAFEL_DEFINE_MEMBER_PROPERTIES(PointLamp, POINT_TABLE)

class DistantLamp : public PointLamp {
public:
    explicit DistantLamp(Arbor::Document* d) : PointLamp(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(DistantLamp)
    GRAFEL_MEMBER_PROPERTIES_EXTENDING(DistantLamp, PointLamp, DISTANT_TABLE)
};
GRAFEL_DEFINE_MEMBER_PROPERTIES(DistantLamp, DISTANT_TABLE)

#define FLAT_TABLE(P) AMBIENT_TABLE(P) POINT_TABLE(P) DISTANT_TABLE(P)
class FlatLamp : public PlotElement {
public:
    explicit FlatLamp(Arbor::Document* d) : PlotElement(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(FlatLamp)
    GRAFEL_MEMBER_PROPERTIES(FlatLamp, FLAT_TABLE)
};

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
    // Without observers no event is made; one that comes back later hears the next changes.
    s.doc.removeObserver(&s.events, tok_AfterPropertyChange);
    s.holder->setAttribute(tok_LineWidth, Arbor::DoubleVariant(6.0));
    EXPECT_EQ(s.events.heard.size(), 2u);
    s.doc.addObserver(&s.events);
    s.holder->setAttribute(tok_LineWidth, Arbor::DoubleVariant(7.0));
    EXPECT_EQ(s.events.heard.size(), 4u);
}

TEST(MemberFamily, ExtendedTablesShareOnePresenceWordAndFallThroughToTheBases) {
    // One presence word, and no more room than the same rows in a single table.
    EXPECT_EQ(sizeof(DistantLamp), sizeof(FlatLamp));
    static_assert(DistantLamp::propertyCount == 5 && PointLamp::propertyCount == 4);
    EXPECT_EQ(DistantLamp::presencePtr(),
              static_cast<std::uint32_t DistantLamp::*>(AmbientLamp::presencePtr()));

    ElementDocument doc;
    Ref<DistantLamp> lamp = static_cast<DistantLamp*>(DistantLamp::create(&doc));
    // The constructors of all three levels set their Mandatory bits: LightIntensity, Position
    // and Target are bits 0, 2 and 4.
    EXPECT_EQ(lamp.get()->*DistantLamp::presencePtr(), 0b10101u);
    EXPECT_EQ(lamp->getLightColor(), RGBA::Black);
    EXPECT_EQ(lamp->getPosition(), P3(1, 1, 1));
    for (Token name :
         {tok_LightIntensity, tok_LightColor, tok_Position, tok_CameraCoordinates, tok_Target})
        EXPECT_NE(lamp->propertyInfo(name), nullptr) << name.text();
    EXPECT_EQ(lamp->propertyInfo(tok_Radius), nullptr);

    // Inherited rows of every level refresh when the lamp moves under another lamp.
    Ref<PointLamp> up = static_cast<PointLamp*>(PointLamp::create(&doc));
    up->setAttribute(tok_LightColor, RGBAVariant(RGBA(1, 2, 3, 4)));
    up->setAttribute(tok_CameraCoordinates, Arbor::BoolVariant(true));
    up->appendChild(lamp.get());
    EXPECT_EQ(lamp->getLightColor(), RGBA(1, 2, 3, 4));
    EXPECT_TRUE(lamp->getCameraCoordinates());
    EXPECT_TRUE(lamp->hasProperty(tok_LightColor));
    EXPECT_FALSE(lamp->hasAttribute(tok_LightColor));

    // Values set on rows of the bases take their own bits in the one word, and are written
    // with the lamp's own rows first, then each base's.
    lamp->setAttribute(tok_LightColor, RGBAVariant(RGBA(255, 0, 0, 255)));
    lamp->setAttributeString(tok_Position, "1 2 3");
    lamp->setAttributeString(tok_LightIntensity, "0.5");
    EXPECT_EQ(lamp->getLightIntensity(), 0.5);
    EXPECT_EQ(lamp->getProperty(tok_Position), Arbor::Variant(P3Variant(P3(1, 2, 3))));
    EXPECT_EQ(lamp.get()->*DistantLamp::presencePtr(), 0b10111u);
    std::ostringstream xml;
    lamp->putAttributesXml(xml);
    std::ostringstream want;
    want << " Target=\"" << P3(0, 0, 0) << "\" Position=\"" << P3(1, 2, 3)
         << "\" LightIntensity=\"0.5\" LightColor=\"" << RGBA(255, 0, 0, 255) << "\"";
    EXPECT_EQ(xml.str(), want.str());
    lamp->removeAttribute(tok_LightColor);
    EXPECT_EQ(lamp->getLightColor(), RGBA(1, 2, 3, 4));
}
