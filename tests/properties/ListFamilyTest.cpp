#include <grafel/arbor/DomException.h>
#include <grafel/foundation/ValueVariants.h>
#include <grafel/properties/AfterPropertyChangeEvent.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/LibraryElement.h>
#include <grafel/properties/ListTable.h>
#include <grafel/properties/PropertyTypes.h>

#include "support/Reports.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace Grafel;
using Arbor::DomException;
using Arbor::Ref;
using Arbor::Token;
using Arbor::Variant;

namespace Grafel {
constexpr int id_Lib = id_Group2d;
constexpr int id_Sty = id_Row3;
} // namespace Grafel

namespace {

#define LIB_TABLE(P)                                                                               \
    P(Optional, StringListProperty, id, (Tessel::FixedStringBase<char>()))                         \
    P(Optional, MStringListProperty, Name, (Tessel::FixedStringBase<wchar_t>()))                   \
    P(Optional, BoolListProperty, Consistent, true)                                                \
    P(Inherited, DoubleListProperty, LineWidth, 0.35)                                              \
    P(Inherited, FontListProperty, TitleFont, FontStyle())                                         \
    P(Mandatory, TokenListProperty, Type, getToken(id_Default))

GRAFEL_DEFINE_PROPERTY_LIST(LibPropertyListMgr, LIB_TABLE)

// Inherits from a style among its parent's children that holds the value, else from its parent
// when that holds it, else from whatever the parent inherits from: the shape of object styles.
template <class Base> class InheritsFromStyles : public Base {
public:
    using Base::Base;
    PlotElement* inheritingFrom(Token name) const override {
        for (PlotElement* p : chain())
            if (p->hasAttribute(name)) return p;
        return nullptr;
    }
    void getInheritanceChain(std::vector<PlotElement*>& out) const override {
        auto c = chain();
        out.insert(out.end(), c.begin(), c.end());
    }

private:
    std::vector<PlotElement*> chain() const {
        std::vector<PlotElement*> out;
        for (Arbor::Node* level = this->parentNode(); level; level = level->parentNode()) {
            for (Arbor::Node* n = level->firstChild(); n; n = n->nextSibling())
                if (auto* s = dynamic_cast<PlotElement*>(n); s && s->isStyle() && s != this)
                    out.push_back(s);
            if (auto* e = dynamic_cast<PlotElement*>(level)) out.push_back(e);
        }
        return out;
    }
};

class Lib : public InheritsFromStyles<LibraryElement> {
public:
    explicit Lib(Arbor::Document* d) : InheritsFromStyles(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(Lib)
    GRAFEL_LIST_GETTERS(LIB_TABLE)
    Property* propertyInfo(Token name) const override {
        return LibPropertyListMgrInstance().find(name);
    }

protected:
    bool allowedContentChild(Token) const override { return true; }
    int tagNameToOptionChildFlag(Token tag) const override {
        return tag == tok_Hints ? 1 : tag == tok_Title ? 2 : 0;
    }
    int allowedOptionChildren() const override { return 3; }
    int mandatoryOptionChildren() const override { return 0; }
};

class Sty : public InheritsFromStyles<StyleElement> {
public:
    explicit Sty(Arbor::Document* d) : InheritsFromStyles(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(Sty)
    Property* propertyInfo(Token name) const override {
        return LibPropertyListMgrInstance().find(name);
    }

protected:
    Token getCmdType() override { return tok_ObjStyle; }
};

std::vector<std::string>& reports = TestSupport::reports();
constexpr auto collect = &TestSupport::collectReport;

struct Heard : Arbor::IDocObserver {
    std::vector<std::string> events;
    void handleEvent(Arbor::DomEvent& e) override {
        auto* lib = static_cast<AttributeListElement*>(e.target());
        const Variant* id = lib->findAttribute(tok_id);
        events.push_back(id ? id->as<Arbor::FixedStringVariant>()->val().c_str() : "?");
    }
};

// top(Lib) > [style(Sty), mid(Lib) > [bottom(Lib)]]
struct Tree {
    ElementDocument doc;
    Ref<Lib> top = static_cast<Lib*>(Lib::create(&doc));
    Ref<Sty> style = static_cast<Sty*>(Sty::create(&doc));
    Ref<Lib> mid = static_cast<Lib*>(Lib::create(&doc));
    Ref<Lib> bottom = static_cast<Lib*>(Lib::create(&doc));
    Heard heard;
    Tree() {
        reports.clear();
        doc.domErrorHdl(collect);
        for (auto [e, id] : {std::pair<PlotElement*, const char*>{top.get(), "top"},
                             {style.get(), "style"},
                             {mid.get(), "mid"},
                             {bottom.get(), "bottom"}})
            e->setAttributeString(tok_id, id);
        top->appendChild(style.get());
        top->appendChild(mid.get());
        mid->appendChild(bottom.get());
        doc.addObserver(&heard, tok_AfterPropertyChange);
    }
};

} // namespace

TEST(ListFamily, ResolutionOrderAndReports) {
    Tree t;
    EXPECT_EQ(t.bottom->getLineWidth(), 0.35); // default
    t.top->setAttribute(tok_LineWidth, Arbor::DoubleVariant(1.0));
    EXPECT_EQ(t.bottom->getLineWidth(), 1.0); // from the top element
    t.style->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
    EXPECT_EQ(t.bottom->getLineWidth(), 2.0); // the style stands before its parent
    t.mid->setAttribute(tok_LineWidth, Arbor::DoubleVariant(3.0));
    EXPECT_EQ(t.bottom->getLineWidth(), 3.0);
    EXPECT_TRUE(t.bottom->getConsistent()); // default of the table

    FontStyle f;
    ASSERT_TRUE(f.parse("Arial 14"));
    t.top->setAttribute(tok_TitleFont, FontStyleVariant(f));
    EXPECT_EQ(&t.bottom->getTitleFont(), &t.top->getTitleFont()); // a reference, no copy
    EXPECT_EQ(t.bottom->getTitleFont().size(), 14u);

    // An unset attribute is no attribute; an unknown name is no property.
    EXPECT_THROW(t.bottom->getAttribute(tok_LineWidth), DomException);
    EXPECT_EQ(reports.back(), "illegal attribute 'LineWidth' [node 'Group2d']\n");
    EXPECT_EQ(TestSupport::domCode([&] { t.bottom->getProperty(tok_Width); }),
              DomException::InvalidAccessErr);
    EXPECT_EQ(reports.back(), "unknown property 'Width' [node 'Group2d']\n");
    EXPECT_THROW(t.bottom->getProperty(tok_Type), DomException);
    EXPECT_EQ(reports.back(), "mandatory property 'Type' missing [node 'Group2d']\n");
    EXPECT_FALSE(t.bottom->hasAttribute(tok_Width));
    EXPECT_FALSE(t.bottom->isPropertyEnabled(tok_Width));
    EXPECT_TRUE(t.bottom->hasProperty(tok_Type));
}

TEST(ListFamily, EventsReachExactlyTheElementsWhoseValueChanged) {
    Tree t;
    t.mid->setAttribute(tok_LineWidth, Arbor::DoubleVariant(5.0));
    t.heard.events.clear();
    t.style->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
    // The style only: its sibling's own value stands, for the sibling and all below it.
    EXPECT_EQ(t.heard.events, (std::vector<std::string>{"style"}));

    // A removal tells the element itself and those that followed the removed value: bottom
    // read mid's 5 and now reads the style's 2. (Deciding after the removal, when the value no
    // longer passes through mid, used to leave bottom unheard.) Undo puts the value back and
    // tells the same elements; redo removes it again.
    t.heard.events.clear();
    t.doc.newUndoTask();
    t.mid->removeAttribute(tok_LineWidth);
    const std::vector<std::string> midAndBelow{"mid", "bottom"};
    EXPECT_EQ(t.heard.events, midAndBelow);
    t.doc.newUndoTask();
    for (bool (Arbor::Document::*replay)() : {&Arbor::Document::undo, &Arbor::Document::redo}) {
        t.heard.events.clear();
        ASSERT_TRUE((t.doc.*replay)());
        EXPECT_EQ(t.heard.events, midAndBelow);
    }
    t.doc.clearUndoStack();
    // A change at the top passes through the style (which inherits from the top), so the
    // elements that follow the style hear of it, though the style's own value hides it.
    t.heard.events.clear();
    t.top->setAttribute(tok_LineWidth, Arbor::DoubleVariant(9.0));
    EXPECT_EQ(t.heard.events, (std::vector<std::string>{"top", "mid", "bottom"}));

    // Setting a property to what it inherits anyway changes nothing and tells nobody.
    t.heard.events.clear();
    t.bottom->setProperty(tok_LineWidth, Arbor::DoubleVariant(2.0));
    EXPECT_FALSE(t.bottom->hasAttribute(tok_LineWidth));
    EXPECT_TRUE(t.heard.events.empty());
}

TEST(ListFamily, NormalisationDropsRedundantValues) {
    Tree t;
    t.style->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
    FontStyle f;
    ASSERT_TRUE(f.parse("Arial 14"));
    t.style->setAttribute(tok_TitleFont, FontStyleVariant(f));
    t.bottom->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
    t.bottom->setAttribute(tok_TitleFont, FontStyleVariant(f));
    t.bottom->normalizeAttributes();
    EXPECT_FALSE(t.bottom->hasAttribute(tok_LineWidth));
    EXPECT_FALSE(t.bottom->hasAttribute(tok_TitleFont));
    EXPECT_TRUE(t.bottom->hasAttribute(tok_id)); // not inherited: stays

    // A set on the style drops equal values below it.
    t.mid->setAttribute(tok_LineWidth, Arbor::DoubleVariant(4.0));
    t.style->setProperty(tok_LineWidth, Arbor::DoubleVariant(4.0));
    EXPECT_FALSE(t.mid->hasAttribute(tok_LineWidth));
}

TEST(ListFamily, XmlAndCommandForms) {
    Tree t;
    t.mid->setAttribute(tok_LineWidth, Arbor::DoubleVariant(0.5));
    t.mid->setAttribute(tok_Consistent, Arbor::BoolVariant(false));
    t.style->setAttribute(tok_LineWidth, Arbor::DoubleVariant(2.0));
    std::ostringstream xml;
    t.mid->putAttributesXml(xml);
    // Records in descending token word, i.e. reverse catalogue order.
    EXPECT_EQ(xml.str(), " id=\"mid\" LineWidth=\"0.5\" Consistent=\"0\"");

    std::ostringstream text;
    CmdOStream cmd(text, tok_MM);
    t.top->putCmd(cmd);
    EXPECT_EQ(text.str(), "  plot::Group2d(\r\n"
                          "    id=\"top\",\r\n"
                          "    plot::ObjStyle::id=\"style\",\r\n"
                          "    plot::ObjStyle::LineWidth=2,\r\n"
                          "    plot::Group2d(\r\n"
                          "      id=\"mid\",\r\n"
                          "      LineWidth=0.5,\r\n"
                          "      Consistent=FALSE,\r\n"
                          "      plot::Group2d(\r\n"
                          "        id=\"bottom\")))");
}

TEST(ListFamily, OptionChildrenAreCountedPerChange) {
    Tree t;
    Ref<Lib> a = static_cast<Lib*>(Lib::create(&t.doc));
    struct Option : Lib {
        Token tag;
        Option(Arbor::Document* d, Token t) : Lib(d), tag(t) {}
        Token tagName() const override { return tag; }
    };
    Ref<Option> hints1 = new Option(&t.doc, tok_Hints), hints2 = new Option(&t.doc, tok_Hints);
    a->appendChild(hints1.get());
    EXPECT_EQ(a->optionChildren(), 1);
    EXPECT_THROW(a->appendChild(hints2.get()), DomException);
    EXPECT_EQ(reports.back(), "option child 'Hints' defined twice [parent 'Group2d']\n");
    a->replaceChild(hints2.get(), hints1.get()); // one for one: allowed
    EXPECT_EQ(a->firstChild(), hints2.get());
    EXPECT_EQ(a->optionChildren(), 1);
    a->removeChild(hints2.get());
    EXPECT_EQ(a->optionChildren(), 0);
}
