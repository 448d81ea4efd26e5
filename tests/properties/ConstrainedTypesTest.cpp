#include <grafel/arbor/DomException.h>
#include <grafel/foundation/NaN.h>
#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/MemberTable.h>

#include "support/Reports.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <sstream>

using namespace Grafel;
using Arbor::Ref;
using Arbor::Token;
using Arbor::Variant;

namespace Grafel {
constexpr int id_Gauge = id_Row1;
} // namespace Grafel

namespace {

using String = Tessel::FixedStringBase<char>;

// One member-family class that carries a property of each kind of rule.
#define GAUGE_TABLE(P)                                                                             \
    P(Optional, PosOutputSizeType, LineWidth, 0.35, 0.35)                                          \
    P(Optional, NonNegOutputSizePropertyImpl, PointSize, 1.0, 1.0)                                 \
    P(Optional, NonNegOutputSizeType, Spacing, 0.0, 0.0)                                           \
    P(Mandatory, LightIntensityType, LightIntensity, 1.0, 1.0)                                     \
    P(Optional, PosLongType, version, 1, 1)                                                        \
    P(Optional, NonNegLongType, Rows, 0, 0)                                                        \
    P(Mandatory, MandatoryMeshPropertyImpl, UMesh, 2, 2)                                           \
    P(Inherited, MeshType, VMesh, 2, 2)                                                            \
    P(Mandatory, FieldMeshType, XMesh, 1, 1)                                                       \
    P(Optional, SubmeshType, USubmesh, 0, 0)                                                       \
    P(Optional, FramesType, Frames, 50, 50)                                                        \
    P(Inherited, LineStyleType, LineStyle, Token(), getToken(id_Solid))                            \
    P(Optional, IdPropertyImpl, id, String(), String())                                            \
    P(Optional, ConsistentPropertyImpl, Consistent, false, false)                                  \
    P(Mandatory, TypePropertyImpl, Type, Token(), Token())                                         \
    P(Optional, AutoViewingBoxType, AutoViewingBox, 31, 31)                                        \
    P(Inherited, LegendColorType, LegendColor, Token(), Token())                                   \
    P(Optional, PositionType, Bottom, 0.0, 0.0)                                                    \
    P(Optional, TimeOrNaNType, InitialTime, NaN(), NaN())                                          \
    P(Optional, OutputUnitsType, OutputUnits, getToken(id_MM), getToken(id_MM))

class Gauge : public PlotElement {
public:
    explicit Gauge(Arbor::Document* d) : PlotElement(d) {}
    GRAFEL_ELEMENT_CLASS_UNLISTED(Gauge)
    GRAFEL_MEMBER_PROPERTIES(Gauge, GAUGE_TABLE)
};
GRAFEL_DEFINE_MEMBER_PROPERTIES(Gauge, GAUGE_TABLE)

std::vector<std::string>& reports = TestSupport::reports();
constexpr auto collect = &TestSupport::collectReport;

std::string illegal(Token name) {
    return "illegal value [attribute '" + std::string(name) + "']\n";
}

// The five output forms of a descriptor: XML of the value, XML of the member, the style command
// form, the plain command form of the value and that of the member.
using Forms = std::array<std::string, 5>;
Forms forms(const Property& p, PlotElement* e, const Variant& v) {
    Forms text;
    std::ostringstream xmlValue, xmlMember;
    p.putXmlValue(xmlValue, v);
    p.putXmlMember(xmlMember, e);
    text[0] = xmlValue.str();
    text[1] = xmlMember.str();
    auto cmd = [](std::string& into, auto put) {
        std::ostringstream stream;
        CmdOStream out(stream, tok_MM);
        put(out);
        EXPECT_EQ(out.depth(), 0);
        EXPECT_EQ(out.separatorPending(), !stream.str().empty()); // a silent form leaves no trace
        into = stream.str();
    };
    cmd(text[2], [&](CmdOStream& out) { p.putCmdPrefixed(out, tok_Obj2d, v); });
    cmd(text[3], [&](CmdOStream& out) { p.putCmdValue(out, v); });
    cmd(text[4], [&](CmdOStream& out) { p.putCmdMember(out, e); });
    return text;
}

class ConstrainedTypes : public ::testing::Test {
protected:
    ElementDocument doc;
    Ref<Gauge> gauge = static_cast<Gauge*>(Gauge::create(&doc));

