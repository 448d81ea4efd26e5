// The structure checker that every model test relies on must itself catch broken files.
#include "support/JvxChecker.h"

#include <gtest/gtest.h>

namespace {

const std::string head = "<?xml version=\"1.0\"?>\n<!DOCTYPE jvx-model SYSTEM "
                         "\"http://h/rsrc/jvx.dtd\">\n<jvx-model>\n<geometries>\n";
const std::string good =
    "<geometry>\n<pointSet dim=\"3\" color=\"show\">\n<points num=\"3\">\n<p>0 0 0</p>\n"
    "<p>1 0 0</p>\n<p>0 1 0</p>\n<color>1 2 3</color>\n</points>\n<colors num=\"3\">\n"
    "<c>0 0 0</c>\n<c>9 9 9</c>\n<c>255 0 0</c>\n</colors>\n</pointSet>\n"
    "<faceSet face=\"show\" color=\"show\">\n<faces num=\"1\">\n<f>0 1 2</f>\n</faces>\n"
    "<neighbours num=\"1\">\n<nb>-1 -1 0</nb>\n</neighbours>\n<colors num=\"1\">\n<c>1 1 1</c>\n"
    "</colors>\n</faceSet>\n<lineSet>\n<lines num=\"2\">\n<l>0 1</l>\n<l>2 0</l>\n</lines>\n"
    "</lineSet>\n</geometry>\n";
const std::string tail = "</geometries>\n</jvx-model>\n";

TEST(JvxChecker, AcceptsAGoodModelAndNamesEachFault) {
    EXPECT_EQ(TestSupport::joinedJvxProblems(head + good + tail), "");
    struct Case {
        std::string from, to, problem;
    } cases[] = {
        {"<f>0 1 2</f>", "<f>0 1 3</f>", "index 3"},
        {"<l>2 0</l>", "<l>2 -1</l>", "index -1"},
        {"<nb>-1 -1 0</nb>", "<nb>-1 1 0</nb>", "outside the 1 faces"},
        {"<lines num=\"2\">", "<lines num=\"3\">", "num=\"3\" but 2 <l>"},
        {"<c>9 9 9</c>\n", "", "2 colours for 3 points"},
        {"<c>1 1 1</c>", "<c>1 1 256</c>", "out of 0..255"},
        {"<p>1 0 0</p>", "<p>1 0</p>", "not 3 numbers"},
        {"<geometry>\n<pointSet", "<geometry>\n<material/><pointSet", "start with a <pointSet>"},
        {"</lineSet>\n", "</lineSet\n", "not well-formed"},
        {"<faceSet face=\"show\" color=\"show\">\n<faces num=\"1\">\n<f>0 1 2</f>\n</faces>\n"
         "<neighbours num=\"1\">\n<nb>-1 -1 0</nb>\n</neighbours>\n<colors num=\"1\">\n"
         "<c>1 1 1</c>\n</colors>",
         "<faceSet color=\"show\">\n<faces num=\"1\">\n<f>0 1 2</f>\n</faces>",
         "colours shown but no <colors> for faces"},
    };
    for (const Case& c : cases) {
        std::string broken = good;
        const auto at = broken.find(c.from);
        ASSERT_NE(at, std::string::npos) << c.from;
        broken.replace(at, c.from.size(), c.to);
        EXPECT_NE(TestSupport::joinedJvxProblems(head + broken + tail).find(c.problem),
                  std::string::npos)
            << c.to << "\n"
            << TestSupport::joinedJvxProblems(head + broken + tail);
    }
    EXPECT_NE(
        TestSupport::joinedJvxProblems("<?xml version=\"1.0\"?>\n<jvx-model/>").find("DOCTYPE"),
        std::string::npos);
}

} // namespace
