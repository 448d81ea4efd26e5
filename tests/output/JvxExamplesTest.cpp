// Every bundled example with a scene exports to a model that passes the structure check, the
// animated one at each of its frame times as well.
#include "document/ZpxTestHelpers.h"
#include "support/JvxChecker.h"

#include <grafel/output/JVXWriter.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

using namespace Grafel;

TEST(JvxExamples, EveryExampleExportsToAWellFormedModel) {
    const std::filesystem::path examples = std::filesystem::path(GRAFEL_SOURCE_DIR) / "examples";
    int exported = 0;
    for (const auto& entry : std::filesystem::directory_iterator(examples)) {
        if (entry.path().extension() != ".zpx") continue;
        std::ifstream in(entry.path());
        std::stringstream text;
        text << in.rdbuf();
        if (text.str().find("<Scene") == std::string::npos) continue;
        SCOPED_TRACE(entry.path().filename().string());
        PlotDocument doc;
        ASSERT_TRUE(ZpxTest::load(doc, text.str()));
        JVXWriter writer(&doc);
        double begin = 0, end = 0;
        const bool animated = writer.animationRange(begin, end);
        for (double t : {JavaViewWriter::noTime, begin, (begin + end) / 2, end}) {
            std::ostringstream out;
            writer.write(&out, t);
            EXPECT_EQ(TestSupport::joinedJvxProblems(out.str()), "") << "at " << t;
            if (!animated) break;
        }
        ++exported;
    }
    EXPECT_GE(exported, 8);
}

} // namespace