    void SetUp() override {
        reports.clear();
        doc.domErrorHdl(collect);
    }
    // Whether the kernel took the value; a refusal is the kernel's invalid-access exception.
    bool trySet(Token name, const Variant& v) {
        try {
            gauge->setAttribute(name, v);
            return true;
        } catch (const Arbor::DomException& e) {
            EXPECT_EQ(e.code(), Arbor::DomException::InvalidAccessErr);
            return false;
        }
    }
};

} // namespace

TEST_F(ConstrainedTypes, NumericRulesRefuseAtTheBoundaryAndNaNWithNoChange) {
    const double tiny = std::numeric_limits<double>::denorm_min();
    struct Case {
        Token name;
        Variant refused, accepted;
    };
    const Case cases[] = {
        {tok_LineWidth, Arbor::DoubleVariant(0.0), Arbor::DoubleVariant(tiny)},
        {tok_PointSize, Arbor::DoubleVariant(-tiny), Arbor::DoubleVariant(0.0)},
        {tok_version, Arbor::LongVariant(0), Arbor::LongVariant(1)},
        {tok_Rows, Arbor::LongVariant(-1), Arbor::LongVariant(0)},
        {tok_UMesh, Arbor::LongVariant(0), Arbor::LongVariant(1)},
        {tok_VMesh, Arbor::LongVariant(0), Arbor::LongVariant(1)},
        {tok_XMesh, Arbor::LongVariant(0), Arbor::LongVariant(1)},
        {tok_USubmesh, Arbor::LongVariant(-1), Arbor::LongVariant(0)},
        {tok_Frames, Arbor::LongVariant(-1), Arbor::LongVariant(0)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name.text());
        reports.clear();
        const bool had = gauge->hasAttribute(c.name);
        const Variant before = gauge->getProperty(c.name);
        std::vector<Variant> refused = {c.refused};
        if (c.refused.is<Arbor::DoubleVariant>()) refused.push_back(Arbor::DoubleVariant(NaN()));
        for (const Variant& v : refused) EXPECT_FALSE(trySet(c.name, v));
        EXPECT_EQ(gauge->hasAttribute(c.name), had);
        EXPECT_EQ(gauge->getProperty(c.name), before);
        EXPECT_EQ(reports, std::vector<std::string>(refused.size(), illegal(c.name)));
        EXPECT_TRUE(trySet(c.name, c.accepted));
        EXPECT_EQ(gauge->getAttribute(c.name), c.accepted);
    }
    // Text takes the same check: "nan" reads as a number and is then refused as a value.
    reports.clear();
    EXPECT_THROW(gauge->setAttributeString(tok_LineWidth, "nan"), Arbor::DomException);
    EXPECT_EQ(reports, std::vector<std::string>{illegal(tok_LineWidth)});
}

TEST_F(ConstrainedTypes, ListFamilyBoundsIncludingTheStyleMeshMinimum) {
    const PosOutputSizeListPropertyImpl<Kind::Inherited> width(0.2, id_AxesLineWidth);
    const StyleMeshTypeL<Kind::Inherited> mesh(25, 1, id_UMesh), coarse(25, 3, id_VMesh);
    EXPECT_TRUE(width.checkValue(gauge.get(), Arbor::DoubleVariant(1e-300)));
    EXPECT_FALSE(width.checkValue(gauge.get(), Arbor::DoubleVariant(0.0)));
    EXPECT_TRUE(mesh.checkValue(gauge.get(), Arbor::LongVariant(1)));
    EXPECT_FALSE(mesh.checkValue(gauge.get(), Arbor::LongVariant(0)));
    EXPECT_TRUE(coarse.checkValue(gauge.get(), Arbor::LongVariant(3)));
    EXPECT_FALSE(coarse.checkValue(gauge.get(), Arbor::LongVariant(2)));
    EXPECT_EQ(coarse.minimum(), 3);
    EXPECT_EQ(coarse.defaultValue(), Arbor::LongVariant(25));
    EXPECT_EQ(reports, (std::vector<std::string>{illegal(tok_AxesLineWidth), illegal(tok_UMesh),
                                                 illegal(tok_VMesh)}));
}

