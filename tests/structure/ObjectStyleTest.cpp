#include <grafel/arbor/DomException.h>
#include <grafel/properties/VExpr.h>
#include <grafel/structure/Obj2d.h>
#include <grafel/structure/Obj3d.h>
#include <grafel/structure/ObjStyle.h>
#include <grafel/structure/ObjType.h>

#include "support/Plots.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using namespace Grafel;
using Arbor::DomException;
using Arbor::Node;
using Arbor::Ref;
using Arbor::Token;

namespace {

std::vector<std::string>& reports = TestSupport::reports();
constexpr auto collect = &TestSupport::collectReport;

using TestSupport::Level;

using TestSupport::Heard;

struct Doc {
    ElementDocument doc;
    Heard heard;
    Doc() {
        reports.clear();
        doc.domErrorHdl(collect);
        doc.addObserver(&heard, tok_AfterPropertyChange);
    }
    Ref<Level> level(Node* parent, Token tag = tok_Group2d) {
        Ref<Level> l = new Level(&doc, tag);
        if (parent) parent->appendChild(l.get());
        return l;
    }
    template <class C = Obj2d>
    Ref<C> object(Node* parent, Token type, const char* id, Token tag = tok_Obj2d) {
        Ref<C> o = static_cast<C*>(doc.createPlotElement(tag));
        if (!type.isNull()) o->setAttribute(tok_Type, Arbor::TokenVariant(type));
        o->setAttribute(tok_id, Arbor::FixedStringVariant(Tessel::FixedStringBase<char>(id)));
        if (parent) parent->appendChild(o.get());
        return o;
    }
    Ref<ObjStyle> style(Node* parent, Token type) {
        Ref<ObjStyle> s = static_cast<ObjStyle*>(doc.createPlotElement(tok_ObjStyle));
        s->setAttribute(tok_Type, Arbor::TokenVariant(type));
        if (parent) parent->appendChild(s.get());
        return s;
    }
};

void setWidth(PlotElement* e, double v) {
    e->setAttribute(tok_LineWidth, Arbor::DoubleVariant(v));
}

} // namespace

// canvas > [T style, scene > [group > [Default style, object T]]]
TEST(ObjectStyle, ResolutionOrder) {
    Doc d;
    auto canvas = d.level(nullptr, tok_Canvas);
    auto canvasT = d.style(canvas.get(), tok_Function2d);
    auto scene = d.level(canvas.get(), tok_Scene2d);
    auto group = d.level(scene.get());
    auto beside = d.style(group.get(), tok_Default);
    auto obj = d.object(group.get(), tok_Function2d, "f");

    EXPECT_EQ(obj->getLineWidth(), 0.5); // the object's own descriptor default
    setWidth(beside.get(), 1.0);
    EXPECT_EQ(obj->getLineWidth(), 1.0);
    // Every style of the type goes before every Default one, however near that stands.
    setWidth(canvasT.get(), 2.0);
    EXPECT_EQ(obj->getLineWidth(), 2.0);
    EXPECT_EQ(obj->inheritingFrom(tok_LineWidth), canvasT.get());
    // A nearer level of the type wins; within a level the first in document order that holds
    // the value, the next one for what the first lacks.
    auto sceneT1 = d.style(nullptr, tok_Function2d), sceneT2 = d.style(nullptr, tok_Function2d);
    scene->insertBefore(sceneT1.get(), group.get());
    scene->insertBefore(sceneT2.get(), group.get());
    setWidth(sceneT2.get(), 3.0);
    EXPECT_EQ(obj->getLineWidth(), 3.0);
    setWidth(sceneT1.get(), 4.0);
    EXPECT_EQ(obj->getLineWidth(), 4.0);
    sceneT2->setAttribute(tok_Filled, Arbor::BoolVariant(false));
    EXPECT_FALSE(obj->getFilled());
    // A style of another type plays no part; the stored value goes first of all.
    auto other = d.style(group.get(), tok_Curve2d);
    setWidth(other.get(), 9.0);
    EXPECT_EQ(obj->getLineWidth(), 4.0);
    setWidth(obj.get(), 5.0);
    EXPECT_EQ(obj->getLineWidth(), 5.0);

    std::vector<PlotElement*> chain{obj.get()}; // not cleared
    obj->getInheritanceChain(chain);
    EXPECT_EQ(chain, (std::vector<PlotElement*>{obj.get(), sceneT1.get(), sceneT2.get(),
                                                canvasT.get(), beside.get()}));

    // A transform holds no styles: one inside it does not reach the objects there.
    auto transform = d.level(group.get(), tok_Transform2d);
    auto inTransform = d.style(transform.get(), tok_Default);
    auto moved = d.object(transform.get(), tok_Polygon2d, "p");
    setWidth(inTransform.get(), 7.0);
    setWidth(d.style(canvas.get(), tok_Default).get(), 8.0); // farther than the group's
    EXPECT_EQ(moved->getLineWidth(), 1.0);                   // the Default style of the group
    EXPECT_EQ(moved->inheritingFrom(tok_LineWidth), beside.get());
}

