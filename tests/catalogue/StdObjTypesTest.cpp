// The standard object-type catalogue: its shape, its agreement with the element tables of the
// classes each type stands for, the value types by which a Prop writes its command value, and
// the lookup under many threads.
#include "support/Plots.h"

#include <grafel/catalogue/Prop.h>
#include <grafel/catalogue/PropCat.h>
#include <grafel/catalogue/PropInfo.h>
#include <grafel/catalogue/StdObjTypes.h>
#include <grafel/foundation/ValueVariants.h>
#include <grafel/structure/Obj3d.h>
#include <grafel/structure/ObjType.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <sstream>
#include <thread>

using namespace TestSupport;

namespace {

Token tokenOf(Node* node, Token name) {
    const Arbor::Variant v = static_cast<PlotElement*>(node->asElement())->getAttribute(name);
    const auto* t = v.as<Arbor::TokenVariant>();
    return t ? t->val() : Token();
}

std::wstring nameOf(Node* node) {
    return static_cast<PropCat*>(node->asElement())->getName().c_str();
}

/// Every PropInfo below `node`, depth first.
void collectInfos(Node* node, std::vector<PropInfo*>& out) {
    for (Node* c = node->firstChild(); c; c = c->nextSibling()) {
        if (c->nodeName() == tok_PropInfo) out.push_back(static_cast<PropInfo*>(c->asElement()));
        collectInfos(c, out);
    }
}

std::vector<PropInfo*> infosOf(Node* node) {
    std::vector<PropInfo*> out;
    collectInfos(node, out);
    return out;
}

/// The row of Dom `dom` (and Opt `opt`) in an entry.
PropInfo* rowOf(Node* entry, Token dom, Token opt = {}) {
    for (PropInfo* info : infosOf(entry))
        if (info->getDom() == dom && info->getOpt() == opt) return info;
    return nullptr;
}

int countTag(Node* node, Token tag) {
    int n = node->nodeName() == tag;
    for (Node* c = node->firstChild(); c; c = c->nextSibling()) n += countTag(c, tag);
    return n;
}

/// The element classes whose tables hold the attributes of a type's list: the class of the
/// same tag, and for a plot object or transform the class that carries its Type.
std::vector<Token> classesOf(Token type) {
    const std::string name = type.text();
    std::vector<Token> out{type};
    auto is = [&](std::initializer_list<const char*> names) {
        return std::any_of(names.begin(), names.end(), [&](const char* n) { return name == n; });
    };
    if (is({"ObjStyle2d", "ObjStyle3d"})) return {tok_ObjStyle};
    if (is({"Canvas", "Scene2d", "Scene3d", "Scene2dStyle", "Scene3dStyle", "CoordinateSystem2d",
            "CoordinateSystem3d", "CoordinateSystem2dStyle", "CoordinateSystem3dStyle", "Group2d",
            "Group3d", "Transform2d", "Transform3d"}))
        return out;
    if (is({"Rotate2d", "Scale2d", "Translate2d"})) return {tok_Transform2d};
    if (is({"Rotate3d", "Scale3d", "Translate3d"})) return {tok_Transform3d};
    const bool flat = name.ends_with("2d") || is({"Hatch", "Rectangle"});
    out.push_back(flat ? tok_Obj2d : tok_Obj3d);
    return out;
}

/// Whether `dom` is a property of the class of `tag`, or an option child it takes.
bool carries(PlotDocument& doc, Token tag, Token dom) {
    Ref<PlotElement> e = doc.createPlotElement(tag);
    if (e->propertyInfo(dom)) return true;
    Ref<PlotElement> child =
        elementMaker(getTokenId(dom.text())) ? doc.createPlotElement(dom) : nullptr;
    if (!child) return false;
    try {
        e->appendChild(child.get());
        return true;
    } catch (const Arbor::DomException&) {
        return false;
    }
}

} // namespace

