// Invariants over every registered element class, of every layer, and every property of its
// table: a class is held to them by its registration alone, without a test of its own.
#include "support/Plots.h"

#include <grafel/arbor/DocumentFragment.h>
#include <grafel/arbor/DomException.h>
#include <grafel/foundation/ValueVariants.h>
#include <grafel/properties/Property.h>
#include <grafel/tessel/xml/Handler.h>
#include <grafel/tessel/xml/Parser.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>
#include <set>
#include <string>
#include <vector>

using namespace TestSupport;

namespace {

/// NaN equals NaN here: several defaults are NaN.
bool sameValue(const Arbor::Variant& a, const Arbor::Variant& b) {
    const auto* x = a.as<Arbor::DoubleVariant>();
    const auto* y = b.as<Arbor::DoubleVariant>();
    if (x && y && std::isnan(x->val()) && std::isnan(y->val())) return true;
    return a == b;
}

/// A value of the kind of `v` that differs from it, with characters that XML must escape.
Arbor::Variant otherValue(const Arbor::Variant& v) {
    using namespace Arbor;
    if (const auto* d = v.as<DoubleVariant>())
        return DoubleVariant(std::isnan(d->val()) ? 2.5 : d->val() + 0.75);
    if (const auto* l = v.as<LongVariant>()) return LongVariant(l->val() + 1);
    if (const auto* b = v.as<BoolVariant>()) return BoolVariant(!b->val());
    if (const auto* t = v.as<TokenVariant>())
        return TokenVariant(t->val() == tok_Center ? tok_Right : tok_Center);
    if (v.as<RGBAVariant>()) return RGBAVariant(RGBA(0x12, 0x34, 0x56, 0x78));
    if (v.as<P2Variant>()) return P2Variant(P2(1.5, -2));
    if (v.as<P3Variant>()) return P3Variant(P3(1, -2, 0.25));
    if (v.as<FontStyleVariant>()) {
        FontStyle font;
        EXPECT_TRUE(font.parse("'A <b> & \"c\"' 9 Bold #102030 Right"));
        return FontStyleVariant(font);
    }
    if (v.as<FixedStringVariant>()) return FixedStringVariant(Tessel::FixedString("a<\"&'>b"));
    if (v.as<FixedUStringVariant>())
        return FixedUStringVariant(Tessel::FixedWString(L"\u00e9 <\"&'>"));
    ADD_FAILURE() << "a kind of value without a sample";
    return v;
}

/// Whether `v` is a null token or string, which has no text form of its own.
bool isNull(const Arbor::Variant& v) {
    if (const auto* t = v.as<Arbor::TokenVariant>()) return t->val().isNull();
    if (const auto* s = v.as<Arbor::FixedStringVariant>()) return s->val().isNull();
    if (const auto* w = v.as<Arbor::FixedUStringVariant>()) return w->val().isNull();
    return false;
}

/// The kinds that take only a word of their own set, with one such word, and whether the
/// default is among them (a Surf3d's is not: it must be given a Type).
struct ClosedKind {
    Token tag;
    Token word;
    bool defaultFits;
};
const ClosedKind closedKinds[] = {{tok_Lines3d, tok_LineStrip, true},
                                  {tok_Surf3d, tok_Quads, false}};
const ClosedKind* closedKind(Token tag, Token name) {
    for (const ClosedKind& k : closedKinds)
        if (name == tok_Type && k.tag == tag) return &k;
    return nullptr;
}

/// A new element of the class of `tag` with every mandatory value stated, as a document holds
/// it, so that what it writes reads back.
Ref<PlotElement> complete(PlotDocument& doc, Token tag, const std::vector<Token>& properties) {
    Ref<PlotElement> e = doc.createPlotElement(tag);
    for (Token name : properties) {
        if (!e->propertyInfo(name)->isMandatory()) continue;
        const ClosedKind* kind = closedKind(tag, name);
        e->setAttribute(name, kind ? Arbor::TokenVariant(kind->word)
                                   : otherValue(e->propertyInfo(name)->defaultValue()));
    }
    return e;
}

/// The XML form of an element with every digit of its numbers.
std::string exactXml(Node* node) {
    std::ostringstream out;
    out.precision(17);
    node->putXml(out);
    return out.str();
}

/// Reads the attributes of the outermost element of `text` into `into` as the ZPX reader does,
/// through setAttributeString.
void readAttributes(const std::string& text, PlotElement* into) {
    struct Reader : Tessel::Xml::Handler {
        PlotElement* into;
        bool outermost = true;
        std::vector<std::string> names;
        bool attributeName(const char*, const char* name, int& ns, int& id) override {
            ns = 0;
            id = static_cast<int>(names.size());
            names.emplace_back(name);
            return true;
        }
        void startElement(int, int, const std::vector<Tessel::Xml::Attribute>& list) override {
            if (outermost)
                for (const Tessel::Xml::Attribute& a : list)
                    into->setAttributeString(Token(names[a.nameId].c_str(), true), a.value);
            outermost = false;
        }
    } reader;
    reader.into = into;
    Tessel::Xml::Parser parser(&reader, false, nullptr);
    EXPECT_TRUE(parser.parse(text.data(), static_cast<int>(text.size()), true)) << text;
}

/// Every registered tag, with the tokens of the properties its class has.
struct Registered {
    Token tag;
    std::vector<Token> properties;
};
std::vector<Registered> registeredClasses(PlotDocument& doc) {
    std::vector<Registered> out;
    for (int id = 1; id <= tokenCount; ++id) {
        if (!elementMaker(id)) continue;
        Ref<PlotElement> e = doc.createPlotElement(getToken(id));
        Registered r{getToken(id), {}};
        for (int p = 1; p <= tokenCount; ++p)
            if (e->propertyInfo(getToken(p))) r.properties.push_back(getToken(p));
        out.push_back(r);
    }
    return out;
}

} // namespace