// canvas > [T, Default, scene > [T style (the one asked), T sibling, Default sibling]]
TEST(ObjectStyle, StylesLookAboveTheirParentOnly) {
    Doc d;
    auto canvas = d.level(nullptr, tok_Canvas);
    auto canvasT = d.style(canvas.get(), tok_Function2d);
    auto canvasDefault = d.style(canvas.get(), tok_Default);
    auto scene = d.level(canvas.get(), tok_Scene2d);
    auto asked = d.style(scene.get(), tok_Function2d);
    auto siblingT = d.style(scene.get(), tok_Function2d);
    auto siblingDefault = d.style(scene.get(), tok_Default);
    setWidth(siblingT.get(), 1.0);
    setWidth(siblingDefault.get(), 1.5);

    EXPECT_EQ(asked->getLineWidth(), 0.5);
    EXPECT_EQ(asked->inheritingFrom(tok_LineWidth), nullptr);
    setWidth(canvasDefault.get(), 2.0);
    EXPECT_EQ(asked->getLineWidth(), 2.0);
    setWidth(canvasT.get(), 3.0);
    EXPECT_EQ(asked->getLineWidth(), 3.0);
    // A Default style looks at Default styles only.
    EXPECT_EQ(siblingDefault->inheritingFrom(tok_LineWidth), canvasDefault.get());

    std::vector<PlotElement*> chain;
    asked->getInheritanceChain(chain);
    EXPECT_EQ(chain, (std::vector<PlotElement*>{canvasT.get(), canvasDefault.get()}));
    chain.clear();
    siblingDefault->getInheritanceChain(chain);
    EXPECT_EQ(chain, (std::vector<PlotElement*>{canvasDefault.get()}));

    Ref<ObjStyle> lone = d.style(nullptr, tok_Function2d);
    EXPECT_EQ(lone->inheritingFrom(tok_LineWidth), nullptr);
    EXPECT_EQ(lone->getLineWidth(), 0.5);
}

TEST(ObjectStyle, DimensionsAndFailures) {
    Doc d;
    auto scene = d.level(nullptr, tok_Scene3d);
    auto obj2 = d.object(scene.get(), tok_Function2d, "f2");
    auto obj3 = d.object<Obj3d>(scene.get(), tok_Function3d, "f3", tok_Obj3d);
    auto style = d.style(nullptr, tok_Function3d);
    // Each asked element falls back to its own descriptor's default.
    EXPECT_EQ(obj2->getLineColorDirectionY(), 1.0);
    EXPECT_EQ(obj3->getLineColorDirectionY(), 0.0);
    EXPECT_EQ(style->getLineColorDirectionY(), 1.0); // a style finds the 2D row first
    scene->insertBefore(style.get(), obj2.get());
    style->setAttribute(tok_LineColorDirectionY, Arbor::DoubleVariant(0.25));
    EXPECT_EQ(obj3->getLineColorDirectionY(), 0.25);
    EXPECT_EQ(obj2->getLineColorDirectionY(), 1.0); // another type
    // A style takes both dimensions; an object only its own.
    style->setAttribute(tok_ZMesh, Arbor::LongVariant(7));
    style->setAttribute(tok_AntiAliased, Arbor::BoolVariant(false));
    EXPECT_EQ(obj3->getZMesh(), 7);
    EXPECT_THROW(obj2->getZMesh(), DomException);
    EXPECT_EQ(reports.back(), "unknown property 'ZMesh' [node 'Obj2d']\n");
    EXPECT_THROW(obj3->setAttribute(tok_AntiAliased, Arbor::BoolVariant(true)), DomException);
    EXPECT_THROW(style->setAttribute(tok_Visible, Arbor::BoolVariant(true)), DomException);

    // Without Type nothing inherited can be read; a stored value still can.
    auto untyped = d.object(scene.get(), Token(), "u");
    reports.clear();
    EXPECT_EQ(TestSupport::domCode([&] { untyped->getProperty(tok_Filled); }),
              DomException::InvalidAccessErr);
    EXPECT_EQ(reports, (std::vector<std::string>{"mandatory property 'Type' missing [node "
                                                 "'Obj2d']\n"}));
    EXPECT_THROW(untyped->getFilled(), DomException);
    EXPECT_TRUE(untyped->getVisible()); // not inherited: the default needs no Type
    untyped->setAttribute(tok_Filled, Arbor::BoolVariant(false));
    EXPECT_FALSE(untyped->getFilled());

    // Bounds are enforced, vocabularies are not.
    EXPECT_THROW(obj2->setAttribute(tok_XMesh, Arbor::LongVariant(0)), DomException);
    EXPECT_EQ(reports.back(), "illegal value [attribute 'XMesh']\n");
    EXPECT_THROW(obj2->setAttribute(tok_Frames, Arbor::LongVariant(-1)), DomException);
    obj2->setAttributeString(tok_LineStyle, "Wavy");
    EXPECT_STREQ(obj2->getLineStyle().text(), "Wavy");
}