// The catalogue as a whole, every list built: its numbers, the rules of its value types and
// of Recalc, and that every row names what carries its value in the element tables.
TEST(StdObjTypes, EveryListAgreesWithTheElementTables) {
    PlotDocument doc;
    const std::vector<Token> types = objTypeListTypes();
    ASSERT_EQ(types.size(), 53u);
    int cats = 0, infos = 0, skipped = 0;
    std::set<std::pair<Token, Token>> pairs;
    std::set<Token> skippedClasses;
    for (Token type : types) {
        SCOPED_TRACE(type.text());
        Ref<ObjType> entry = buildObjTypeList(&doc, type);
        ASSERT_TRUE(entry);
        EXPECT_EQ(tokenOf(entry.get(), tok_Type), type);
        cats += countTag(entry.get(), tok_PropCat);
        for (PropInfo* info : infosOf(entry.get())) {
            ++infos;
            const Token dom = info->getDom();
            pairs.insert({dom, info->getOpt()});
            for (Token name : {tok_Dom, tok_Opt, tok_Type, tok_Recalc})
                EXPECT_TRUE(info->hasAttribute(name));
            const bool form =
                dom == tok_Expr || dom == tok_ExprSeq || dom == tok_ColorFunc || dom == tok_Prop;
            EXPECT_EQ(form, !info->getOpt().isNull()) << dom.text();
            if (form) continue;
            // An attribute or option child of one of the classes the type stands for; a class
            // not built into this library yet leaves the row unchecked.
            bool found = false, unknown = false;
            for (Token tag : classesOf(type)) {
                if (!elementMaker(getTokenId(tag.text()))) {
                    unknown = true;
                    skippedClasses.insert(tag);
                    continue;
                }
                found = found || carries(doc, tag, dom);
            }
            if (!found && unknown) {
                ++skipped;
                continue;
            }
            EXPECT_TRUE(found) << dom.text();
        }
    }
    EXPECT_EQ(cats, 244);
    EXPECT_EQ(infos, 1536);
    EXPECT_EQ(pairs.size(), 260u);
    if (skipped) {
        std::string names;
        for (Token t : skippedClasses) names += std::string(" ") + t.text();
        std::printf("[ note     ] %zu classes not registered, %d rows left unchecked:%s\n",
                    skippedClasses.size(), skipped, names.c_str());
    }
    // The check can fail: a scene's caption is nothing of an object.
    EXPECT_FALSE(carries(doc, tok_Obj2d, tok_Header));
    EXPECT_FALSE(carries(doc, tok_Obj2d, tok_Matrix2d));

    // The value types that depend on the list, and the Recalc exceptions.
    Ref<ObjType> curve2 = buildObjTypeList(&doc, tok_Curve2d);
    Ref<ObjType> curve3 = buildObjTypeList(&doc, tok_Curve3d);
    Ref<ObjType> plane = buildObjTypeList(&doc, tok_Plane);
    Ref<ObjType> polygon3 = buildObjTypeList(&doc, tok_Polygon3d);
    EXPECT_EQ(rowOf(curve2.get(), tok_PointStyle)->getType(), tok_PointStyle);
    EXPECT_EQ(rowOf(curve3.get(), tok_PointStyle)->getType(), tok_PointStyle3d);
    EXPECT_TRUE(rowOf(curve2.get(), tok_UMesh)->getRecalc());
    EXPECT_FALSE(rowOf(plane.get(), tok_UMesh)->getRecalc());
    EXPECT_TRUE(rowOf(polygon3.get(), tok_Closed)->getRecalc());
    EXPECT_FALSE(
        rowOf(Ref<ObjType>(buildObjTypeList(&doc, tok_Polygon2d)).get(), tok_Closed)->getRecalc());
    EXPECT_TRUE(rowOf(curve2.get(), tok_Frames)->getRecalc());
    EXPECT_FALSE(rowOf(curve2.get(), tok_LineColor)->getRecalc());
    EXPECT_EQ(buildObjTypeList(&doc, tok_Obj2d), nullptr);
}