TEST_F(ConstrainedTypes, PageSizesKeepNegativesInListsButRaiseThemInMembers) {
    // A page's Spacing accepts a negative value, and since list elements store values without
    // normalizeValue, it is kept and written back as given.
    const NonNegOutputSizeTypeL<Kind::Optional> spacing(0.0, id_Spacing);
    EXPECT_TRUE(spacing.checkValue(gauge.get(), Arbor::DoubleVariant(-2.5)));
    EXPECT_TRUE(spacing.checkValue(gauge.get(), Arbor::DoubleVariant(NaN())));
    std::ostringstream xml;
    spacing.putXmlValue(xml, Arbor::DoubleVariant(-2.5));
    EXPECT_EQ(xml.str(), " Spacing=\"-2.5\"");
    double raised = -2.5;
    spacing.normalizeValue(raised);
    EXPECT_EQ(raised, 0.0);

    // The member form reaches the same rule through its store.
    EXPECT_TRUE(trySet(tok_Spacing, Arbor::DoubleVariant(-2.5)));
    EXPECT_EQ(gauge->getSpacing(), 0.0);
    EXPECT_TRUE(trySet(tok_Spacing, Arbor::DoubleVariant(NaN())));
    EXPECT_TRUE(std::isnan(gauge->getSpacing()));
    EXPECT_TRUE(reports.empty());
}

TEST_F(ConstrainedTypes, LightIntensityIsClampedIntoTheUnitRangeNeverRefused) {
    const std::pair<double, double> cases[] = {{1.5, 1.0}, {-0.5, 0.0}, {0.25, 0.25}, {1.0, 1.0}};
    for (auto [given, stored] : cases) {
        EXPECT_TRUE(trySet(tok_LightIntensity, Arbor::DoubleVariant(given)));
        EXPECT_EQ(gauge->getLightIntensity(), stored) << given;
    }
    EXPECT_TRUE(trySet(tok_LightIntensity, Arbor::DoubleVariant(NaN())));
    EXPECT_TRUE(std::isnan(gauge->getLightIntensity()));
    EXPECT_TRUE(reports.empty());
}

TEST_F(ConstrainedTypes, TokenTypesStoreAnyWordAndOnlyAnswerVocabularyQuestions) {
    const Token wavy("Wavy", false);
    EXPECT_TRUE(trySet(tok_LineStyle, Arbor::TokenVariant(wavy)));
    EXPECT_EQ(gauge->getLineStyle(), wavy);
    gauge->setAttributeString(tok_LineStyle, "Zigzag");
    EXPECT_EQ(gauge->getAttribute(tok_LineStyle), Arbor::TokenVariant(Token::find("Zigzag")));
    const LineStyleTypeL<Kind::Inherited> grid(tok_Dotted, id_GridLineStyle);
    EXPECT_TRUE(grid.checkValue(gauge.get(), Arbor::TokenVariant(wavy)));
    EXPECT_TRUE(reports.empty());

    const auto* style = dynamic_cast<const LineStyleType<Gauge, Kind::Inherited>*>(
        Gauge::propertyList().find(tok_LineStyle));
    ASSERT_NE(style, nullptr);
    EXPECT_TRUE(style->isAllowedToken(gauge.get(), tok_Dashed));
    EXPECT_FALSE(style->isAllowedToken(gauge.get(), wavy));
    EXPECT_FALSE(style->isAllowedToken(gauge.get(), Token()));
}

