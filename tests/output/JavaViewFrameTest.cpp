// The frame shared by the JavaView writers: time rules, the scene and coordinate system search,
// timed children, the file head, and an animation written as numbered files.
#include "document/ZpxTestHelpers.h"

#include <grafel/output/JVXWriter.h>

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

using namespace Grafel;
namespace fs = std::filesystem;

/// A model writer whose write records the time and writes it as the file's whole text, and
/// which collects warnings; it opens the protected frame operations to the tests.
class Probe : public JVXWriter {
public:
    using JVXWriter::JVXWriter;
    std::vector<std::string> warnings;
    std::vector<double> times;
    int failAt = 0;   // the write of this frame throws (1-based; 0: none)
    int refuseAt = 0; // overwriteFrameFile answers false on this call (0: never)
    int asked = 0;

    void write(std::ostream* out, double at) override {
        times.push_back(at);
        if (static_cast<int>(times.size()) == failAt) throw JavaViewExportError("no Img3d");
        *out << at;
    }
    bool overwriteFrameFile(const char* name, bool& overwriteAll) override {
        ++asked;
        return asked == refuseAt ? false : JVXWriter::overwriteFrameFile(name, overwriteAll);
    }
    void warning(const char* text) override { warnings.push_back(text); }

    using JavaViewWriter::currentDate;
    using JavaViewWriter::findTimedChild;
    using JavaViewWriter::getCoordinateSystem;
    using JavaViewWriter::getImg3d;
    using JavaViewWriter::getTime;
    using JavaViewWriter::putColor;
    using JavaViewWriter::putShowAttr;
    using JavaViewWriter::putThickness;
    using JavaViewWriter::setTime;
    using JavaViewWriter::startFile;
};

std::string canvas(const std::string& inside) {
    return "<Canvas version=\"1\">" + inside + "</Canvas>";
}

const std::string scene3d = "<Scene3d><CoordinateSystem3d/></Scene3d>";
const std::string range25 = "<TimeRange TimeBegin=\"2\" TimeEnd=\"5\"/>";

std::string what(const std::function<void()>& run) {
    try {
        run();
    } catch (const JavaViewExportError& e) {
        return e.what();
    }
    return "";
}

TEST(JavaViewFrame, TimeIsClampedIntoTheAnimationAndDroppedWithoutOne) {
    const double nan = JavaViewWriter::noTime;
    struct Case {
        bool animated;
        double given, expected;
        bool warns;
    } cases[] = {
        {true, nan, 2, false}, {true, 1, 2, false},      {true, 3.5, 3.5, false},
        {true, 7, 5, false},   {false, nan, nan, false}, {false, 5, nan, true},
    };
    for (const Case& c : cases) {
        PlotDocument doc;
        ASSERT_TRUE(ZpxTest::load(doc, canvas((c.animated ? range25 : "") + scene3d)));
        Probe probe(&doc);
        probe.setTime(c.given);
        SCOPED_TRACE(std::to_string(c.given) + (c.animated ? " animated" : " still"));
        if (std::isnan(c.expected))
            EXPECT_TRUE(std::isnan(probe.getTime()));
        else
            EXPECT_EQ(probe.getTime(), c.expected);
        EXPECT_EQ(probe.warnings, c.warns ? std::vector<std::string>{"not an animation"}
                                          : std::vector<std::string>{});
        double begin = 0, end = 0;
        EXPECT_EQ(probe.animationRange(begin, end), c.animated);
        EXPECT_EQ(probe.isAnimated(), c.animated);
    }
}

TEST(JavaViewFrame, FindsTheFirstSceneAndCoordinateSystemOrSaysWhatIsMissing) {
    struct Case {
        std::string zpx; // empty: a document without a Canvas
        std::string error;
        std::vector<std::string> warnings;
        bool is2d;
    } cases[] = {
        {"", "no Canvas", {}, false},
        {canvas(""), "no scene", {}, false},
        {canvas(range25), "no scene", {}, false},
        {canvas("<Scene3d/>"), "no coordinate system", {}, false},
        {canvas("<Scene2d/>"), "no coordinate system", {}, true},
        {canvas(range25 + "<Scene2d><CoordinateSystem2d/></Scene2d>"), "", {}, true},
        {canvas(scene3d + "<Scene2d><CoordinateSystem2d/></Scene2d>"),
         "",
         {"more than one scene"},
         false},
        {canvas("<Scene3d><CoordinateSystem3d/><CoordinateSystem3d/></Scene3d>" + scene3d),
         "",
         {"more than one scene", "more than one coordinate system"},
         false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.zpx);
        PlotDocument doc;
        if (!c.zpx.empty()) {
            ASSERT_TRUE(ZpxTest::load(doc, c.zpx));
        }
        Probe probe(&doc);
        Arbor::Node *scene = nullptr, *system = nullptr;
        bool is2d = !c.is2d;
        EXPECT_EQ(what([&] { probe.getCoordinateSystem(scene, system, is2d); }), c.error);
        EXPECT_EQ(probe.warnings, c.warnings);
        if (!c.error.empty()) continue;
        EXPECT_EQ(is2d, c.is2d);
        ASSERT_TRUE(scene && system);
        EXPECT_EQ(system->parentNode(), scene);
        EXPECT_EQ(scene, doc.documentElement()->findChild(is2d ? tok_Scene2d : tok_Scene3d));
        EXPECT_EQ(system, scene->firstChild());
    }
}

