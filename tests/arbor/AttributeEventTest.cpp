#include "arbor/KernelTestSupport.h"

#include <grafel/arbor/DomException.h>

#include <gtest/gtest.h>

using namespace KernelTest;

namespace {

// root > (a > a1), b ; b stops the after walk.
struct Tree {
    LoggingDocument doc;
    Ref<LoggingElement> root, a, a1, b;
    Tree() {
        root = doc.make("root");
        a = doc.make("a");
        a1 = doc.make("a1");
        b = doc.make("b");
        doc.appendChild(root.get());
        root->appendChild(a.get());
        a->appendChild(a1.get());
        root->appendChild(b.get());
        doc.log.lines.clear();
    }
};

class FunctionCall : public Functor {
public:
    FunctionCall(std::vector<std::string>* out, std::string text)
        : out_(out), text_(std::move(text)) {}
    void run() override { out_->push_back(text_); }

private:
    std::vector<std::string>* out_;
    std::string text_;
};

} // namespace

TEST(Attributes, HooksRunInOrderAndTheAfterWalkGoesDownUntilRefused) {
    Tree t;
    t.a->stopWalk = true;
    t.root->setAttribute(tok("w"), LongVariant(2));
    EXPECT_EQ(t.doc.log.lines,
              (std::vector<std::string>{"root.maySet w", "root.beforeSet w", "root.setRaw w",
                                        "root.afterSet w from root", "a.afterSet w from root",
                                        "b.afterSet w from root"}));
    EXPECT_EQ(t.root->getAttribute(tok("w")), LongVariant(2));

    t.doc.log.lines.clear();
    t.root->removeAttribute(tok("w"));
    EXPECT_FALSE(t.root->hasAttribute(tok("w")));
    EXPECT_EQ(t.doc.log.lines.back(), "b.afterRemove w from root");
}

TEST(Attributes, ARefusalThrowsAndLeavesNoTrace) {
    Tree t;
    Recorder rec;
    t.doc.addObserver(&rec);
    t.doc.newUndoTask();
    t.a->refuseAttributes = true;
    try {
        t.a->setAttribute(tok("w"), LongVariant(1));
        FAIL() << "no exception";
    } catch (const DomException& e) {
        EXPECT_EQ(e.code(), DomException::InvalidAccessErr);
    }
    EXPECT_FALSE(t.a->hasAttribute(tok("w")));
    EXPECT_EQ(t.doc.log.lines, (std::vector<std::string>{"a.maySet w"}));
    EXPECT_FALSE(t.doc.canUndo());
}

TEST(Events, TypedThenGeneralObserversAndBatchesHoldUntilTheOutermostCloses) {
    Tree t;
    Recorder typed, all, other;
    const Token change = tok("Change");
    t.doc.addObserver(&all);
    t.doc.addObserver(&typed, change);
    t.doc.addObserver(&other, tok("Other"));
    DomAttributeEvent e(t.a.get(), change, tok("w"));
    t.doc.fireEvent(e);
    EXPECT_EQ(typed.heard, (std::vector<std::string>{"Change:a:w"}));
    EXPECT_EQ(all.heard, typed.heard);
    EXPECT_TRUE(other.heard.empty());

    std::vector<std::string> order;
    t.doc.beginBatchChanges();
    t.doc.beginBatchChanges();
    {
        // The held event keeps its target alive even when the tree lets go of it.
        Ref<LoggingElement> gone = t.doc.make("gone");
        DomEvent held(gone.get(), change);
        t.doc.fireEvent(held);
    }
    t.doc.postFunction(new FunctionCall(&order, "function"));
    t.doc.endBatchChanges();
    EXPECT_EQ(typed.heard.size(), 1u);
    EXPECT_TRUE(order.empty());
    t.doc.endBatchChanges();
    EXPECT_EQ(typed.heard.back(), "Change:gone");
    EXPECT_EQ(order, (std::vector<std::string>{"function"}));
    t.doc.endBatchChanges(); // an extra close is harmless
    EXPECT_EQ(t.doc.batchDepth(), 0);

    t.doc.postFunction(new FunctionCall(&order, "now"));
    EXPECT_EQ(order.back(), "now");
}

TEST(Events, ObserversMayLeaveDuringDelivery) {
    LoggingDocument doc;
    Ref<Element> el = doc.make("el");
    struct Leaver : IDocObserver {
        Document* doc;
        IDocObserver* victim;
        int calls = 0;
        void handleEvent(DomEvent&) override {
            ++calls;
            doc->removeObserver(victim);
            doc->removeObserver(this);
        }
    } leaver;
    Recorder victim;
    leaver.doc = &doc;
    leaver.victim = &victim;
    doc.addObserver(&leaver);
    doc.addObserver(&victim);
    DomEvent e(el.get(), tok("E"));
    doc.fireEvent(e);
    doc.fireEvent(e);
    EXPECT_EQ(leaver.calls, 1);
    EXPECT_TRUE(victim.heard.empty());
}