// The tag of each class; for each property: the descriptor answers to its name, presence on a
// new element follows the kind, the default and a second value are taken and read back as
// stored, and the XML written reads back through the reader's path to the same bytes.
TEST(EveryElementClass, PropertiesKeepTheirValuesThroughTextAndXml) {
    PlotDocument doc;
    reports().clear();
    doc.domErrorHdl(collectReport);
    const std::vector<Registered> classes = registeredClasses(doc);
    for (const Registered& r : classes) {
        SCOPED_TRACE(r.tag.text());
        Ref<PlotElement> lone = doc.createPlotElement(r.tag);
        EXPECT_EQ(lone->tagName(), r.tag);
        EXPECT_EQ(Ref<Node>(lone->cloneNode(true))->nodeName(), r.tag);
        for (Token name : r.properties) {
            SCOPED_TRACE(name.text());
            const Property* d = lone->propertyInfo(name);
            EXPECT_EQ(d->name(), name);
            // A table's descriptor names its typed getter: get and the name, which a row may
            // capitalise.
            if (*d->origin().family) {
                const std::string getter = d->origin().getter;
                EXPECT_TRUE(getter.size() == std::strlen(name.text()) + 3 &&
                            getter.starts_with("get") &&
                            std::equal(getter.begin() + 3, getter.end(), name.text(),
                                       [](char a, char b) {
                                           return std::tolower(static_cast<unsigned char>(a)) ==
                                                  std::tolower(static_cast<unsigned char>(b));
                                       }))
                    << getter;
            }
            EXPECT_TRUE(lone->hasProperty(name));
            // Present on a new element: the mandatory values but a Type, which its maker
            // states, and values that cannot be removed.
            if (!lone->hasAttribute(name)) {
                EXPECT_TRUE(!d->isMandatory() || name == tok_Type);
            } else if (!d->isMandatory()) {
                EXPECT_THROW(lone->removeAttribute(name), Arbor::DomException);
            }
            const Arbor::Variant def = d->defaultValue();
            for (const Arbor::Variant& value : {def, otherValue(def)}) {
                if (isNull(value)) continue;
                Ref<PlotElement> e = complete(doc, r.tag, r.properties);
                try {
                    e->setAttribute(name, value);
                } catch (const Arbor::DomException&) {
                    const ClosedKind* kind = closedKind(r.tag, name);
                    EXPECT_TRUE(&value != &def || (kind && !kind->defaultFits))
                        << "the default is refused";
                    // A bound of the property, which says so.
                    EXPECT_EQ(reports().back(),
                              "illegal value [attribute '" + std::string(name.text()) + "']\n");
                    reports().pop_back();
                    continue;
                }
                const Arbor::Variant stored = e->getAttribute(name);
                EXPECT_TRUE(sameValue(e->getProperty(name), stored));
                if (&value == &def) {
                    EXPECT_TRUE(sameValue(stored, def));
                }
                const std::string once = exactXml(e.get());
                if (once.empty()) continue; // a holder that writes nothing while void
                Ref<PlotElement> read = complete(doc, r.tag, r.properties);
                readAttributes(once, read.get());
                EXPECT_EQ(exactXml(read.get()), once);
                const auto* number = stored.as<Arbor::DoubleVariant>();
                if (name != tok_id && !(number && std::isnan(number->val()))) {
                    EXPECT_TRUE(read->hasAttribute(name)) << once; // an id and a NaN are silent
                }
                if (read->hasAttribute(name)) {
                    EXPECT_TRUE(sameValue(read->getAttribute(name), stored));
                }
            }
        }
    }
    EXPECT_TRUE(reports().empty()) << reports().front();
}

