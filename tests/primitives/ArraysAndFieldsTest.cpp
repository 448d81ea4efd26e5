// The rasters and vector fields: their state when new, their cells, and how the reader fills
// them from the words of their text, refuses bad data and writes them back.
#include "document/ZpxTestHelpers.h"
#include "support/ScanReference.h"

#include <grafel/arbor/DomException.h>
#include <grafel/primitives/ColorArray2d.h>
#include <grafel/primitives/DensityArray2d.h>
#include <grafel/primitives/Field2d.h>
#include <grafel/primitives/Field3d.h>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <random>
#include <stdexcept>

using namespace Grafel;
using namespace ZpxTest;
using Arbor::Ref;

namespace {

// A page whose one image holds `content`, in 3D for a Field3d.
std::string page(const std::string& content) {
    const char* d = content.starts_with("<Field3d") ? "3d" : "2d";
    return std::string("<Canvas><Scene") + d + "><CoordinateSystem" + d + "><Obj" + d +
           " Type=\"Function\"><Img" + d + ">" + content + "</Img" + d + "></Obj" + d +
           "></CoordinateSystem" + d + "></Scene" + d + "></Canvas>";
}

// The first element of class T under `node`, depth first.
template <class T> T* find(Arbor::Node* node) {
    for (Arbor::Node* n = node->firstChild(); n; n = n->nextSibling()) {
        if (auto* t = dynamic_cast<T*>(n)) return t;
        if (T* t = find<T>(n)) return t;
    }
    return nullptr;
}

template <class T> std::vector<T> cells(const T* first, std::size_t n) {
    return first ? std::vector<T>(first, first + n) : std::vector<T>();
}

std::string outOfRange(const std::function<void()>& access) {
    try {
        access();
    } catch (const std::out_of_range& e) {
        return e.what();
    }
    return "no failure";
}

} // namespace

TEST(ArraysAndFields, NewElementsAndCells) {
    PlotDocument doc;
    // A raster states its mesh and holds 0 in it, so that it asks no cells of a reader; a field
    // states nothing.
    Ref<ColorArray2d> colors = static_cast<ColorArray2d*>(doc.createPlotElement(tok_ColorArray2d));
    Ref<DensityArray2d> density =
        static_cast<DensityArray2d*>(doc.createPlotElement(tok_DensityArray2d));
    EXPECT_EQ(colors.get()->*ColorArray2d::colorAttributeFlags(), 3u);
    EXPECT_EQ(density.get()->*DensityArray2d::densityAttributeFlags(), 3u);
    EXPECT_EQ(colors->getXMesh() * colors->getYMesh() + density->getXMesh(), 0);
    EXPECT_EQ(density->getFillColor(), RGBA::Black);
    EXPECT_EQ(density->getProperty(tok_XMesh), Arbor::LongVariant(0));
    Ref<Field2d> field2 = static_cast<Field2d*>(doc.createPlotElement(tok_Field2d));
    Ref<Field3d> field3 = static_cast<Field3d*>(doc.createPlotElement(tok_Field3d));
    EXPECT_EQ(field2.get()->*Field2d::fieldAttributeFlags(), 0u);
    EXPECT_EQ(field3.get()->*Field3d::fieldAttributeFlags(), 0u);
    EXPECT_EQ(field3->getXMesh() * field3->getYMesh() * field3->getZMesh(), 8000);

    // A mesh of 0 is refused by all four.
    for (PlotElement* e : std::initializer_list<PlotElement*>{colors.get(), density.get(),
                                                              field2.get(), field3.get()}) {
        SCOPED_TRACE(e->tagName().text());
        EXPECT_THROW(e->setAttributeString(tok_XMesh, "0"), Arbor::DomException);
        EXPECT_NO_THROW(e->setAttributeString(tok_YMesh, "1"));
    }

    EXPECT_EQ(colors->colors(), nullptr);
    EXPECT_EQ(density->values(), nullptr);
    EXPECT_EQ(outOfRange([&] { colors->colorAt(0); }), "invalid vector<T> subscript");
    colors->push_back(RGBA(1, 2, 3, 4));
    density->push_back(-0.5);
    EXPECT_EQ(colors->colorAt(0), RGBA(1, 2, 3, 4));
    EXPECT_EQ(density->valueAt(0), -0.5);
    EXPECT_EQ(outOfRange([&] { density->valueAt(1); }), "invalid vector<T> subscript");
    // A copy keeps the cells.
    Ref<Arbor::Node> copy(density->cloneNode(false));
    EXPECT_EQ(static_cast<DensityArray2d*>(copy.get())->valueAt(0), -0.5);
}

