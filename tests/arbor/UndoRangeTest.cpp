#include "arbor/KernelTestSupport.h"

#include <grafel/arbor/DocumentFragment.h>
#include <grafel/arbor/Range.h>
#include <grafel/arbor/UndoTaskScope.h>

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <type_traits>

using namespace KernelTest;

namespace {

std::string xml(Document& doc) {
    std::ostringstream out;
    doc.putXml(out);
    std::string s = out.str();
    return s.substr(s.find('\n') + 1);
}

} // namespace

TEST(Undo, TasksReplayAttributesAndChildrenBothWays) {
    LoggingDocument doc;
    Ref<Element> root = doc.make("r");
    doc.appendChild(root.get()); // before the first task: not recorded
    root->setAttribute(tok("v"), LongVariant(1));
    EXPECT_FALSE(doc.canUndo());

    const std::string step0 = xml(doc);
    EXPECT_EQ(step0, "<r v=\"1\"></r>\n");
    doc.newUndoTask();
    root->setAttribute(tok("v"), LongVariant(2));
    root->setAttribute(tok("w"), BoolVariant(true));
    root->appendChild(doc.make("a"));
    root->appendChild(doc.make("b"));
    const std::string step1 = xml(doc);
    doc.newUndoTask();
    root->removeChild(root->firstChild());
    root->removeAttribute(tok("v"));
    const std::string step2 = xml(doc);
    EXPECT_EQ(step2, "<r w=\"1\"><b></b></r>\n");

    ASSERT_TRUE(doc.undo());
    EXPECT_EQ(xml(doc), step1);
    ASSERT_TRUE(doc.undo());
    EXPECT_EQ(xml(doc), step0);
    EXPECT_FALSE(doc.canUndo());
    EXPECT_FALSE(doc.undo());
    ASSERT_TRUE(doc.redo());
    EXPECT_EQ(xml(doc), step1);
    ASSERT_TRUE(doc.redo());
    EXPECT_EQ(xml(doc), step2);
    EXPECT_FALSE(doc.canRedo());

    // A new change forgets what could be redone.
    doc.undo();
    root->setAttribute(tok("x"), LongVariant(0));
    EXPECT_FALSE(doc.canRedo());
    doc.clearUndoStack();
    EXPECT_FALSE(doc.canUndo());
    root->setAttribute(tok("y"), LongVariant(0)); // not recorded any more
    EXPECT_FALSE(doc.canUndo());
}

TEST(Undo, ReplayRunsTheAfterWalksAndNotifiesOnceTheStepIsDone) {
    LoggingDocument doc;
    Ref<Element> root = doc.make("r");
    root->appendChild(doc.make("c"));
    doc.newUndoTask();
    root->setAttribute(tok("v"), LongVariant(1));
    root->setAttribute(tok("v"), LongVariant(2));
    doc.log.lines.clear();
    doc.undo();
    // Two records, newest first: back to 1, then back to absent.
    EXPECT_EQ(doc.log.lines,
              (std::vector<std::string>{"r.setRaw v", "r.afterSet v from r", "c.afterSet v from r",
                                        "r.afterRemove v from r", "c.afterRemove v from r"}));
    EXPECT_FALSE(root->hasAttribute(tok("v")));

    // Moved nodes hear afterParentChanged when a child change is replayed.
    doc.newUndoTask();
    Ref<Node> c = root->removeChild(root->firstChild());
    doc.log.lines.clear();
    doc.undo();
    EXPECT_EQ(doc.log.lines, (std::vector<std::string>{"c.afterParentChanged"}));
    EXPECT_EQ(root->firstChild(), c.get());
}

static_assert(!std::is_copy_constructible_v<UndoTaskScope> &&
              !std::is_copy_assignable_v<UndoTaskScope> &&
              std::is_nothrow_move_constructible_v<UndoTaskScope>);