TEST(JavaViewFrame, TimedChildIsTheLastNotLaterThanTheTime) {
    // Images at parameters 0, 1, 2 of a range mapped onto the times 0, 5, 10; the fourth
    // image has no parameter and so no time.
    PlotDocument doc;
    ASSERT_TRUE(ZpxTest::load(
        doc, canvas("<TimeRange TimeBegin=\"0\" TimeEnd=\"10\"/><Scene3d><CoordinateSystem3d>"
                    "<Obj3d Type=\"PrimitiveList3d\" TimeBegin=\"0\" TimeEnd=\"10\">"
                    "<ParameterName>a</ParameterName><ParameterBegin Val=\"0\">0</ParameterBegin>"
                    "<ParameterEnd Val=\"2\">2</ParameterEnd>"
                    "<Img3d Param=\"1\"/><Img3d Param=\"0\"/><Img3d Param=\"2\"/><Img3d/>"
                    "</Obj3d><Obj3d Type=\"PrimitiveList3d\"/>"
                    "</CoordinateSystem3d></Scene3d>")));
    Arbor::Node* system = doc.documentElement()->findChild(tok_Scene3d)->firstChild();
    Arbor::Node* object = system->firstChild();
    std::vector<Arbor::Node*> images;
    for (Arbor::Node* n = object->firstChild(); n; n = n->nextSibling())
        if (n->nodeName() == tok_Img3d) images.push_back(n);
    ASSERT_EQ(images.size(), 4u);
    auto image = [&](unsigned i) { return images[i]; };
    struct Case {
        bool useTime;
        double time;
        unsigned expected;
    } cases[] = {
        {false, 7, 0},                 // without a time the first image
        {true, -1, 0},                 // before every image: the first
        {true, 5, 1},                  // 5 then 0 are not later; 10 is, and ends the walk
        {true, 4.9, 0}, {true, 10, 3}, // the image without a time ends the walk and wins
    };
    for (const Case& c : cases)
        EXPECT_EQ(Probe::findTimedChild(object, tok_Img3d, c.useTime, c.time), image(c.expected))
            << c.useTime << ' ' << c.time;
    EXPECT_EQ(Probe::findTimedChild(object, tok_Img2d, true, 5), nullptr);

    Probe probe(&doc);
    probe.setTime(4.9);
    EXPECT_EQ(probe.getImg3d(object), image(0));
    EXPECT_EQ(what([&] { probe.getImg3d(object->nextSibling()); }), "no Img3d");
}

TEST(JavaViewFrame, HeadAndSmallPiecesAreWrittenAsTheViewerReadsThem) {
    PlotDocument doc;
    ASSERT_TRUE(ZpxTest::load(doc, canvas(scene3d)));
    Probe probe(&doc);
    probe.setFixedDate("Mon Nov 23 12:00:00 2026");
    probe.setDtdHost("http://dtd.example");
    std::ostringstream out;
    probe.startFile(&out, 1, JavaViewFile::Model);
    EXPECT_EQ(probe.warnings, std::vector<std::string>{"not an animation"});
    const std::string head = out.str();
    EXPECT_EQ(
        head.substr(0, 206),
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>\n"
        "<!DOCTYPE jvx-model SYSTEM \"http://dtd.example/rsrc/jvx.dtd\">\n<jvx-model>\n"
        "<meta generator=\"zpx2jvx vers 1.5\"/>\n<meta date=\"Mon Nov 23 12:00:00 2026\"/>\n");
    EXPECT_NE(head.find("<software>Nimbo Pro vers 3.1</software>\n</description>\n"),
              std::string::npos);
    EXPECT_EQ(head.substr(head.size() - 15), "</description>\n");

    std::ostringstream display;
    probe.startFile(&display, JavaViewWriter::noTime, JavaViewFile::Display);
    EXPECT_EQ(
        display.str().substr(55, 79),
        "<!DOCTYPE jv-disp SYSTEM \"http://dtd.example/rsrc/jv-disp.dtd\">\n<jv-disp>\n<meta");
    EXPECT_NE(display.str().find("<meta dtd=\"1.04.000\"/>"), std::string::npos);
    EXPECT_NE(display.str().find("<abstract></abstract>\n</description>\n"), std::string::npos);

    std::ostringstream pieces;
    probe.startFile(&pieces, JavaViewWriter::noTime, JavaViewFile::Model);
    pieces.str("");
    probe.putColor(RGBA(255, 0, 18, 7));
    probe.putShowAttr("edge", true);
    probe.putShowAttr("face", false);
    probe.putThickness(JavaViewWriter::noThickness);
    probe.putThickness(2.5);
    EXPECT_EQ(pieces.str(), "<color>255 0 18</color>\n edge=\"show\" face=\"hide\""
                            "<thickness>2.5</thickness>\n");

    // The clock's date has asctime's form without its line feed.
    probe.setFixedDate("");
    const std::string date = probe.currentDate();
    EXPECT_EQ(date.size(), 24u) << date;

    Probe orphan(nullptr);
    EXPECT_EQ(what([&] { orphan.startFile(&out, 1, JavaViewFile::Model); }), "no document");
}