// Words split anywhere by the parser, the last word without a blank behind it, and the written
// form, which reads back to the same bytes.
TEST(ArraysAndFields, WordsLoadAndWriteBack) {
    PlotDocument doc;
    const std::string text =
        page("<ColorArray2d XMesh=\"2\" YMesh=\"3\">#ff0000 #00ff00\n\t#0000ff #010203   #04050680 "
             "#ffffff #070809</ColorArray2d>"
             "<DensityArray2d XMesh=\"2\" YMesh=\"2\" FillColorType=\"Rainbow\"> 1.5 -2e3\n+3 "
             "0x1p4</DensityArray2d>"
             "<Field2d XMesh=\"3\" YMesh=\"1\"><P2>1 0 #ff0000</P2><P2>0 1 #00ff00</P2></Field2d>");
    const std::vector<RGBA> colours = {
        RGBA(255, 0, 0, 255), RGBA(0, 255, 0, 255),     RGBA(0, 0, 255, 255), RGBA(1, 2, 3, 255),
        RGBA(4, 5, 6, 0x80),  RGBA(255, 255, 255, 255), RGBA(7, 8, 9, 255)};
    for (std::size_t piece : {0, 1, 2, 3, 5, 7, 11}) {
        SCOPED_TRACE(piece);
        ASSERT_TRUE(load(doc, text, false, piece));
        EXPECT_TRUE(messages().empty());
        const auto* c = find<ColorArray2d>(&doc);
        const auto* d = find<DensityArray2d>(&doc);
        EXPECT_EQ(cells(c->colors(), c->size()), colours); // more cells than the mesh are kept
        EXPECT_EQ(cells(d->values(), d->size()), (std::vector<double>{1.5, -2000, 3, 16}));
        EXPECT_EQ(c->capacity(), c->size());
        // A field whose vectors do not fill its mesh loads as it is.
        EXPECT_EQ(find<Field2d>(&doc)->size(), 2u);
    }
    const std::string written = xml(doc);
    EXPECT_NE(written.find("<ColorArray2d YMesh=\"3\" XMesh=\"2\">#ff0000 #00ff00 #0000ff #010203 "
                           "#04050680 #ffffff #070809 </ColorArray2d>"
                           "<DensityArray2d YMesh=\"2\" XMesh=\"2\" FillColorType=\"Rainbow\">"
                           "1.5 -2000 3 16 </DensityArray2d>"
                           "<Field2d YMesh=\"1\" XMesh=\"3\" Delta=\"1 1\" Anchor=\"0 0\">"
                           "<P2>1 0 #ff0000</P2>"),
              std::string::npos)
        << written;
    ASSERT_TRUE(load(doc, written));
    EXPECT_EQ(xml(doc), written);
}

// A raster of tricky words, the text handed over in pieces of many sizes so that words are
// split anywhere: every cell holds exactly what " %lf" makes of its word.
TEST(ArraysAndFields, DensityCellsAreWhatSscanfReads) {
    std::mt19937_64 random(4711);
    std::vector<double> want;
    std::string words;
    while (want.size() < 3000) {
        const std::string word = TestSupport::trickyNumberWord(random);
        const TestSupport::ScannedFields read = TestSupport::sscanfFields(word, 1, 0);
        if (read.count != 1) continue;
        want.push_back(read.values[0]);
        words += word + (random() % 8 ? " " : "\n\t");
    }
    const std::string text =
        page("<DensityArray2d XMesh=\"3000\" YMesh=\"1\">" + words + "</DensityArray2d>");
    PlotDocument doc;
    for (std::size_t piece : {0, 1, 5, 64, 333, 4096}) {
        SCOPED_TRACE(piece);
        ASSERT_TRUE(load(doc, text, false, piece)) << (messages().empty() ? "" : messages()[0]);
        const auto* d = find<DensityArray2d>(&doc);
        ASSERT_EQ(d->size(), want.size());
        EXPECT_EQ(std::memcmp(d->values(), want.data(), want.size() * sizeof(double)), 0);
    }
}