TEST(Undo, AScopeMakesOneStepNestedScopesJoinItAndAnExceptionStillClosesIt) {
    LoggingDocument doc;
    Ref<Element> root = doc.make("r");
    doc.appendChild(root.get());
    doc.newUndoTask();
    root->setAttribute(tok("v"), LongVariant(1)); // a step of its own, before the scope
    const std::string before = xml(doc);
    {
        UndoTaskScope scope(doc);
        root->setAttribute(tok("v"), LongVariant(2));
        {
            UndoTaskScope inner(doc); // joins the outer step rather than splitting it
            root->appendChild(doc.make("a"));
        }
        root->setAttribute(tok("w"), BoolVariant(true));
        UndoTaskScope moved = std::move(scope); // the moved-from scope closes nothing
        root->appendChild(doc.make("b"));
    }
    const std::string after = xml(doc);
    EXPECT_TRUE(root->hasAttribute(tok("w")));
    EXPECT_EQ(root->items(), 2u);
    root->setAttribute(tok("v"), LongVariant(3)); // after the scope: the next step
    ASSERT_TRUE(doc.undo());
    EXPECT_EQ(xml(doc), after);
    ASSERT_TRUE(doc.undo());
    EXPECT_EQ(xml(doc), before);
    ASSERT_TRUE(doc.redo());
    EXPECT_EQ(xml(doc), after);

    // An exception leaving the scope closes the step with what was done before it.
    const std::string beforeThrow = xml(doc);
    EXPECT_THROW(
        {
            UndoTaskScope scope(doc);
            root->appendChild(doc.make("c"));
            root->removeAttribute(tok("w"));
            throw std::runtime_error("edit failed");
        },
        std::runtime_error);
    root->setAttribute(tok("x"), LongVariant(0)); // not part of the failed step
    ASSERT_TRUE(doc.undo());
    EXPECT_EQ(xml(doc), "<r v=\"2\"><a></a><b></b><c></c></r>\n");
    ASSERT_TRUE(doc.undo());
    EXPECT_EQ(xml(doc), beforeThrow);
}

TEST(Undo, AMoveAndAFragmentInsertUndoToTheExactFormerTree) {
    LoggingDocument doc;
    Ref<Element> root = doc.make("r");
    doc.appendChild(root.get());
    Element* p = static_cast<Element*>(root->appendChild(doc.make("p")));
    Element* q = static_cast<Element*>(root->appendChild(doc.make("q")));
    p->appendChild(doc.make("x"));
    p->appendChild(doc.make("y"));
    const std::string before = xml(doc);
    doc.newUndoTask();
    q->appendChild(p->firstChild()); // a move: removal and insertion in one task
    Ref<DocumentFragment> frag = doc.createDocumentFragment();
    frag->appendChild(doc.make("f1"));
    frag->appendChild(doc.make("f2"));
    p->insertBefore(frag.get(), p->firstChild());
    const std::string after = xml(doc);
    EXPECT_EQ(after, "<r><p><f1></f1><f2></f2><y></y></p><q><x></x></q></r>\n");
    doc.undo();
    EXPECT_EQ(xml(doc), before);
    doc.redo();
    EXPECT_EQ(xml(doc), after);
}

TEST(Ranges, SelectCollapseAndFollowChanges) {
    LoggingDocument doc;
    Ref<Element> root = doc.make("r");
    doc.appendChild(root.get());
    for (const char* n : {"a", "b", "c", "d"}) root->appendChild(doc.make(n));
    EXPECT_EQ(doc.firstSelectedRange(), nullptr);
    Range* plain = doc.createRange(false);
    Range* sel = doc.createRange(true);
    EXPECT_EQ(doc.firstSelectedRange(), sel);
    EXPECT_EQ(plain->startContainer(), &doc);

    Node* c = root->findChild(tok("c"));
    sel->selectNode(c);
    EXPECT_EQ(sel->startContainer(), root.get());
    EXPECT_EQ(sel->startOffset(), 2u);
    EXPECT_EQ(sel->endOffset(), 3u);

    root->removeChild(root->firstChild()); // before the range: both offsets shift
    EXPECT_EQ(sel->startOffset(), 1u);
    EXPECT_EQ(sel->endOffset(), 2u);
    root->insertBefore(doc.make("n"), root->firstChild());
    EXPECT_EQ(sel->startOffset(), 2u);
    root->removeChild(c); // the selected node goes: the range collapses where it stood
    EXPECT_EQ(sel->startContainer(), root.get());
    EXPECT_EQ(sel->startOffset(), 2u);
    EXPECT_TRUE(sel->collapsed());

    // A boundary inside a removed subtree moves to the place of the removal.
    Node* b = root->findChild(tok("b"));
    Ref<Node> inner = b->appendChild(doc.make("inner"));
    sel->selectNode(inner.get());
    root->removeChild(b);
    EXPECT_EQ(sel->startContainer(), root.get());
    EXPECT_EQ(sel->startOffset(), 1u);

    sel->selectNode(root->firstChild());
    sel->collapse(true);
    EXPECT_EQ(sel->endOffset(), sel->startOffset());
    doc.deleteRange(plain);
    EXPECT_EQ(doc.firstSelectedRange(), sel);
}