TEST(ObjectStyle, ChangeOnStyleReachesTheObjectsThatFollowIt) {
    Doc d;
    auto group = d.level(nullptr);
    auto styleT = d.style(group.get(), tok_Function2d);
    auto styleDefault = d.style(group.get(), tok_Default);
    auto a = d.object(group.get(), tok_Function2d, "a");
    auto b = d.object(group.get(), tok_Curve2d, "b");
    auto own = d.object(group.get(), tok_Function2d, "own");
    setWidth(own.get(), 3.0);
    auto sub = d.level(group.get());
    auto below = d.object(sub.get(), tok_Function2d, "below");
    auto image = d.level(below.get(), tok_Img2d);
    d.heard.events.clear();

    using Events = std::vector<std::string>;
    const Events fromTyped{"ObjStyle@Group2d.LineWidth", "a.LineWidth", "below.LineWidth"};
    const Events fromDefault{"ObjStyle@Group2d.LineWidth", "b.LineWidth"};
    setWidth(styleT.get(), 2.0);
    EXPECT_EQ(d.heard.events, fromTyped);
    // The Default style now answers for the other type only.
    d.heard.events.clear();
    setWidth(styleDefault.get(), 1.0);
    EXPECT_EQ(d.heard.events, fromDefault);
    // A nearer Default style does not take an object from the style of its type: the change
    // still reaches it, and the Default style's does not.
    auto inner = d.style(sub.get(), tok_Default);
    setWidth(inner.get(), 4.0);
    d.heard.events.clear();
    setWidth(styleT.get(), 2.5);
    EXPECT_EQ(d.heard.events, fromTyped);
    d.heard.events.clear();
    setWidth(styleDefault.get(), 1.5);
    EXPECT_EQ(d.heard.events, fromDefault);
}

TEST(ObjectStyle, NormalisationDropsValuesThatAStyleNowGives) {
    Doc d;
    auto group = d.level(nullptr);
    auto style = d.style(group.get(), tok_Function2d);
    auto same = d.object(group.get(), tok_Function2d, "same");
    auto differs = d.object(group.get(), tok_Function2d, "differs");
    auto otherType = d.object(group.get(), tok_Curve2d, "other");
    for (PlotElement* o : {same.get(), otherType.get()}) setWidth(o, 2.0);
    setWidth(differs.get(), 3.0);

    style->setProperty(tok_LineWidth, Arbor::DoubleVariant(2.0));
    EXPECT_FALSE(same->hasAttribute(tok_LineWidth));
    EXPECT_EQ(same->getLineWidth(), 2.0);
    EXPECT_TRUE(differs->hasAttribute(tok_LineWidth));
    EXPECT_TRUE(otherType->hasAttribute(tok_LineWidth));
    // Setting an object's property to what it inherits stores nothing.
    differs->setProperty(tok_LineWidth, Arbor::DoubleVariant(2.0));
    EXPECT_FALSE(differs->hasAttribute(tok_LineWidth));
    // The whole-tree pass finds the same redundancy.
    setWidth(same.get(), 2.0);
    group->normalizeAttributes();
    EXPECT_FALSE(same->hasAttribute(tok_LineWidth));
    EXPECT_TRUE(same->hasAttribute(tok_id));
}

