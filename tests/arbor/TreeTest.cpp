#include "arbor/KernelTestSupport.h"

#include <functional>
#include <grafel/arbor/DocumentFragment.h>
#include <grafel/arbor/DomException.h>
#include <grafel/arbor/Text.h>

#include <gtest/gtest.h>

#include <sstream>

using namespace KernelTest;

namespace {

std::string names(Node* parent) {
    std::string s;
    for (Node* n = parent->firstChild(); n; n = n->nextSibling())
        s += n->nodeName().text() + std::string(" ");
    return s;
}

long codeOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const DomException& e) {
        return e.code();
    }
    return 0;
}

} // namespace

TEST(Tree, NamedFormsOfTheChildChange) {
    LoggingDocument doc;
    Ref<Element> root = doc.make("root");
    doc.appendChild(root.get());
    Node* a = root->appendChild(doc.make("a"));
    Node* c = root->appendChild(doc.make("c"));
    root->insertBefore(doc.make("b"), c);
    EXPECT_EQ(names(root.get()), "a b c ");
    EXPECT_EQ(root->items(), 3u);
    EXPECT_EQ(root->findChild(2u), c);
    EXPECT_EQ(root->findChild(tok("b"))->indexInParent(), 1u);
    EXPECT_EQ(root->findChild(3u), nullptr);

    Ref<Node> removed = root->removeChild(a);
    EXPECT_EQ(removed.get(), a);
    EXPECT_EQ(a->parentNode(), nullptr);
    EXPECT_EQ(a->refCount(), 1); // only the caller's reference is left
    EXPECT_EQ(names(root.get()), "b c ");

    Ref<Node> old = root->replaceChildByName(doc.make("c"));
    EXPECT_EQ(old.get(), c);
    EXPECT_EQ(root->replaceChildByName(doc.make("d")).get(), nullptr); // appended
    EXPECT_EQ(names(root.get()), "b c d ");
    EXPECT_EQ(root->lastChild()->previousSibling()->nodeName(), tok("c"));
}

TEST(Tree, FragmentsAndMovesKeepEveryListSound) {
    LoggingDocument doc;
    Ref<Element> root = doc.make("root");
    Ref<Element> other = doc.make("other");
    Ref<DocumentFragment> frag = doc.createDocumentFragment();
    frag->appendChild(doc.make("x"));
    frag->appendChild(doc.make("y"));
    root->appendChild(doc.make("a"));
    root->appendChild(frag.get());
    EXPECT_EQ(names(root.get()), "a x y ");
    EXPECT_EQ(frag->items(), 0u);
    EXPECT_EQ(frag->firstChild(), nullptr);
    EXPECT_EQ(root->findChild(tok("x"))->parentNode(), root.get());

    // A node that stands in a tree moves alone, its siblings stay.
    Node* x = root->findChild(tok("x"));
    other->appendChild(x);
    EXPECT_EQ(names(root.get()), "a y ");
    EXPECT_EQ(names(other.get()), "x ");
    EXPECT_EQ(root->items(), 2u);
    // Moving within one parent, also before itself.
    Node* y = root->findChild(tok("y"));
    root->insertBefore(y, root->firstChild());
    EXPECT_EQ(names(root.get()), "y a ");
    root->insertBefore(y, y);
    EXPECT_EQ(names(root.get()), "y a ");
    root->replaceChild(y, y);
    EXPECT_EQ(names(root.get()), "y a ");
}

