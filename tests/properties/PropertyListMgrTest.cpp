#include <grafel/foundation/Tokens.h>
#include <grafel/properties/ListTable.h>
#include <grafel/properties/PropertyTypes.h>

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <sstream>

using namespace Grafel;

namespace {

#define SMALL_TABLE(P)                                                                             \
    P(Optional, DoubleListProperty, Width, 1.0)                                                    \
    P(Optional, DoubleListProperty, Height, 2.0)                                                   \
    P(Inherited, TokenListProperty, LineStyle, getToken(id_Solid))

#define OVERRIDE_TABLE(P)                                                                          \
    P(Optional, DoubleListProperty, Width, 1.0)                                                    \
    P(Optional, DoubleListProperty, Width, 5.0)

GRAFEL_DEFINE_PROPERTY_LIST(SmallMgr, SMALL_TABLE)
GRAFEL_DEFINE_PROPERTY_LIST(OverrideMgr, OVERRIDE_TABLE)

} // namespace

TEST(PropertyListMgr, FillsOnFirstUseSortedByWordAndFindsByToken) {
    SmallMgr& table = SmallMgrInstance();
    EXPECT_FALSE(table.filled());
    ASSERT_NE(table.find(tok_Height), nullptr);
    EXPECT_TRUE(table.filled());
    EXPECT_EQ(table.find(tok_Height)->name(), tok_Height);
    EXPECT_TRUE(table.find(tok_LineStyle)->isInherited());
    EXPECT_EQ(table.find(tok_Radius), nullptr); // a name of other classes
    EXPECT_EQ(table.find(Arbor::Token()), nullptr);

    const auto& entries = table.entries();
    ASSERT_EQ(entries.size(), 3u);
    for (size_t i = 1; i < entries.size(); ++i) EXPECT_GT(entries[i - 1].first, entries[i].first);
    // Catalogue tokens ascend by word in catalogue order, so the entries run backwards.
    EXPECT_EQ(entries.front().first, tok_Width);
    EXPECT_EQ(entries.back().first, tok_Height);

    // A name added twice: the later descriptor wins.
    EXPECT_EQ(OverrideMgrInstance().find(tok_Width)->defaultValue(), Arbor::DoubleVariant(5.0));
}

TEST(PropertyListMgr, AFilledTableIsReadWithoutTheLock) {
    SmallMgr& table = SmallMgrInstance();
    table.find(tok_Width); // filled
    std::unique_lock held(PropertyListMgr::fillLock());
    auto lookup = std::async(std::launch::async, [&] { return table.find(tok_Width); });
    // If find() took the fill lock it would wait for this thread, which holds it.
    ASSERT_EQ(lookup.wait_for(std::chrono::seconds(10)), std::future_status::ready);
    EXPECT_NE(lookup.get(), nullptr);
}

TEST(CmdOStream, ItemsSeparatorsIndentAndUnits) {
    std::ostringstream text;
    CmdOStream out(text, tok_In);
    out.beginItem();
    out << "a=";
    out.putSize(25.4);
    out.beginItem();
    out << "b";
    out.endItem();
    out.beginItem();
    out << "c";
    out.endItem();
    out.endItem();
    out.beginItem();
    out << "d";
    out.endItem();
    EXPECT_EQ(text.str(), "  a=1    b,\r\n    c,\r\n  d");
    EXPECT_EQ(out.depth(), 0);

    std::ostringstream pt;
    CmdOStream points(pt, tok_Pt);
    points.putSize(25.4);
    EXPECT_EQ(pt.str(), "72");
}