namespace {

template <class Base> struct Probe : Base {
    explicit Probe(Arbor::Document* d) : Base(d) {}
    using Base::allowedOptionChildren;
    using Base::tagNameToOptionChildFlag;
};

} // namespace

TEST(ObjectElements, ChildrenByTagAndOptionFlags) {
    Doc d;
    Ref<Probe<Obj2d>> p2 = new Probe<Obj2d>(&d.doc);
    Ref<Probe<Obj3d>> p3 = new Probe<Obj3d>(&d.doc);
    EXPECT_EQ(p2->allowedOptionChildren(), 1767);
    EXPECT_EQ(p3->allowedOptionChildren(), 7143);
    const std::pair<Token, int> flags[] = {
        {tok_ParameterName, 1},    {tok_ParameterBegin, 2},     {tok_ParameterEnd, 4},
        {tok_Title, 32},           {tok_TitlePositionX, 64},    {tok_TitlePositionY, 128},
        {tok_TitlePositionZ, 256}, {tok_LegendText, 512},       {tok_Points2d, 1024},
        {tok_Points3d, 2048},      {tok_TextOrientation, 4096}, {tok_Img2d, 0}};
    for (auto [tag, flag] : flags) EXPECT_EQ(p2->tagNameToOptionChildFlag(tag), flag) << tag;

    // The registry makes each class for its tag.
    Ref<Arbor::Element> made = d.doc.createElement(tok_ObjType);
    EXPECT_NE(dynamic_cast<ObjType*>(made.get()), nullptr);
    auto obj2 = d.object(nullptr, tok_Function2d, "f");
    auto obj3 = d.object<Obj3d>(nullptr, tok_Function3d, "g", tok_Obj3d);
    obj2->appendChild(d.level(nullptr, tok_Img2d).get());
    obj2->appendChild(d.level(nullptr, tok_Prop).get());
    EXPECT_THROW(obj2->appendChild(d.level(nullptr, tok_Img3d).get()), DomException);
    EXPECT_EQ(reports.back(), "not a valid content child 'Img3d' [parent 'Obj2d']\n");
    Ref<Arbor::Element> z = d.doc.createElement(tok_TitlePositionZ);
    EXPECT_THROW(obj2->appendChild(z.get()), DomException);
    EXPECT_EQ(reports.back(), "illegal option child [parent 'Obj2d']\n");
    obj3->appendChild(z.get());
    EXPECT_EQ(obj3->optionChildren(), 256);
    // An object holds no style, and a style holds nothing.
    EXPECT_THROW(obj2->appendChild(d.style(nullptr, tok_Default).get()), DomException);
    EXPECT_THROW(d.style(nullptr, tok_Default)->appendChild(d.level(nullptr).get()), DomException);
}

TEST(ObjectElements, ParameterRange) {
    Doc d;
    auto obj = d.object(nullptr, tok_Function2d, "f");
    auto bound = [&](Token tag, const char* text) {
        Ref<VExpr> v = static_cast<VExpr*>(d.doc.createPlotElement(tag));
        v->setAttributeString(tok_Val, text);
        return v;
    };
    double begin = -1, end = -1;
    EXPECT_FALSE(obj->getParameterRange(begin, end));
    auto b = bound(tok_ParameterBegin, "1.5");
    obj->appendChild(b.get());
    EXPECT_FALSE(obj->getParameterRange(begin, end));
    EXPECT_EQ(begin, 1.5);
    EXPECT_EQ(end, -1);
    auto e = bound(tok_ParameterEnd, "inf");
    obj->appendChild(e.get());
    EXPECT_FALSE(obj->getParameterRange(begin, end));
    EXPECT_TRUE(std::isnan(end));
    e->setAttributeString(tok_Val, "3");
    EXPECT_TRUE(obj->getParameterRange(begin, end));
    EXPECT_EQ(end, 3);
    b->setAttributeString(tok_Val, "-inf"); // stops the walk at once, before the end is read
    end = -1;
    EXPECT_FALSE(obj->getParameterRange(begin, end));
    EXPECT_TRUE(std::isnan(begin));
    EXPECT_EQ(end, -1);
}