TEST(Tree, RefusedChangesThrowAndChangeNothing) {
    LoggingDocument doc;
    LoggingDocument otherDoc;
    Ref<LoggingElement> root = doc.make("root");
    Ref<Element> child = doc.make("child");
    root->appendChild(child.get());

    EXPECT_EQ(codeOf([&] { child->appendChild(root.get()); }), DomException::HierarchyRequestErr);
    EXPECT_EQ(codeOf([&] { root->appendChild(root.get()); }), DomException::HierarchyRequestErr);
    Ref<Element> foreign = otherDoc.make("foreign");
    EXPECT_EQ(codeOf([&] { root->appendChild(foreign.get()); }), DomException::WrongDocumentErr);
    Ref<Element> stray = doc.make("stray");
    EXPECT_EQ(codeOf([&] { root->removeChild(stray.get()); }), DomException::NotFoundErr);
    Ref<Text> text = doc.createTextNode(L"t");
    Ref<Element> z = doc.make("z");
    EXPECT_EQ(codeOf([&] { text->appendChild(z.get()); }), DomException::HierarchyRequestErr);

    doc.appendChild(root.get());
    EXPECT_EQ(codeOf([&] { doc.appendChild(z.get()); }), DomException::HierarchyRequestErr);
    EXPECT_EQ(codeOf([&] { doc.appendChild(text.get()); }), DomException::HierarchyRequestErr);
    EXPECT_EQ(doc.documentElement(), root.get());
    // Replacing the document element with another element is allowed.
    Ref<Element> newRoot = doc.make("newRoot");
    doc.replaceChild(newRoot.get(), root.get());
    EXPECT_EQ(doc.documentElement(), newRoot.get());

    // The veto hook is asked with the change's own arguments, also for a change of nothing.
    root->refuseChildren = true;
    doc.log.lines.clear();
    EXPECT_EQ(codeOf([&] { root->appendChild(z.get()); }), DomException::HierarchyRequestErr);
    EXPECT_EQ(names(root.get()), "child ");
    EXPECT_EQ(codeOf([&] { root->removeChild(child.get()); }), DomException::HierarchyRequestErr);
    EXPECT_EQ(child->parentNode(), root.get());
    root->refuseChildren = false;
    Ref<Element> keep(root.get());
    struct Open : LoggingElement {
        using LoggingElement::LoggingElement;
        void change() { replaceChildren(nullptr, 0, nullptr); }
    };
    Ref<Open> open = new Open(&doc, tok("open"), &doc.log);
    doc.log.lines.clear();
    open->change();
    ASSERT_EQ(doc.log.lines.size(), 1u);
    EXPECT_EQ(doc.log.lines[0], "open.mayReplace(null,0,null)");
}

TEST(Tree, AfterParentChangedReachesRemovedThenInsertedNodes) {
    LoggingDocument doc;
    Ref<Element> root = doc.make("root");
    root->appendChild(doc.make("old"));
    doc.log.lines.clear();
    root->replaceChild(doc.make("new"), root->firstChild());
    EXPECT_EQ(doc.log.lines,
              (std::vector<std::string>{"root.mayReplace(old,1,new)", "old.afterParentChanged",
                                        "new.afterParentChanged"}));
}

TEST(Tree, CloneAndXml) {
    LoggingDocument doc;
    doc.setXmlNamespace("http://example.org/ns");
    Ref<Element> root = doc.make("root");
    doc.appendChild(root.get());
    Element* a = static_cast<Element*>(root->appendChild(doc.make("a")));
    a->setAttribute(tok("n"), LongVariant(3));
    a->setAttribute(tok("s"), FixedUStringVariant(Tessel::FixedStringBase<wchar_t>(L"<\"&\">")));
    a->appendChild(doc.createTextNode(L"x < y"));
    Ref<Node> copy = root->cloneNode(true);
    EXPECT_EQ(copy->parentNode(), nullptr);
    EXPECT_EQ(copy->firstChild()->asElement()->getAttribute(tok("n")), LongVariant(3));
    EXPECT_NE(copy->firstChild(), a);

    std::ostringstream out;
    doc.putXml(out);
    EXPECT_EQ(out.str(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                         "<root xmlns=\"http://example.org/ns\"><a n=\"3\" "
                         "s=\"&lt;&quot;&amp;&quot;&gt;\">x &lt; y</a></root>\n");
}

TEST(Tree, VeryDeepTreesAreBuiltAndDestroyedWithoutRecursion) {
    BasicDocument doc;
    const Token deep = tok("deep");
    Ref<Element> root = doc.createElement(deep);
    Element* e = root.get();
    for (int i = 0; i < 200000; ++i)
        e = static_cast<Element*>(e->appendChild(doc.createElement(deep)));
    root->setAttribute(tok("v"), LongVariant(1)); // the after walk goes over the whole depth
    EXPECT_EQ(e->parentNode()->parentNode()->items(), 1u);
    root = Ref<Element>(); // releases 200001 nested nodes
    SUCCEED();
}