/// A fresh directory for frame files, removed at the end.
class FrameFiles : public ::testing::Test {
protected:
    fs::path dir;
    void SetUp() override {
        dir =
            fs::temp_directory_path() /
            ("grafel-frames-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
             "-" + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dir);
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }

    /// The frame files under the directory, as "relative path=content".
    std::vector<std::string> files() const {
        std::vector<std::string> out;
        for (const auto& entry : fs::recursive_directory_iterator(dir))
            if (entry.is_regular_file()) {
                std::ifstream in(entry.path());
                std::stringstream text;
                text << in.rdbuf();
                out.push_back(fs::relative(entry.path(), dir).string() + "=" + text.str());
            }
        std::sort(out.begin(), out.end());
        return out;
    }
};

TEST_F(FrameFiles, AnimationIsWrittenAsNumberedFilesEndingExactlyAtTheEnd) {
    using Names = std::vector<std::string>;
    struct Case {
        std::string range, name;
        int framesPerUnit;
        Names expected;
    } cases[] = {
        {"0 1", "a.jvx", 2, {"a.1.jvx=0", "a.2.jvx=0.5", "a.3.jvx=1"}},
        {"0 1", "a", 3, {"a.1=0", "a.2=0.333333", "a.3=0.666667", "a.4=1"}},
        {"0 0.7", "a.jvx", 2, {"a.1.jvx=0", "a.2.jvx=0.5", "a.3.jvx=0.7"}},
        {"3 3", "a.jvx", 4, {"a.1.jvx=3"}},
        {"0 1", "d.x/a", 2, {"d.1.x/a=0", "d.2.x/a=0.5", "d.3.x/a=1"}},
        {"1 4", "a.jvx", 0, {"a.1.jvx=1", "a.2.jvx=4"}},
        {"1 4", "a.jvx", -3, {"a.1.jvx=1", "a.2.jvx=4"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.range + " " + c.name + " " + std::to_string(c.framesPerUnit));
        fs::remove_all(dir);
        // The frames of d.x/a go to d.1.x/a and so on, which must exist.
        for (const char* sub : {"d.1.x", "d.2.x", "d.3.x"}) fs::create_directories(dir / sub);
        const auto space = c.range.find(' ');
        PlotDocument doc;
        ASSERT_TRUE(ZpxTest::load(doc, canvas("<TimeRange TimeBegin=\"" + c.range.substr(0, space) +
                                              "\" TimeEnd=\"" + c.range.substr(space + 1) + "\"/>" +
                                              scene3d)));
        Probe probe(&doc);
        probe.writeFrames(c.framesPerUnit, (dir / c.name).c_str());
        EXPECT_EQ(files(), c.expected);
        EXPECT_EQ(probe.asked, 0);
    }
}

TEST_F(FrameFiles, FailuresKeepEarlierFramesAndExistingFilesAreAskedAbout) {
    PlotDocument doc;
    ASSERT_TRUE(ZpxTest::load(doc, canvas("<TimeRange TimeBegin=\"0\" TimeEnd=\"2\"/>" + scene3d)));
    const std::string name = (dir / "a.jvx").string();

    Probe failing(&doc);
    failing.failAt = 3;
    EXPECT_EQ(what([&] { failing.writeFrames(1, name.c_str()); }), "no Img3d");
    // The third file was opened before its write failed.
    EXPECT_EQ(files(), (std::vector<std::string>{"a.1.jvx=0", "a.2.jvx=1", "a.3.jvx="}));

    // Existing files: the default answer replaces all without asking again.
    Probe replacing(&doc);
    replacing.writeFrames(1, name.c_str());
    EXPECT_EQ(replacing.asked, 1);
    EXPECT_EQ(files(), (std::vector<std::string>{"a.1.jvx=0", "a.2.jvx=1", "a.3.jvx=2"}));

    // A refusal ends the export without an error and leaves the file as it was.
    fs::remove(dir / "a.1.jvx");
    Probe refusing(&doc);
    refusing.refuseAt = 1;
    refusing.writeFrames(2, name.c_str());
    EXPECT_EQ(refusing.times, (std::vector<double>{0}));
    EXPECT_EQ(files(), (std::vector<std::string>{"a.1.jvx=0", "a.2.jvx=1", "a.3.jvx=2"}));

    PlotDocument still;
    ASSERT_TRUE(ZpxTest::load(still, canvas(scene3d)));
    Probe stillProbe(&still);
    EXPECT_EQ(what([&] { stillProbe.writeFrames(1, name.c_str()); }), "not an animation");
    Probe unopenable(&doc);
    EXPECT_EQ(what([&] { unopenable.writeFrames(1, (dir / "none" / "a.jvx").c_str()); }),
              "Can not open output file.");
}

} // namespace