// In a tree with nothing stated above, an absent value is the default, and is not written.
TEST(EveryElementClass, PlacedWithNothingAboveAbsentValuesAreTheDefaults) {
    PlotDocument doc;
    Ref<Level> top = new Level(&doc, tok_Group2d);
    doc.appendChild(top.get());
    for (const Registered& r : registeredClasses(doc)) {
        SCOPED_TRACE(r.tag.text());
        Ref<PlotElement> e = complete(doc, r.tag, r.properties);
        top->appendChild(e.get());
        for (Token name : r.properties) {
            SCOPED_TRACE(name.text());
            EXPECT_TRUE(e->isPropertyEnabled(name));
            if (e->hasAttribute(name)) continue;
            // A view's up vector starts as the z axis, and a view inherits nothing.
            if (r.tag == tok_View3d && (name == tok_ViewUpVectorX || name == tok_ViewUpVectorY ||
                                        name == tok_ViewUpVectorZ))
                continue;
            EXPECT_TRUE(sameValue(e->getProperty(name), e->propertyInfo(name)->defaultValue()));
            EXPECT_EQ(xml(e.get()).find(" " + std::string(name.text()) + "=\""), std::string::npos);
        }
    }
}

// A copy made by cloneNode has all the values of the original or none, the same for every
// property of a class; which classes keep them is part of their contract.
TEST(EveryElementClass, ClonesKeepAllValuesOrNone) {
    PlotDocument doc;
    std::set<std::string> keeping;
    for (const Registered& r : registeredClasses(doc)) {
        SCOPED_TRACE(r.tag.text());
        Ref<PlotElement> e = doc.createPlotElement(r.tag);
        Ref<PlotElement> fresh = doc.createPlotElement(r.tag);
        for (Token name : r.properties) {
            try {
                e->setAttribute(name, otherValue(e->propertyInfo(name)->defaultValue()));
            } catch (const Arbor::DomException&) {
            }
        }
        const std::string original = exactXml(e.get());
        if (original == exactXml(fresh.get())) continue; // nothing to tell apart
        const std::string copy = exactXml(Ref<Node>(e->cloneNode(true)).get());
        if (copy == original)
            keeping.insert(r.tag.text());
        else
            EXPECT_EQ(copy, exactXml(fresh.get()));
    }
    const std::string kept = "ColorArray2d CoordinateSystem2d CoordinateSystem2dStyle "
                             "CoordinateSystem3d CoordinateSystem3dStyle DensityArray2d Field2d "
                             "Field3d Lines3d Mesh3d Obj2d Obj3d ObjStyle Poly2d Poly3d Pts2d "
                             "Pts3d Surf3d ";
    std::string names;
    for (const std::string& tag : keeping) names += tag + " ";
    EXPECT_EQ(names, kept);
}

