#include <grafel/arbor/DomException.h>
#include <grafel/arbor/Text.h>
#include <grafel/catalogue/Prop.h>
#include <grafel/catalogue/PropCat.h>
#include <grafel/catalogue/PropInfo.h>
#include <grafel/document/PlotDocument.h>

#include <gtest/gtest.h>

#include <sstream>

using namespace Grafel;
using Arbor::DomException;
using Arbor::Ref;
using Arbor::Token;

namespace {

template <class T> Ref<T> make(PlotDocument& doc, Token tag) {
    return Ref<T>(static_cast<T*>(doc.createPlotElement(tag)));
}

std::string xmlOf(PlotElement* e) {
    std::ostringstream out;
    e->putXml(out);
    return out.str();
}

struct PropElements : ::testing::Test {
    PlotDocument doc;
    Ref<Prop> prop = make<Prop>(doc, tok_Prop);
    Ref<PropCat> cat = make<PropCat>(doc, tok_PropCat);
    Ref<PropInfo> info = make<PropInfo>(doc, tok_PropInfo);
};

} // namespace

TEST_F(PropElements, TablesKindsAndDefaults) {
    ASSERT_TRUE(prop && cat && info);
    EXPECT_EQ(prop->tagName(), tok_Prop);
    // Mandatory values are always there, with their defaults until set.
    EXPECT_TRUE(prop->hasAttribute(tok_Opt));
    EXPECT_TRUE(prop->hasAttribute(tok_Val));
    EXPECT_TRUE(prop->getOpt().isNull());
    EXPECT_TRUE(cat->hasAttribute(tok_Name));
    EXPECT_TRUE(info->hasAttribute(tok_Dom));
    for (Token optional : {tok_Name, tok_Opt, tok_Type, tok_Enum, tok_Recalc, tok_Info})
        EXPECT_FALSE(info->hasAttribute(optional)) << optional;
    EXPECT_FALSE(info->getRecalc());
    EXPECT_EQ(info->propertyInfo(tok_Val), nullptr);
    EXPECT_EQ(prop->propertyInfo(tok_Dom), nullptr);

    prop->setAttributeString(tok_Opt, "Mesh");
    prop->setAttributeString(tok_Val, "[10, 20]");
    EXPECT_EQ(prop->getOpt(), Token("Mesh", true));
    EXPECT_EQ(prop->getVal().view(), L"[10, 20]");
    info->setAttributeString(tok_Recalc, "1");
    info->setAttributeString(tok_Dom, "Prop");
    info->setAttributeString(tok_Type, "ColorList");
    EXPECT_TRUE(info->getRecalc());
    EXPECT_EQ(info->getType(), Token("ColorList", true));
    EXPECT_THROW(info->setAttributeString(tok_Recalc, "TRUE"), DomException);
    EXPECT_THROW(info->setAttributeString(tok_Dom, ""), DomException);
}

TEST_F(PropElements, ChildRules) {
    // Categories nest and hold entries; nothing else goes anywhere.
    Ref<PropCat> inner = make<PropCat>(doc, tok_PropCat);
    cat->appendChild(inner.get());
    cat->appendChild(make<PropInfo>(doc, tok_PropInfo).get());
    EXPECT_EQ(cat->items(), 2u);
    EXPECT_THROW(cat->appendChild(prop.get()), DomException);
    Ref<Arbor::Text> text(doc.createTextNode(L"x"));
    EXPECT_THROW(cat->appendChild(text.get()), DomException);
    Ref<PropInfo> entry = make<PropInfo>(doc, tok_PropInfo);
    EXPECT_THROW(prop->appendChild(entry.get()), DomException);
    EXPECT_THROW(info->appendChild(text.get()), DomException);
    EXPECT_EQ(cat->items(), 2u);
    // The empty change is the only one the leaves allow.
    EXPECT_TRUE(prop->mayReplaceChildren(nullptr, 0, nullptr));
    EXPECT_TRUE(info->mayReplaceChildren(nullptr, 0, nullptr));
    cat->removeChild(inner.get());
    EXPECT_EQ(cat->items(), 1u);
}

TEST_F(PropElements, ClonesAreEmptyCopiesAreFull) {
    prop->setAttributeString(tok_Opt, "Mesh");
    prop->setAttributeString(tok_Val, "7");
    cat->setAttributeString(tok_Name, "Main");
    info->setAttributeString(tok_Dom, "Prop");
    info->setAttributeString(tok_Info, "text");
    cat->appendChild(info.get());

    Ref<Prop> clone(static_cast<Prop*>(prop->cloneNode(true)));
    EXPECT_TRUE(clone->getOpt().isNull());
    EXPECT_TRUE(clone->getVal().empty());
    Ref<PropCat> deep(static_cast<PropCat*>(cat->cloneNode(true)));
    EXPECT_TRUE(deep->getName().empty());
    ASSERT_EQ(deep->items(), 1u);
    EXPECT_TRUE(static_cast<PropInfo*>(deep->firstChild())->getDom().isNull());
    Ref<PropCat> shallow(static_cast<PropCat*>(cat->cloneNode(false)));
    EXPECT_EQ(shallow->items(), 0u);

    Ref<Prop> copy(new Prop(*prop));
    EXPECT_EQ(copy->getOpt(), prop->getOpt());
    EXPECT_EQ(copy->getVal().view(), L"7");
    Ref<PropInfo> infoCopy(new PropInfo(*info));
    EXPECT_EQ(infoCopy->getInfo().view(), L"text");
    EXPECT_TRUE(infoCopy->hasAttribute(tok_Info));
    EXPECT_FALSE(infoCopy->parentNode());
}

TEST_F(PropElements, XmlForms) {
    // Mandatory values always, the others when set; strings escaped.
    const std::string empty = xmlOf(prop.get());
    EXPECT_TRUE(empty == "<Prop Val=\"\" Opt=\"\"></Prop>" ||
                empty == "<Prop Opt=\"\" Val=\"\"></Prop>")
        << empty;
    cat->setAttributeString(tok_Name, "a<b & \"c\"");
    EXPECT_EQ(xmlOf(cat.get()), "<PropCat Name=\"a&lt;b &amp; &quot;c&quot;\"></PropCat>");
    info->setAttributeString(tok_Dom, "LineColor");
    EXPECT_EQ(xmlOf(info.get()), "<PropInfo Dom=\"LineColor\"></PropInfo>");
    info->setAttributeString(tok_Recalc, "0");
    const std::string withRecalc = xmlOf(info.get());
    EXPECT_NE(withRecalc.find(" Recalc=\"0\""), std::string::npos);
    EXPECT_EQ(withRecalc.find(" Opt="), std::string::npos);
}
