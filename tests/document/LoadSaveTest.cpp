#include <grafel/arbor/DomException.h>
#include <grafel/document/LoadDocument.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/document/SaveDocument.h>
#include <grafel/foundation/NumberFormat.h>
#include <grafel/properties/PlotElement.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

using namespace Grafel;

namespace {

const std::filesystem::path examples = std::filesystem::path(GRAFEL_SOURCE_DIR) / "examples";

std::string saved(const PlotDocument& document, SaveOptions options = {}) {
    std::ostringstream out;
    out << exactNumbers;
    EXPECT_TRUE(saveDocument(document, out, options));
    return out.str();
}

LoadResult loadText(PlotDocument& document, const std::string& text) {
    return loadDocument(document, text.data(), text.size());
}

bool isEmptyCanvas(PlotDocument& document) {
    Arbor::Element* root = document.documentElement();
    return root && root->nodeName() == Arbor::Token("Canvas") && !root->firstChild();
}

// Every example loads from a file, a stream and memory alike; the indented text puts each
// element on a line of its own and loads to the document that the plain text loads to.
TEST(LoadSave, EveryExampleLoadsAndIndentedTextLoadsToTheSameDocument) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(examples)) {
        const std::filesystem::path path = entry.path();
        if (path.extension() != ".zpx" && path.extension() != ".zpa") continue;
        SCOPED_TRACE(path.filename().string());
        ++count;
        PlotDocument fromFile;
        const LoadResult result = loadDocument(fromFile, path);
        ASSERT_TRUE(result) << (result.diagnostics.empty() ? "" : result.diagnostics[0].text());
        EXPECT_TRUE(result.diagnostics.empty());
        EXPECT_EQ(result.format, path.extension() == ".zpa" ? InputFormat::Zpa : InputFormat::Zpx);
        const std::string plain = saved(fromFile);

        PlotDocument fromStream;
        std::ifstream in(path, std::ios::binary);
        ASSERT_TRUE(loadDocument(fromStream, in).ok());
        EXPECT_EQ(saved(fromStream), plain);

        const std::string indented = saved(fromFile, {SaveFormat::Zpx, true});
        EXPECT_GT(std::count(indented.begin(), indented.end(), '\n'),
                  std::count(plain.begin(), plain.end(), '\n'));
        EXPECT_NE(indented.find("\n  <"), std::string::npos);
        PlotDocument reread;
        const LoadResult again = loadText(reread, indented);
        ASSERT_TRUE(again) << (again.diagnostics.empty() ? "" : again.diagnostics[0].text());
        // A tree built from Zpa may write differently once read back as ZPX, so the indented
        // text is held against the plain text read back.
        PlotDocument plainReread;
        ASSERT_TRUE(loadText(plainReread, plain));
        EXPECT_EQ(saved(reread), saved(plainReread));

        std::ostringstream cmd;
        cmd << exactNumbers;
        fromFile.putCmd(cmd, false);
        EXPECT_EQ(saved(fromFile, {SaveFormat::Cmd, false}), cmd.str());
    }
    EXPECT_GE(count, 2);
}

