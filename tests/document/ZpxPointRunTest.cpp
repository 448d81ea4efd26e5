// Point lists read in runs against the same documents read one event per element: random
// documents mix plain point elements with every form that must leave the run (markup, references,
// attributes, other line ends, bad characters, bad numbers), cut into random pieces.
#include "ZpxTestHelpers.h"

#include <grafel/tessel/xml/ElementRun.h>

#include "support/FastPathOracle.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using namespace ZpxTest;

int runsTaken = 0;

class CountingHandler : public TestHandler {
public:
    using TestHandler::TestHandler;
    void elementRun(int ns, int id, Tessel::Xml::ElementRun& run) override {
        ++runsTaken;
        TestHandler::elementRun(ns, id, run);
    }
};

class DocumentMaker : public TestSupport::RandomParts {
public:
    using RandomParts::RandomParts;

    std::string make() {
        std::string text = "<?xml version=\"1.0\"?>\n<Canvas xmlns=\"";
        text += zpxNamespaceUri;
        text += "\">";
        faults_ = pick(2) == 0;
        for (int lists = pick(3) + 1; lists > 0; --lists) {
            const bool space = pick(2) == 1;
            const char* tag = space ? "Row2" : "Row1";
            text += std::string("<") + tag + ">" + (pick(4) == 0 ? "\n" : "");
            // The form of the list's points, kept by most of them.
            const int normals = pick(2);
            const int colors = pick(space ? 3 : 2);
            for (int n = pick(60); n > 0; --n) text += element(space, normals, colors);
            text += std::string("</") + tag + ">\n";
        }
        return text + "</Canvas>\n";
    }

    std::vector<std::size_t> cuts(std::size_t size) {
        std::vector<std::size_t> at;
        if (pick(3) == 0) return at;
        const std::size_t piece = 1 + pick(static_cast<int>(size));
        for (std::size_t c = piece; c < size; c += 1 + pick(static_cast<int>(2 * piece)))
            at.push_back(c);
        return at;
    }

private:
    std::string gap() {
        static const char* const gaps[] = {" ", " ", " ", "  ", "\t", "\n", " \n\t"};
        return gaps[pick(7)];
    }

    std::string color() { return pick(2) ? "#ff8000" : "#12345678"; }

    std::string pointText(bool space, int normals, int colors) {
        int numbers = space ? (normals ? 6 : 3) : 2;
        if (faults_ && pick(40) == 0) numbers += pick(3) - 1; // a number too few or too many
        if (faults_ && pick(40) == 0) colors = pick(3);       // another form than the list's
        std::string text = pick(5) == 0 ? gap() : "";
        for (int i = 0; i < numbers; ++i) text += (i ? gap() : "") + number();
        for (int i = 0; i < colors; ++i) text += gap() + color();
        if (pick(5) == 0) text += gap();
        if (faults_ && pick(60) == 0) {
            static const char* const odd[] = {"inf 1 2 3 4 5", "+1 2",   "1e999 2", "abc", "",
                                              "0x1p3 2 3",     "nan 1 1"};
            text = odd[pick(7)];
        }
        return text;
    }

    std::string element(bool space, int normals, int colors) {
        std::string name = space ? "P3" : "P2";
        if (faults_ && pick(150) == 0) name = space ? "P2" : "P3"; // in the wrong list
        std::string text = pointText(space, normals, colors);
        std::string open = "<" + name + ">";
        std::string close = "</" + name + ">";
        // The forms a run must not take; those from 6 on fail the load.
        switch (pick(faults_ ? 60 : 6)) {
        case 0:
            open = "<" + name + " >";
            break;
        case 1:
            text += "<!-- c -->";
            break;
        case 2:
            if (auto at = text.find(' '); at != std::string::npos) text.replace(at, 1, "&#32;");
            break;
        case 3:
            text = "<![CDATA[" + text + "]]>";
            break;
        case 4:
            if (auto at = text.find(' '); at != std::string::npos) text.replace(at, 1, "\r\n");
            break;
        case 5:
            open = "<z:" + name + " xmlns:z=\"" + zpxNamespaceUri + "\">";
            close = "</z:" + name + ">";
            break;
        case 6:
            return "<" + name + "/>";
        case 7:
            open = "<" + name + " id=\"a\">";
            break;
        case 8:
            text += pick(2) ? "\xc3\xa9" : "&amp;";
            break;
        case 9:
            text += pick(2) ? "]]>" : "\x01";
            break;
        case 10:
            close = "</" + name + " >";
            break;
        default:
            break;
        }
        std::string between;
        if (pick(30) == 0) between = pick(2) ? "\n" : "<!--x-->";
        return open + text + close + between;
    }

    bool faults_ = false; // whether the document may hold points that fail the load
};

TEST(ZpxPointRuns, ReadAsEveryElementByItself) {
    TestClasses classes;
    DocumentMaker maker(20261123);
    runsTaken = 0;
    const int failed = TestSupport::compareFastPath<CountingHandler>(
        maker, 3000, [](Tessel::Xml::Parser& parser, bool on) { parser.setElementRuns(on); });
    // Both outcomes, and the runs, occur often enough to mean something.
    EXPECT_GT(failed, 300);
    EXPECT_LT(failed, 2700);
    EXPECT_GT(runsTaken, 3000);
}

} // namespace
