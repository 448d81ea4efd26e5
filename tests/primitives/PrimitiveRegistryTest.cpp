// Invariants over every registered primitive class and every property of its table.
#include "PrimitiveTestSupport.h"

#include <grafel/primitives/ImgBase.h>
#include <grafel/properties/ElementRegistry.h>
#include <grafel/properties/Property.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

using namespace PrimitiveTest;

namespace {

constexpr int lastTokenId = id_version;

/// NaN equals NaN here: the defaults of an image are NaN.
bool sameValue(const Arbor::Variant& a, const Arbor::Variant& b) {
    const auto* x = a.as<Arbor::DoubleVariant>();
    const auto* y = b.as<Arbor::DoubleVariant>();
    if (x && y && std::isnan(x->val()) && std::isnan(y->val())) return true;
    return a == b;
}

/// The text between the quotes of ` Name="text"`, with the escapes of XML undone.
std::string attributeText(const std::string& written) {
    std::string text = written.substr(written.find('"') + 1);
    text.pop_back();
    std::string plain;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '&') {
            plain += text[i];
            continue;
        }
        const size_t end = text.find(';', i);
        const std::string entity = text.substr(i + 1, end - i - 1);
        plain += entity == "lt"     ? '<'
                 : entity == "gt"   ? '>'
                 : entity == "quot" ? '"'
                 : entity == "apos" ? '\''
                                    : '&';
        i = end;
    }
    return plain;
}

/// Every class registered for a tag that makes a primitive or an image, with the tokens of
/// its properties.
struct Registered {
    Token tag;
    std::vector<Token> properties;
};
std::vector<Registered> registeredPrimitives(PlotDocument& doc) {
    std::vector<Registered> out;
    for (int id = 1; id <= lastTokenId; ++id) {
        if (!elementMaker(id)) continue;
        Ref<PlotElement> e(doc.createPlotElement(getToken(id)));
        if (!dynamic_cast<PrimitiveBase*>(e.get()) && !dynamic_cast<ImgBase*>(e.get())) continue;
        Registered r{getToken(id), {}};
        for (int p = 1; p <= lastTokenId; ++p)
            if (e->propertyInfo(getToken(p))) r.properties.push_back(getToken(p));
        out.push_back(r);
    }
    return out;
}

} // namespace

TEST(PrimitiveRegistry, EveryClassOfThisLayerIsRegistered) {
    PlotDocument doc;
    std::vector<std::string> tags;
    for (const Registered& r : registeredPrimitives(doc)) tags.push_back(r.tag.text());
    for (const char* tag : {"Arc2d", "Arrow2d", "Line2d", "Pt2d", "Pts2d", "Poly2d", "Text2d",
                            "VerticalAsymptote", "Img2d", "Img3d"})
        EXPECT_NE(std::find(tags.begin(), tags.end(), tag), tags.end()) << tag;
    for (const char* tag : {"Point2d", "Point3d", "Points2d", "Points3d"})
        EXPECT_NE(elementMaker(getTokenId(tag)), nullptr) << tag;
}

// For each property: the kind decides presence on a new element; before insertion an absent
// token is null and an absent colour black; once in a tree with nothing stated above, an absent
// value is the default and a mandatory one the constructor's; the default reads back through
// the property's own parser; an unset Optional or Inherited property is not written, a stated
// one is written once. Classes of other layers that build on PrimitiveBase are held to the
// same rules.
TEST(PrimitiveRegistry, EveryPropertyKeepsTheRulesOfItsKind) {
    Plot p;
    auto image3 = make<Img3d>(p.doc, tok_Img3d);
    for (const Registered& r : registeredPrimitives(p.doc)) {
        SCOPED_TRACE(r.tag.text());
        ASSERT_FALSE(r.properties.empty());
        Ref<PlotElement> lone(p.doc.createPlotElement(r.tag));
        Ref<PlotElement> placed(p.doc.createPlotElement(r.tag));
        // An Img2d stands under the object, a 2D primitive in the object's image; the rest
        // stand in an image apart, where only defaults reach them.
        if (r.tag == tok_Img2d) {
            p.object->appendChild(placed.get());
        } else if (!dynamic_cast<ImgBase*>(placed.get())) {
            try {
                p.image->appendChild(placed.get());
            } catch (const Arbor::DomException&) {
                reports().clear();
                image3->appendChild(placed.get());
            }
        }

        for (Token name : r.properties) {
            SCOPED_TRACE(name.text());
            Property* d = placed->propertyInfo(name);
            const Arbor::Variant def = d->defaultValue();
            EXPECT_EQ(lone->hasAttribute(name), d->isMandatory());
            EXPECT_TRUE(placed->isPropertyEnabled(name));
            const Arbor::Variant initial = lone->getProperty(name);
            if (d->isMandatory()) {
                EXPECT_TRUE(sameValue(placed->getProperty(name), initial));
            } else {
                if (const auto* token = initial.as<Arbor::TokenVariant>()) {
                    EXPECT_TRUE(token->val().isNull());
                }
                if (const auto* colour = initial.as<RGBAVariant>()) {
                    EXPECT_EQ(colour->val(), RGBA::Black);
                }
                EXPECT_TRUE(sameValue(placed->getProperty(name), def));
            }

            std::ostringstream one;
            placed->putXml(one);
            EXPECT_EQ(one.str().find(" " + std::string(name.text()) + "=\"") != std::string::npos,
                      d->isMandatory());

            const auto* token = def.as<Arbor::TokenVariant>();
            if (token && token->val().isNull()) continue; // no text form
            // At the stream's default precision EndAngle and TipAngle lose digits; the
            // parser is what is tested here, so nothing is lost on the way to it.
            std::ostringstream written;
            written.precision(17);
            d->putXmlValue(written, def);
            placed->setAttributeString(name, attributeText(written.str()).c_str());
            EXPECT_TRUE(placed->hasAttribute(name));
            EXPECT_TRUE(sameValue(placed->getProperty(name), def)) << written.str();
            std::ostringstream two;
            two.precision(17);
            placed->putXml(two);
            EXPECT_NE(two.str().find(written.str()), std::string::npos);
            if (!d->isMandatory()) placed->removeAttribute(name);
        }
        if (placed->parentNode()) placed->parentNode()->removeChild(placed.get());
    }
    EXPECT_TRUE(reports().empty());
}

