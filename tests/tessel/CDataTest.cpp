#include <grafel/tessel/CData.h>
#include <grafel/tessel/xml/Parser.h>
#include <grafel/tessel/xml/SimpleDataHandler.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

// Keeps the attribute value and the content of the root element.
class RootReader : public Tessel::Xml::SimpleDataHandler {
public:
    std::string attribute;
    void startElement(int, int, const std::vector<Tessel::Xml::Attribute>& attributes) override {
        if (!attributes.empty()) attribute = attributes[0].value;
        wantData();
    }
};

// Writes the text as attribute value and as content, and reads both back.
template <class C> std::pair<std::string, std::string> roundTrip(const C* text, bool* ok) {
    std::ostringstream out;
    out << "<r a=\"";
    Tessel::putCData(out, text);
    out << "\">";
    Tessel::putCData(out, text);
    out << "</r>";
    const std::string xml = out.str();
    RootReader reader;
    Tessel::Xml::Parser parser(&reader, true, nullptr);
    *ok = parser.parse(xml.data(), static_cast<int>(xml.size()), true);
    return {reader.attribute, reader.data()};
}

void expectRoundTrip(const char* text, const std::string& expected) {
    bool ok = false;
    const auto [attribute, content] = roundTrip(text, &ok);
    EXPECT_TRUE(ok) << text;
    EXPECT_EQ(attribute, expected);
    EXPECT_EQ(content, expected);
}

} // namespace

TEST(TesselCData, ValidTextReadsBackUnchanged) {
    for (const char* text : {"", "plain", "a & b < c > d \" e ' f", "]]> and &amp; literally",
                             "tab\there\nline\r\nend\r", "  leading and trailing  ",
                             "caf\xC3\xA9 \xE4\xB8\xAD \xF0\x9F\x98\x80 \x7F \xEF\xBF\xBD"})
        expectRoundTrip(text, text);
}

TEST(TesselCData, UnrepresentableBecomesReplacement) {
    const std::string r = "\xEF\xBF\xBD";
    expectRoundTrip("a\x01"
                    "b\x1F",
                    "a" + r + "b" + r);
    expectRoundTrip("x\xC3(\xFF\xEF\xBF\xBE", "x" + r + "(" + r + r);
    expectRoundTrip("\xED\xA0\x80", r + r + r);

    const wchar_t wide[] = {L'<', 0xD800, L'\t', 0x110000, 0xFFFF, 0x0B, L'\u00E9', 0x1F600, 0};
    bool ok = false;
    const auto [attribute, content] = roundTrip(wide, &ok);
    EXPECT_TRUE(ok);
    const std::string expected = "<" + r + "\t" + r + r + r + "\xC3\xA9\xF0\x9F\x98\x80";
    EXPECT_EQ(attribute, expected);
    EXPECT_EQ(content, expected);

    // The wide form writes exactly what the narrow form writes for the same text, also past
    // its internal block size.
    std::wstring longWide;
    std::string longNarrow;
    for (int i = 0; i < 2000; ++i) {
        longWide += L"\"\u4E2D&";
        longNarrow += "\"\xE4\xB8\xAD&";
    }
    std::ostringstream a, b;
    Tessel::putCData(a, longWide.c_str());
    Tessel::putCData(b, longNarrow.c_str());
    EXPECT_EQ(a.str(), b.str());

    std::ostringstream none;
    Tessel::putCData(none, static_cast<const char*>(nullptr));
    Tessel::putCData(none, static_cast<const wchar_t*>(nullptr));
    EXPECT_EQ(none.str(), "");
}
