// Raster words taken as plain text straight from the input against the same documents read
// through the parser's ordinary events: random rasters mix plain words with every form that must
// leave the plain text (references, CDATA, comments, carriage returns, other characters, bad
// words, words too few or too many), cut into random pieces.
#include "document/ZpxTestHelpers.h"

#include <grafel/primitives/ColorArray2d.h>
#include <grafel/primitives/DensityArray2d.h>

#include "support/FastPathOracle.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using namespace ZpxTest;

int textsTaken = 0;

class CountingHandler : public ZpxParserHandler {
public:
    using ZpxParserHandler::ZpxParserHandler;
    bool takesPlainText(int ns, int id) override {
        const bool takes = ZpxParserHandler::takesPlainText(ns, id);
        textsTaken += takes;
        return takes;
    }
};

class RasterMaker : public TestSupport::RandomParts {
public:
    using RandomParts::RandomParts;

    std::string make() {
        faults_ = pick(2) == 0;
        std::string text = "<?xml version=\"1.0\"";
        static const char* const encodings[] = {"", " encoding=\"UTF-8\"", " encoding=\"us-ascii\"",
                                                " encoding=\"ISO-8859-1\""};
        latin1_ = false;
        if (pick(4) == 0) {
            const int e = pick(4);
            text += encodings[e];
            latin1_ = e == 3;
        }
        text += "?>\n";
        if (pick(10) == 0) text += "<!DOCTYPE Canvas [<!ENTITY w \"1 2\">]>\n";
        text += "<Canvas xmlns=\"";
        text += zpxNamespaceUri;
        text += "\"><Scene2d><CoordinateSystem2d><Obj2d Type=\"Density\"><Img2d>";
        text += pick(3) == 0 ? "\n" : "";
        text += raster();
        text += "</Img2d></Obj2d></CoordinateSystem2d></Scene2d></Canvas>\n";
        if (faults_ && pick(20) == 0) text.resize(static_cast<std::size_t>(pick(int(text.size()))));
        if (!latin1_ && pick(15) == 0) return utf16(text, pick(2) == 0);
        return text;
    }

    // The document in UTF-16, when it is ASCII; '~', and the digits of the array's text, become
    // characters whose two bytes are printable ASCII.
    static std::string utf16(const std::string& text, bool bigEndian) {
        std::string out;
        const std::size_t array = text.find("Array2d");
        const std::size_t from = text.find('>', array);
        const std::size_t to = text.find('<', from);
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char c = text[i];
            if (static_cast<unsigned char>(c) >= 0x80) return text;
            const bool wide = c == '~' || (array != std::string::npos && i > from && i < to &&
                                           c >= '0' && c <= '9');
            const char unit[2] = {wide ? '\x31' : '\0', wide ? '2' : c};
            out += unit[bigEndian ? 0 : 1];
            out += unit[bigEndian ? 1 : 0];
        }
        return out;
    }

    std::vector<std::size_t> cuts(std::size_t size) {
        std::vector<std::size_t> at;
        if (size < 2 || pick(4) == 0) return at;
        const std::size_t piece = pick(4) == 0 ? 1 : 1 + pick(static_cast<int>(size));
        for (std::size_t c = piece; c < size; c += 1 + pick(static_cast<int>(2 * piece)))
            at.push_back(c);
        return at;
    }

private:
    std::string word(bool colors) {
        char text[40];
        if (colors) {
            std::snprintf(text, sizeof text, pick(4) ? "#%06x" : "#%08x", pick(1 << 24));
            return text;
        }
        return number();
    }

    std::string gap() {
        static const char* const gaps[] = {" ", " ", " ", "  ", "\t", "\n", " \n\t", "\n\n"};
        return gaps[pick(8)];
    }

    // Something the plain text must give back to the ordinary way, or that fails the load.
    std::string odd(bool colors) {
        static const char* const forms[] = {"&#32;",
                                            "&amp;",
                                            "<!-- c -->",
                                            "<?p x?>",
                                            "\r\n",
                                            "\r",
                                            "]",
                                            "\xc3\xa9",
                                            "\x7f",
                                            "&w;",
                                            "<![CDATA[1 2]]>",
                                            "]]>",
                                            "\x01",
                                            "<b/>",
                                            " x1",
                                            " abc",
                                            " #zz",
                                            " ~~",
                                            "\xe9",
                                            "\t\n"};
        std::string form = forms[pick(20)];
        if (form == "&w;" && colors) form = " ";
        if (form == "\xe9" && !latin1_) form = "\xc3\xa9";
        return form;
    }

    std::string raster() {
        const bool colors = pick(2) == 0;
        const char* tag = colors ? "ColorArray2d" : "DensityArray2d";
        const int x = 1 + pick(5);
        const int y = 1 + pick(5);
        int words = x * y;
        if (faults_ && pick(8) == 0) words += pick(5) - 2;
        std::string open = std::string("<") + tag + " XMesh=\"" + std::to_string(x) +
                           "\" YMesh=\"" + std::to_string(y) + "\"";
        if (pick(8) == 0) open += " id='a>b'";
        if (pick(8) == 0) open += "\n";
        std::string text = pick(4) == 0 ? gap() : pick(8) == 0 ? odd(colors) : "";
        for (int i = 0; i < words; ++i) {
            text += (i ? gap() : "") + word(colors);
            if (pick(faults_ ? 5 : 40) == 0) text += odd(colors);
        }
        if (pick(3) == 0) text += gap();
        switch (pick(20)) {
        case 0:
            return open + "/>";
        case 1:
            return std::string("<z:") + tag + open.substr(1) + " xmlns:z=\"" + zpxNamespaceUri +
                   "\">" + text + "</z:" + tag + ">";
        default:
            return open + ">" + text + "</" + tag + ">";
        }
    }

    bool faults_ = false;
    bool latin1_ = false;
};

TEST(RasterPlainText, ReadAsThroughTheOrdinaryEvents) {
    RasterMaker maker(20261124);
    textsTaken = 0;
    const int failed = TestSupport::compareFastPath<CountingHandler>(
        maker, 3000, [](Tessel::Xml::Parser& parser, bool on) { parser.setPlainText(on); });
    // Both outcomes, and plain text, occur often enough to mean something.
    EXPECT_GT(failed, 300);
    EXPECT_LT(failed, 2700);
    EXPECT_GT(textsTaken, 1500);
}

} // namespace