TEST(ObjectElements, LegendColor) {
    Doc d;
    auto group = d.level(nullptr);
    auto style = d.style(group.get(), tok_Default);
    auto obj = d.object(group.get(), tok_Function2d, "f");
    const RGBA red(255, 0, 0, 255), unset(1, 2, 3, 4);
    RGBA out = unset;
    EXPECT_FALSE(obj->getLegendColor(out)); // the null token names nothing
    EXPECT_EQ(out, unset);
    style->setAttribute(tok_LegendColor, Arbor::TokenVariant(tok_FillColor));
    style->setAttribute(tok_FillColor, RGBAVariant(red));
    EXPECT_TRUE(obj->getLegendColor(out));
    EXPECT_EQ(out, red);
    for (Token notAColour : {tok_LineStyle, tok_Width, tok_LightColor}) {
        out = unset;
        obj->setAttribute(tok_LegendColor, Arbor::TokenVariant(notAColour));
        EXPECT_FALSE(obj->getLegendColor(out)) << notAColour;
        EXPECT_EQ(out, unset);
    }
    // Inherited values are read in place, without a copy.
    FontStyle f;
    ASSERT_TRUE(f.parse("Arial 14"));
    style->setAttribute(tok_TextFont, FontStyleVariant(f));
    EXPECT_EQ(&obj->getTextFont(), &style->getTextFont());
}

TEST(ObjectElements, CommandTextAndXml) {
    Doc d;
    auto group = d.level(nullptr);
    auto typed = d.style(group.get(), tok_Function2d);
    auto fallback = d.style(group.get(), tok_Default);
    auto obj = d.object(group.get(), tok_Function2d, "f1");
    setWidth(typed.get(), 1.0);
    fallback->setAttribute(tok_Filled, Arbor::BoolVariant(false));
    obj->setAttribute(tok_Consistent, Arbor::BoolVariant(true));
    obj->setAttribute(tok_LegendColor, Arbor::TokenVariant(tok_LineColor));
    obj->setAttribute(tok_Visible, Arbor::BoolVariant(false));

    std::ostringstream text;
    CmdOStream cmd(text, tok_MM);
    group->putCmd(cmd);
    EXPECT_EQ(text.str(), "  plot::Group2d(\r\n"
                          "    plot::Function2d::LineWidth=1,\r\n"
                          "    Filled=FALSE,\r\n"
                          "    plot::Function2d(\r\n"
                          "      id=\"f1\",\r\n"
                          "      Visible=FALSE))");
    std::ostringstream xml;
    obj->putAttributesXml(xml);
    EXPECT_EQ(xml.str(), // no id
              " Visible=\"0\" Type=\"Function2d\" LegendColor=\"LineColor\" Consistent=\"1\"");

    auto untyped = d.object(nullptr, Token(), "u");
    std::ostringstream lost;
    CmdOStream none(lost, tok_MM);
    EXPECT_THROW(untyped->putCmd(none), DomException);
}

TEST(ObjectElements, Copies) {
    Doc d;
    auto obj = d.object(nullptr, tok_Function2d, "f");
    setWidth(obj.get(), 2.0);
    obj->appendChild(d.level(nullptr, tok_Img2d).get());
    Ref<Obj2d> deep = static_cast<Obj2d*>(obj->cloneNode(true));
    Ref<Obj2d> shallow = static_cast<Obj2d*>(obj->cloneNode(false));
    Ref<Obj2d> copy = new Obj2d(*obj);
    for (Obj2d* c : {deep.get(), shallow.get(), copy.get()})
        EXPECT_EQ(c->thisElem(), c); // the getters read the copy, not the original
    setWidth(obj.get(), 3.0);
    EXPECT_EQ(deep->getLineWidth(), 2.0);
    EXPECT_NE(deep->firstChild(), nullptr);
    EXPECT_EQ(shallow->firstChild(), nullptr);

    // An ObjType copy loses its type, though its presence flag says it has one.
    Ref<ObjType> type = static_cast<ObjType*>(d.doc.createPlotElement(tok_ObjType));
    type->setAttributeString(tok_Type, "Function2d");
    type->appendChild(d.level(nullptr, tok_PropCat).get());
    reports.clear();
    EXPECT_THROW(type->appendChild(d.level(nullptr, tok_Prop).get()), DomException);
    EXPECT_TRUE(reports.empty());
    std::ostringstream xml;
    type->putAttributesXml(xml);
    EXPECT_EQ(xml.str(), " Type=\"Function2d\"");
    Ref<ObjType> typeCopy = static_cast<ObjType*>(type->cloneNode(true));
    EXPECT_TRUE(typeCopy->getType().isNull());
    EXPECT_TRUE(typeCopy->hasAttribute(tok_Type));
    EXPECT_NE(typeCopy->firstChild(), nullptr);
}