// What childRole answers from a tag is what the child change decides: a tag it admits passes
// (with the mandatory options the change needs, replacing a present option or an entry of a full
// holder), one it refuses is refused; and text passes exactly where takesText says so.
TEST(EveryElementClass, ChildRolesAgreeWithTheChildChange) {
    PlotDocument doc;
    doc.domErrorHdl(collectReport);
    const std::vector<Registered> classes = registeredClasses(doc);
    for (const Registered& parent : classes) {
        SCOPED_TRACE(parent.tag.text());
        Ref<PlotElement> e = complete(doc, parent.tag, parent.properties);
        for (const Registered& child : classes) {
            SCOPED_TRACE(child.tag.text());
            const ChildRole role = e->childRole(child.tag);
            Ref<Arbor::DocumentFragment> chain(doc.createDocumentFragment());
            chain->appendChild(complete(doc, child.tag, child.properties).get());
            for (const Registered& other : classes)
                if (other.tag != child.tag && !e->findChild(other.tag) &&
                    e->childRole(other.tag) == ChildRole::MandatoryOption)
                    chain->appendChild(complete(doc, other.tag, other.properties).get());
            Node* replaced = e->findChild(child.tag);
            if (role == ChildRole::Content && e->items() < e->contentCount().most) replaced = nullptr;
            const bool admitted = e->mayReplaceChildren(replaced, replaced ? 1 : 0,
                                                        chain->firstChild());
            EXPECT_EQ(admitted, role != ChildRole::None) << int(role);
        }
        Ref<Node> text(doc.createTextNode(L"x"));
        EXPECT_EQ(e->mayReplaceChildren(nullptr, 0, text.get()), e->takesText());
    }
    reports().clear();
}

// A class declared and never registered would escape the tests above.
TEST(EveryElementClass, EveryClassIsRegistered) {
    PlotDocument doc;
    std::string tags;
    for (const Registered& r : registeredClasses(doc)) tags += std::string(r.tag.text()) + " ";
    const std::string expected =
        "AmbientLight Arc2d Arrow2d Arrow3d AxesOriginX AxesOriginY AxesOriginZ Box Camera "
        "Canvas Circle3d ClippingBox ColorArray2d ColorFunc Cone CoordinateSystem2d "
        "CoordinateSystem2dStyle CoordinateSystem3d CoordinateSystem3dStyle DensityArray2d "
        "DistantLight Ellipsoid Expr ExprSeq Field2d Field3d Footer Group2d Group3d Header Hints "
        "IExpr Img2d Img3d LegendText Line2d Line3d Lines3d Matrix2d Matrix3d Mesh3d Obj2d Obj3d "
        "ObjStyle ObjType ParameterBegin ParameterEnd ParameterName Plane Point2d Point3d "
        "PointLight Points2d Points3d Poly2d Poly3d Prop PropCat PropInfo Pt2d Pts2d Pts3d "
        "Scene2d Scene2dStyle Scene3d Scene3dStyle Sphere SpotLight Surf3d Text2d Text3d "
        "TextOrientation TickPos TimeRange Title TitlePositionX TitlePositionY TitlePositionZ "
        "Tr2d Tr3d Transform2d Transform3d VExpr VerticalAsymptote View2d View3d ViewingBoxXMax "
        "ViewingBoxXMin ViewingBoxYMax ViewingBoxYMin ViewingBoxZMax ViewingBoxZMin XAxisTitle "
        "XTicksAnchor XTicksAt XTicksDistance YAxisTitle YTicksAnchor YTicksAt YTicksDistance "
        "ZAxisTitle ZTicksAnchor ZTicksAt ZTicksDistance ";
    EXPECT_EQ(tags, expected);
}