// Random colour words, some of them bad or overlong, in pieces of many sizes: the load keeps what
// RGBA::parse makes of each word by itself, and fails at the first bad one with its report.
TEST(ArraysAndFields, ColorCellsAreWhatParseReads) {
    std::mt19937_64 random(99);
    const std::string alphabet = "#0123456789abcdefABCDEFgx-";
    for (int round = 0; round < 200; ++round) {
        std::vector<RGBA> want;
        std::string words;
        std::string bad;
        for (int i = 0, n = 1 + int(random() % 40); i < n; ++i) {
            std::string word = "#";
            for (int k = 0, len = int(random() % 3 ? 6 : random() % 11); k < len; ++k)
                word += alphabet[random() % (random() % 4 ? 16 : alphabet.size())];
            RGBA color;
            if (!color.parse(word.c_str()) && bad.empty()) bad = word;
            if (bad.empty()) want.push_back(color);
            words += word + (random() % 4 ? " " : random() % 2 ? " \r\n" : "\t");
        }
        const std::string text =
            page("<ColorArray2d XMesh=\"1\" YMesh=\"1\">" + words + "</ColorArray2d>");
        for (std::size_t piece : {0, 1, 3, 8, 17}) {
            SCOPED_TRACE(words + " / " + std::to_string(piece));
            PlotDocument doc;
            const bool loaded = load(doc, text, false, piece);
            if (!bad.empty()) {
                ASSERT_FALSE(loaded);
                ASSERT_EQ(messages(),
                          std::vector<std::string>{"ColorArray2d data corrupted: '" + bad + "'\n"});
                continue;
            }
            ASSERT_TRUE(loaded) << (messages().empty() ? "" : messages()[0]);
            const auto* c = find<ColorArray2d>(&doc);
            EXPECT_EQ(cells(c->colors(), c->size()), want);
        }
    }
}

TEST(ArraysAndFields, BadDataFailsWithItsReport) {
    struct Case {
        std::string content;
        std::string report;
    };
    const Case cases[] = {
        {"<ColorArray2d XMesh='2' YMesh='3'>#ff0000 #00ff00 #0000ff #010203 #040506"
         "</ColorArray2d>",
         "ColorArray2d data corrupted: 'colors missing'\n"},
        {"<ColorArray2d>#ff0000 red</ColorArray2d>", "ColorArray2d data corrupted: 'red'\n"},
        {"<ColorArray2d>#ff0000 #</ColorArray2d>", "ColorArray2d data corrupted: '#'\n"},
        {"<DensityArray2d XMesh='2' YMesh='2'>1 2 3</DensityArray2d>",
         "DensityArray2d data corrupted: 'values missing'\n"},
        {"<DensityArray2d>1 x2</DensityArray2d>", "DensityArray2d data corrupted: 'x2'\n"},
        {"<DensityArray2d>1 .</DensityArray2d>", "DensityArray2d data corrupted: '.'\n"},
        // A huge declared mesh over a few words: refused when the text ends, not allocated.
        {"<DensityArray2d XMesh='100000' YMesh='100000'>1 2 3</DensityArray2d>",
         "DensityArray2d data corrupted: 'values missing'\n"},
        {"<Field2d><P2>1 2</P2><P3>1 2 3</P3></Field2d>", "illegal P3 [parent Field2d]\n"},
        {"<Field3d><P3>1 2 3</P3><P3>1 2 3 #ff0000</P3></Field3d>",
         "P3 data corrupted: '1 2 3 #ff0000'\n"},
    };
    PlotDocument doc;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.content);
        EXPECT_FALSE(load(doc, page(c.content)));
        EXPECT_EQ(messages(), std::vector<std::string>{c.report});
        EXPECT_TRUE(isFreshCanvas(doc));
    }
    for (const char* refused : {"<ColorArray2d XMesh='0'/>", "<DensityArray2d YMesh='-1'/>",
                                "<Field2d XMesh='0'/>", "<Field3d ZMesh='0'/>"}) {
        SCOPED_TRACE(refused);
        EXPECT_FALSE(load(doc, page(refused)));
        EXPECT_EQ(messages().size(), 1u);
        EXPECT_TRUE(isFreshCanvas(doc));
    }

    // A field of a huge mesh over two vectors holds two.
    ASSERT_TRUE(load(doc, page("<Field3d XMesh='100000' YMesh='100000' ZMesh='100000'>"
                               "<P3>1 2 3</P3><P3>4 5 6</P3></Field3d>")));
    EXPECT_EQ(find<Field3d>(&doc)->capacity(), 2u);
}