namespace {

// A read's answer: its value, or that it reported and threw.
struct Answer {
    bool threw = false;
    Arbor::Variant value;
    bool operator==(const Answer& o) const { return threw == o.threw && value == o.value; }
};

template <class Read> Answer answer(Read read) {
    try {
        return {false, read()};
    } catch (const DomException&) {
        return {true, {}};
    }
}

// The element whose record answers an object's read by the plain walks of ObjStyle: the object
// itself, a style, or null for the default. Throws as those walks do.
AttributeListElement* plainSource(ObjectBase* o, Token name) {
    if (o->findAttribute(name)) return o;
    ObjStyle* s = ObjStyle::findInherited(o, o->getType(), name);
    return s ? s : ObjStyle::findInherited(o, tok_Default, name);
}

Answer plainValue(ObjectBase* o, Token name) {
    return answer([&] {
        AttributeListElement* from = plainSource(o, name);
        return from ? *from->findAttribute(name) : o->propertyInfo(name)->defaultValue();
    });
}

std::vector<PlotElement*> plainChain(ObjectBase* o) {
    std::vector<PlotElement*> chain;
    try {
        ObjStyle::getInheritanceChain(o, o->getType(), chain);
        ObjStyle::getInheritanceChain(o, tok_Default, chain);
    } catch (const DomException&) {
        chain.push_back(nullptr);
    }
    return chain;
}

} // namespace