// The lookup: each served type once, the same entry later, null for the rest; the tree the
// inspector reads.
TEST(StdObjTypes, LookupServesEachTypeOnce) {
    const std::vector<Token> served = servedObjTypes();
    ASSERT_EQ(served.size(), 52u);
    PlotDocument doc;
    for (Token type : served) {
        ObjType* entry = getStdObjType(type);
        ASSERT_TRUE(entry) << type.text();
        EXPECT_EQ(tokenOf(entry, tok_Type), type);
        EXPECT_EQ(doc.getStdObjType(type), entry);
    }
    Node* canvas = getStdObjType(tok_Curve2d)->parentNode();
    const unsigned before = canvas->items();
    for (Token none : {tok_Plane, tok_Obj2d, Token()})
        EXPECT_EQ(doc.getStdObjType(none), nullptr) << none.text();
    EXPECT_EQ(canvas->items(), before);
    EXPECT_GE(before, 52u);

    ObjType* group = getStdObjType(tok_Group2d);
    ASSERT_EQ(group->items(), 1u);
    EXPECT_EQ(nameOf(group->firstChild()), L"Definition");
    std::vector<Token> rows;
    for (PropInfo* info : infosOf(group)) rows.push_back(info->getDom());
    EXPECT_EQ(rows, (std::vector<Token>{tok_Name, tok_Visible}));

    ObjType* function = getStdObjType(tok_Function2d);
    PropInfo* expr = rowOf(function, tok_Expr, tok_Function);
    ASSERT_TRUE(expr);
    EXPECT_TRUE(expr->getType().isNull());
    std::vector<std::wstring> style;
    for (Node* cat = function->lastChild()->firstChild(); cat; cat = cat->nextSibling())
        if (cat->nodeName() == tok_PropCat) style.push_back(nameOf(cat));
    EXPECT_EQ(nameOf(function->lastChild()), L"Style");
    EXPECT_EQ(style, (std::vector<std::wstring>{L"Lines", L"Points", L"Asymptotes"}));
    std::vector<std::wstring> tops;
    for (Node* cat = getStdObjType(tok_ObjStyle3d)->firstChild(); cat; cat = cat->nextSibling())
        tops.push_back(nameOf(cat));
    EXPECT_EQ(tops[4], L"Camera && Light");
}

// Many threads asking for the same and for different types at once get one entry each.
TEST(StdObjTypes, ConcurrentLookupsBuildEachEntryOnce) {
    const std::vector<Token> served = servedObjTypes();
    constexpr int threads = 8;
    std::vector<std::vector<ObjType*>> seen(threads);
    std::vector<std::thread> pool;
    for (int t = 0; t < threads; ++t)
        pool.emplace_back([&, t] {
            for (std::size_t i = 0; i < served.size(); ++i)
                seen[t].push_back(getStdObjType(served[(i * (t + 1)) % served.size()]));
        });
    for (std::thread& th : pool) th.join();
    for (int t = 0; t < threads; ++t)
        for (std::size_t i = 0; i < served.size(); ++i) {
            const Token type = served[(i * (t + 1)) % served.size()];
            ASSERT_EQ(seen[t][i], getStdObjType(type)) << type.text();
        }
    Node* canvas = getStdObjType(tok_Curve2d)->parentNode();
    std::map<Token, int> built;
    for (Node* c = canvas->firstChild(); c; c = c->nextSibling()) ++built[tokenOf(c, tok_Type)];
    for (auto [type, n] : built) EXPECT_EQ(n, 1) << type.text();
}