TEST_F(ConstrainedTypes, ShapingTypesSilenceExactlyTheirForms) {
    // The five forms of each value, joined by '|'.
    struct Case {
        Token name;
        Variant value;
        std::string expected;
        const Property& list; // the list form, for the variant forms
    };
    const IdListPropertyImpl<Kind::Optional> id(String(), id_id);
    const ConsistentListPropertyImpl<Kind::Optional> consistent(false, id_Consistent);
    const TypeListPropertyImpl<Kind::Mandatory> type(Token(), id_Type);
    const AutoViewingBoxTypeL<Kind::Optional> box(31, id_AutoViewingBox);
    const LegendColorTypeL<Kind::Inherited> legend(Token(), id_LegendColor);
    const PositionTypeL<Kind::Optional> bottom(0.0, id_Bottom);
    const TimeOrNaNTypeL<Kind::Optional> time(NaN(), id_InitialTime);
    const OutputUnitsTypeL<Kind::Optional> units(tok_MM, id_OutputUnits);
    const Case cases[] = {
        {tok_id, Arbor::FixedStringVariant(String("a1")),
         "||  plot::Obj2d::id=\"a1\"|  id=\"a1\"|  id=\"a1\"", id},
        {tok_Consistent, Arbor::BoolVariant(true), " Consistent=\"1\"| Consistent=\"1\"|||",
         consistent},
        {tok_Type, Arbor::TokenVariant(tok_Rainbow), " Type=\"Rainbow\"| Type=\"Rainbow\"|||",
         type},
        {tok_AutoViewingBox, Arbor::LongVariant(12),
         " AutoViewingBox=\"12\"| AutoViewingBox=\"12\"|||  AutoViewingBox=12", box},
        {tok_LegendColor, Arbor::TokenVariant(tok_Rainbow),
         " LegendColor=\"Rainbow\"| LegendColor=\"Rainbow\"|||  LegendColor=Rainbow", legend},
        {tok_Bottom, Arbor::DoubleVariant(2.5), " Bottom=\"2.5\"| Bottom=\"2.5\"|||  Bottom=2.5",
         bottom},
        {tok_InitialTime, Arbor::DoubleVariant(3.5),
         " InitialTime=\"3.5\"| InitialTime=\"3.5\"|  plot::Obj2d::InitialTime=3.5|  "
         "InitialTime=3.5|  InitialTime=3.5",
         time},
        {tok_InitialTime, Arbor::DoubleVariant(NaN()), "||  plot::Obj2d::InitialTime=nan||", time},
        {tok_OutputUnits, Arbor::TokenVariant(tok_In),
         " OutputUnits=\"In\"| OutputUnits=\"In\"|  plot::Obj2d::OutputUnits=In|  "
         "OutputUnits=unit::inch|  OutputUnits=In",
         units},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name.text());
        ASSERT_TRUE(trySet(c.name, c.value));
        const Forms member = forms(*Gauge::propertyList().find(c.name), gauge.get(), c.value);
        EXPECT_EQ(member[0] + "|" + member[1] + "|" + member[2] + "|" + member[3] + "|" + member[4],
                  c.expected);
        // The list family has no member forms; its variant forms are the same.
        const Forms list = forms(c.list, gauge.get(), c.value);
        EXPECT_EQ(list, (Forms{member[0], "", member[2], member[3], ""}));
    }
}

TEST_F(ConstrainedTypes, OutputUnitsWritesUnitWordsAsSeparateItems) {
    const OutputUnitsTypeL<Kind::Optional> units(tok_MM, id_OutputUnits);
    std::ostringstream text;
    CmdOStream out(text, tok_In); // the stream's own unit plays no part
    for (Token unit : {tok_MM, tok_In, tok_Pt, Token("Wavy", false)})
        units.putCmdValue(out, Arbor::TokenVariant(unit));
    units.putCmdValue(out, Arbor::LongVariant(1)); // not a token: nothing
    EXPECT_EQ(text.str(), "  OutputUnits=unit::mm,\r\n  OutputUnits=unit::inch,\r\n"
                          "  OutputUnits=unit::pt,\r\n  OutputUnits=unit::pt");
    EXPECT_TRUE(units.isAllowedToken(nullptr, tok_Pt));
    EXPECT_FALSE(units.isAllowedToken(nullptr, tok_Solid));
}