// Random edits of every kind that can change where an object's value comes from, each followed
// by reads of every object, compared with the plain walks; and primitives, right after they are
// put in again, compared with the same.
TEST(ObjectStyle, ReadsFollowEveryKindOfEdit) {
    Doc d;
    std::mt19937 random(11);
    auto pick = [&](auto& pool) -> decltype(pool[0].get()) {
        return pool[random() % pool.size()].get();
    };
    const Token types[] = {tok_Function2d, tok_Curve2d, tok_Default};
    const Token names[] = {tok_LineWidth, tok_Filled, tok_LineStyle};
    auto value = [&](Token name) -> Arbor::Variant {
        if (name == tok_LineWidth) return Arbor::DoubleVariant(0.25 * double(1 + random() % 3));
        if (name == tok_Filled) return Arbor::BoolVariant(random() % 2 != 0);
        return Arbor::TokenVariant(random() % 2 ? tok_Dashed : tok_Dotted);
    };

    Ref<Level> canvas = d.level(&d.doc, tok_Canvas);
    std::vector<Ref<Level>> levels{canvas};
    for (Token tag : {tok_Scene2d, tok_Group2d, tok_Group2d, tok_Transform2d, tok_Group2d})
        levels.push_back(d.level(pick(levels), tag));
    std::vector<Ref<ObjStyle>> styles;
    std::vector<Ref<Obj2d>> objects;
    std::vector<Ref<PlotElement>> arcs;
    for (int k = 0; k < 6; ++k) styles.push_back(d.style(pick(levels), types[k % 3]));
    for (int k = 0; k < 5; ++k) {
        objects.push_back(d.object(pick(levels), types[k % 2], "o"));
        Node* image = objects.back()->appendChild(d.doc.createPlotElement(tok_Img2d));
        arcs.push_back(
            static_cast<PlotElement*>(image->appendChild(d.doc.createPlotElement(tok_Arc2d))));
    }
    // Values everywhere, so that most reads are answered by some style.
    for (auto& s : styles)
        for (Token name : names)
            if (random() % 2) s->setAttribute(name, value(name));

    auto member = [&]() -> AttributeListElement* {
        return random() % 3 ? static_cast<AttributeListElement*>(pick(styles)) : pick(objects);
    };
    auto place = [&](Node* node) {
        Level* to = pick(levels);
        if (node->contains(to)) return;
        Node* before = random() % 2 ? to->firstChild() : nullptr;
        to->insertBefore(node, before);
    };
    d.doc.newUndoTask();
    for (int step = 0; step < 3000; ++step) {
        const Token name = names[random() % 3];
        try {
            switch (random() % 14) {
            case 0:
                member()->setAttribute(name, value(name));
                break;
            case 1: {
                AttributeListElement* e = member();
                if (e->hasAttribute(name)) e->removeAttribute(name);
                break;
            }
            case 2:
                d.doc.undo();
                break;
            case 3:
                d.doc.redo();
                break;
            case 4:
                place(random() % 2 ? static_cast<Node*>(pick(styles)) : pick(objects));
                break;
            case 5: { // a level with all below it, when it does not go under itself
                Level* l = levels[1 + random() % (levels.size() - 1)].get();
                place(l);
                break;
            }
            case 6: { // out of the tree, for a while
                Node* n = random() % 2 ? static_cast<Node*>(pick(styles)) : pick(objects);
                if (n->parentNode()) n->parentNode()->removeChild(n);
                break;
            }
            case 7:
                member()->setAttribute(tok_Type, Arbor::TokenVariant(types[random() % 3]));
                break;
            case 8: // a style without Type makes every walk that meets it report and throw
                if (random() % 4 == 0) {
                    Ref<ObjStyle> s = static_cast<ObjStyle*>(d.doc.createPlotElement(tok_ObjStyle));
                    pick(levels)->appendChild(s.get());
                    styles.push_back(s);
                } else {
                    styles.push_back(d.style(pick(levels), types[random() % 3]));
                }
                break;
            case 9: { // a style goes for good
                if (styles.size() < 3) break;
                const size_t k = random() % styles.size();
                if (Node* parent = styles[k]->parentNode()) parent->removeChild(styles[k].get());
                styles.erase(styles.begin() + long(k));
                break;
            }
            case 10:
                member()->setProperty(name, value(name));
                break;
            // Changes among primitives, which leave the kept style lists as they are, between
            // the changes above that clear them.
            case 11: { // an arc moves to the image of another object, or gets a value
                PlotElement* arc = pick(arcs);
                if (random() % 2)
                    pick(objects)->firstChild()->appendChild(arc);
                else
                    arc->setAttribute(name, value(name));
                break;
            }
            case 12: { // an arc comes and goes
                Node* image = pick(objects)->firstChild();
                Ref<Node> arc = image->appendChild(d.doc.createPlotElement(tok_Arc2d));
                image->removeChild(arc.get());
                break;
            }
            case 13: // a style or an object put where the primitives are, when that is taken
                pick(objects)->firstChild()->appendChild(
                    random() % 2 ? static_cast<Node*>(pick(styles)) : pick(objects));
                break;
            }
        } catch (const DomException&) {
            // refused, or a walk met a style without Type: the reads below say the same
        }
        if (random() % 5 == 0) d.doc.newUndoTask();

        for (auto& o : objects) {
            for (Token n : names) {
                const Answer read = answer([&] { return o->getProperty(n); });
                ASSERT_TRUE(read == plainValue(o.get(), n)) << "step " << step;
            }
            std::vector<PlotElement*> chain;
            try {
                o->getInheritanceChain(chain);
            } catch (const DomException&) {
                chain.push_back(nullptr);
            }
            ASSERT_EQ(chain, plainChain(o.get())) << "step " << step;
        }
        // A primitive takes the values it has none of when it is put in; then it agrees with its
        // object.
        PlotElement* arc = pick(arcs);
        Ref<Node> image = arc->parentNode();
        auto* object = static_cast<Obj2d*>(image->parentNode());
        try {
            image->appendChild(arc);
        } catch (const DomException&) {
            continue; // an object or style without Type: the refresh reported and threw
        }
        for (Token n : names) {
            AttributeListElement* from = plainSource(object, n);
            const Arbor::Variant expected = arc->hasAttribute(n) ? arc->getAttribute(n)
                                            : from               ? *from->findAttribute(n)
                                                   : arc->propertyInfo(n)->defaultValue();
            ASSERT_TRUE(arc->getProperty(n) == expected) << "step " << step;
        }
    }
    reports.clear();
}
