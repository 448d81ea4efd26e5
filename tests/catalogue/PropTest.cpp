// The catalogue elements' own rules; their values, XML forms and copies are held to the rules
// of every element class.
#include "support/Plots.h"

#include <grafel/arbor/DomException.h>
#include <grafel/catalogue/Prop.h>
#include <grafel/catalogue/PropCat.h>
#include <grafel/catalogue/PropInfo.h>

#include <gtest/gtest.h>

using namespace TestSupport;
using Arbor::DomException;

TEST(PropElements, ChildRulesAndRefusedTexts) {
    PlotDocument doc;
    Ref<Prop> prop = make<Prop>(doc, tok_Prop);
    Ref<PropCat> cat = make<PropCat>(doc, tok_PropCat);
    Ref<PropInfo> info = make<PropInfo>(doc, tok_PropInfo);
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
    // Words are read as they are, and an empty one is no word.
    prop->setAttributeString(tok_Opt, "Mesh");
    EXPECT_EQ(prop->getOpt(), Token("Mesh", true));
    EXPECT_THROW(info->setAttributeString(tok_Recalc, "TRUE"), DomException);
    EXPECT_THROW(info->setAttributeString(tok_Dom, ""), DomException);
}