TEST(LoadSave, ReportsCarryPositionNamesAndValue) {
    PlotDocument document;
    const LoadResult bad = loadText(document, "<?xml version=\"1.0\"?>\n"
                                              "<Canvas>\n"
                                              "  <ObjStyle Type=\"Default\" LineWidth=\"abc\"/>\n"
                                              "</Canvas>\n");
    EXPECT_FALSE(bad);
    ASSERT_EQ(bad.diagnostics.size(), 1u);
    const Diagnostic& d = bad.diagnostics[0];
    EXPECT_EQ(d.severity, Diagnostic::Severity::Error);
    EXPECT_EQ(d.prefix, "Grafel error: ");
    EXPECT_EQ(d.message, "illegal value string [attribute 'LineWidth']");
    EXPECT_EQ(d.line, 3);
    EXPECT_GT(d.column, 0);
    EXPECT_EQ(d.element, "ObjStyle");
    EXPECT_EQ(d.attribute, "LineWidth");
    EXPECT_EQ(d.value, "abc");
    EXPECT_TRUE(isEmptyCanvas(document));

    // Refused without a text of the reader's own: the diagnostic still names what is missing.
    const LoadResult untyped = loadText(document, "<Canvas>\n<ObjStyle LineWidth=\"1\"/></Canvas>");
    ASSERT_EQ(untyped.diagnostics.size(), 1u);
    EXPECT_EQ(untyped.diagnostics[0].element, "ObjStyle");
    EXPECT_EQ(untyped.diagnostics[0].attribute, "Type");
    EXPECT_EQ(untyped.diagnostics[0].line, 2);

    // A report on a load that goes on is a warning.
    const LoadResult newer = loadText(document, "<Canvas version=\"2\"/>");
    EXPECT_TRUE(newer);
    ASSERT_EQ(newer.diagnostics.size(), 1u);
    EXPECT_EQ(newer.diagnostics[0].severity, Diagnostic::Severity::Warning);
    EXPECT_EQ(newer.diagnostics[0].text(), "ZPX error: unknown version '2'");

    const LoadResult syntax = loadText(document, "<Canvas>\n<");
    ASSERT_FALSE(syntax.diagnostics.empty());
    EXPECT_EQ(syntax.diagnostics.back().prefix, "XML error: ");
    EXPECT_EQ(syntax.diagnostics.back().line, 2);

    const LoadResult zpa = loadText(document, "Zeph-Ascii-Data\n");
    EXPECT_FALSE(zpa);
    EXPECT_EQ(zpa.format, InputFormat::Zpa);
    ASSERT_EQ(zpa.diagnostics.size(), 1u);
    EXPECT_EQ(zpa.diagnostics[0].prefix, "Zpa error: ");

    const Arbor::Ref<Arbor::Element> style(document.createElement(Arbor::Token("ObjStyle")));
    document.documentElement()->appendChild(style.get());
    const LoadResult missing = loadDocument(document, examples / "no-such-file.zpx");
    EXPECT_FALSE(missing);
    ASSERT_EQ(missing.diagnostics.size(), 1u);
    EXPECT_EQ(missing.diagnostics[0].text(), "error: cannot open: No such file or directory");
    EXPECT_TRUE(isEmptyCanvas(document));
}

// Diagnostics belong to the document: loads on two threads keep theirs apart, and the printf
// handler hears the same reports as before.
TEST(LoadSave, DocumentsOnTwoThreadsKeepTheirReports) {
    auto run = [](const char* value, std::vector<Diagnostic>& out) {
        const std::string text = std::string("<Canvas><ObjStyle Type=\"Default\" LineWidth=\"") +
                                 value + "\"/></Canvas>";
        for (int i = 0; i < 200; ++i) {
            PlotDocument document;
            LoadResult result = loadText(document, text);
            out.insert(out.end(), result.diagnostics.begin(), result.diagnostics.end());
        }
    };
    std::vector<Diagnostic> a, b;
    std::thread ta(run, "aaa", std::ref(a));
    std::thread tb(run, "bbb", std::ref(b));
    ta.join();
    tb.join();
    ASSERT_EQ(a.size(), 200u);
    ASSERT_EQ(b.size(), 200u);
    for (const Diagnostic& d : a) EXPECT_EQ(d.value, "aaa");
    for (const Diagnostic& d : b) EXPECT_EQ(d.value, "bbb");
}

TEST(LoadSave, RecordedPositionsPlaceElements) {
    PlotDocument document;
    LoadOptions options;
    options.recordPositions = true;
    const std::string text = "<Canvas>\n  <ObjStyle Type=\"Default\"/>\n</Canvas>";
    const LoadResult result = loadDocument(document, text.data(), text.size(), options);
    ASSERT_TRUE(result);
    Arbor::Node* style = document.documentElement()->firstChild();
    ASSERT_NE(style, nullptr);
    EXPECT_EQ(result.positionOf(style).line, 2);
    EXPECT_EQ(result.positionOf(style).column, 3);
    EXPECT_EQ(result.positionOf(document.documentElement()).line, 1);
}

TEST(LoadSave, DomExceptionCarriesTheReportedMessage) {
    PlotDocument document;
    ASSERT_TRUE(loadText(document, "<Canvas/>"));
    auto* canvas = PlotElement::from(document.documentElement());
    try {
        canvas->setAttributeString(Arbor::Token("Bogus"), "1");
        FAIL() << "no exception";
    } catch (const Arbor::DomException& e) {
        EXPECT_EQ(e.code(), Arbor::DomException::InvalidAccessErr);
        EXPECT_STREQ(e.what(),
                     "DOM exception 15: invalid access: unknown property 'Bogus' [node 'Canvas']");
        EXPECT_EQ(e.message(), "unknown property 'Bogus' [node 'Canvas']");
    }
    EXPECT_STREQ(Arbor::DomException(Arbor::DomException::NotFoundErr).what(),
                 "DOM exception 8: not found");
}

} // namespace