namespace {

// The typed getters against getProperty, expanded from each class's own table, so that a
// property added to a table is checked without a word here.
template <class V> Arbor::Variant asVariant(const V& v) {
    if constexpr (std::is_same_v<V, bool>)
        return Arbor::BoolVariant(v);
    else if constexpr (std::is_same_v<V, double>)
        return Arbor::DoubleVariant(v);
    else if constexpr (std::is_same_v<V, Token>)
        return Arbor::TokenVariant(v);
    else if constexpr (std::is_same_v<V, RGBA>)
        return RGBAVariant(v);
    else if constexpr (std::is_same_v<V, P2>)
        return P2Variant(v);
    else
        return FontStyleVariant(v);
}

#define CHECK_GETTER(K, Type, Name, Init, Default, ...)                                            \
    if (e->hasProperty(tok_##Name)) {                                                              \
        EXPECT_TRUE(sameValue(asVariant(e->get##Name()), e->getProperty(tok_##Name)))              \
            << e->tagName().text() << "." #Name;                                                   \
        ++checked;                                                                                 \
    }

template <class C> int checkGetters(C* e);
#define GETTER_CHECKER(Class, TABLE)                                                               \
    template <> int checkGetters(Class* e) {                                                       \
        int checked = 0;                                                                           \
        TABLE(CHECK_GETTER)                                                                        \
        return checked;                                                                            \
    }
GETTER_CHECKER(Arc2d, GRAFEL_ARC2D_TABLE)
GETTER_CHECKER(Arrow2d, GRAFEL_ARROW2D_TABLE)
GETTER_CHECKER(Line2d, GRAFEL_LINE2D_TABLE)
GETTER_CHECKER(Pt2d, GRAFEL_PT2D_TABLE)
GETTER_CHECKER(Pts2d, GRAFEL_PTS2D_TABLE)
GETTER_CHECKER(Poly2d, GRAFEL_POLY2D_TABLE)
GETTER_CHECKER(Text2d, GRAFEL_TEXT2D_TABLE)
GETTER_CHECKER(VerticalAsymptote, GRAFEL_VERTICALASYMPTOTE_TABLE)
GETTER_CHECKER(ImgBase, GRAFEL_IMGBASE_TABLE)

/// Each getter against getProperty, in the three states a value can be in.
void checkAll(Plot& p, int expected) {
    int checked = checkGetters<Arc2d>(p.arc.get()) + checkGetters<Arrow2d>(p.arrow.get()) +
                  checkGetters<Line2d>(p.line.get()) + checkGetters<Pt2d>(p.pt.get()) +
                  checkGetters<Pts2d>(p.pts.get()) + checkGetters<Poly2d>(p.poly.get()) +
                  checkGetters<Text2d>(p.text.get()) +
                  checkGetters<VerticalAsymptote>(p.asymptote.get()) +
                  checkGetters<ImgBase>(p.image.get());
    EXPECT_EQ(checked, expected);
}

} // namespace

TEST(PrimitiveRegistry, GettersAgreeWithGetProperty) {
    Plot apart(false);
    Plot p;
    // Every property these classes have is reached by a getter of its table.
    const Token tags[] = {tok_Arc2d, tok_Arrow2d, tok_Line2d, tok_Pt2d,
                          tok_Pts2d, tok_Poly2d,  tok_Text2d, tok_VerticalAsymptote,
                          tok_Img2d};
    int properties = 0;
    for (const Registered& r : registeredPrimitives(p.doc))
        if (std::find(std::begin(tags), std::end(tags), r.tag) != std::end(tags))
            properties += int(r.properties.size());
    checkAll(apart, properties); // the constructor's values
    checkAll(p, properties);     // the defaults
    // Values stated on the object and on a style: what each getter reads is what it inherits.
    p.object->setAttribute(tok_LineWidth, Arbor::DoubleVariant(1.25));
    p.typed->setAttribute(tok_PointColor, RGBAVariant(RGBA(1, 2, 3, 255)));
    p.defaults->setAttribute(tok_Filled, Arbor::BoolVariant(false));
    p.defaults->setAttribute(tok_HorizontalAlignment, Arbor::TokenVariant(tok_Right));
    p.image->setAttribute(tok_Param, Arbor::DoubleVariant(0.5));
    checkAll(p, properties);
    EXPECT_EQ(p.arc->getLineWidth(), 1.25);
    EXPECT_EQ(p.pts->getPointColor(), RGBA(1, 2, 3, 255));
    EXPECT_FALSE(p.poly->getFilled());
    EXPECT_EQ(p.text->getHorizontalAlignment(), tok_Right);
}