// A Prop writes its value by the type the catalogue gives its option: the document's own
// ObjType first, which hides the shared entry entirely, else the shared entry.
TEST(StdObjTypes, PropWritesItsValueByType) {
    Page page;
    PlotDocument& doc = page.doc;
    Ref<ObjType> own = makeObjType(
        &doc, tok_Curve2d,
        {makePropCat(
            &doc, L"Own",
            {makePropInfo(&doc, tok_Prop, tok_Closed, tok_Bool, false),
             makePropCat(&doc, L"Inner",
                         {makePropInfo(&doc, tok_Prop, tok_LineColor, tok_Color, false),
                          makePropInfo(&doc, tok_Prop, tok_TitleFont, tok_Font, false),
                          makePropInfo(&doc, tok_Prop, tok_FillColor, tok_ColorList, false),
                          makePropInfo(&doc, tok_Prop, tok_Title, tok_Expression, false)}),
             nullptr, makePropInfo(&doc, tok_Prop, tok_Name, tok_Bool, false)})});
    EXPECT_EQ(countTag(own.get(), tok_PropInfo), 5); // the null ends the list
    page.canvas->appendChild(own.get());

    auto written = [&](Token objType, Token opt, const wchar_t* val, Token parentTag = tok_Obj2d) {
        Ref<PlotElement> object = parentTag == tok_Group2d ? new Level(&doc, parentTag)
                                                           : doc.createPlotElement(parentTag);
        if (object->propertyInfo(tok_Type))
            object->setAttribute(tok_Type, Arbor::TokenVariant(objType));
        Ref<Prop> prop = make<Prop>(doc, tok_Prop);
        prop->setAttribute(tok_Opt, Arbor::TokenVariant(opt));
        prop->setAttribute(tok_Val,
                           Arbor::FixedUStringVariant(Tessel::FixedStringBase<wchar_t>(val)));
        object->appendChild(prop.get());
        std::ostringstream out;
        CmdOStream cmd(out, tok_MM);
        prop->putCmd(cmd);
        const std::string text = out.str();
        return text.substr(text.find_first_not_of(' ')); // past the indentation of the item
    };
    EXPECT_EQ(written(tok_Curve2d, tok_Closed, L"1"), "Closed=TRUE");
    EXPECT_EQ(written(tok_Curve2d, tok_Closed, L"maybe"), "Closed=");
    EXPECT_EQ(
        written(tok_Curve2d, tok_LineColor, L"#ff0000"), "LineColor=" + [] {
            std::ostringstream o;
            putCmdValue(o, RGBA(0xff, 0, 0, 0xff));
            return o.str();
        }());
    EXPECT_EQ(written(tok_Curve2d, tok_LineColor, L"red"), "LineColor=");
    EXPECT_NE(written(tok_Curve2d, tok_TitleFont, L"'Sans' 9"), "TitleFont=");
    EXPECT_EQ(written(tok_Curve2d, tok_TitleFont, L"9 'Sans' junk"), "TitleFont=");
    std::ostringstream two;
    two << '[';
    putCmdValue(two, RGBA(0x10, 0x20, 0x30, 0xff));
    two << ',';
    putCmdValue(two, RGBA(0xa0, 0xb0, 0xc0, 0x40));
    two << ']';
    EXPECT_EQ(written(tok_Curve2d, tok_FillColor, L"a #102030, b #a0b0c040 #zz #ffffff"),
              "FillColor=" + two.str());
    EXPECT_EQ(written(tok_Curve2d, tok_FillColor, L"none"), "FillColor=[]");
    EXPECT_EQ(written(tok_Curve2d, tok_Title, L"x<1"), "Title=x<1");
    // Name stands behind the null that ended its list.
    EXPECT_EQ(written(tok_Curve2d, tok_Name, L"1"), "Name=1");
    // The shared entry where the document has none: Hatch's functions are strings.
    EXPECT_EQ(written(tok_Hatch, tok_Function1, L"a\"b"), "Function1=\"a\\\"b\"");
    EXPECT_EQ(written(tok_Hatch, tok_Function1, L"f", tok_Group2d), "Function1=f");
    EXPECT_EQ(written(tok_Function2d, tok_Function1, L"f"), "Function1=f");
}
