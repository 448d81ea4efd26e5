#include <grafel/tessel/xml/ElementRun.h>
#include <grafel/tessel/xml/Parser.h>
#include <grafel/tessel/xml/SimpleDataHandler.h>

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using Tessel::Xml::Attribute;
using Tessel::Xml::Parser;

namespace {

// Logs every event as text, with adjacent character data merged, and numbers the names it is
// asked for. Elements named "skip" are ignored, "boom" throws, "refused" is refused.
class Recorder : public Tessel::Xml::Handler {
public:
    std::string log;
    std::map<std::string, int> asked; // "e:uri|name" or "a:uri|name" -> times asked
    std::map<int, std::string> names;
    int cleanups = 0;
    long lastLine = 0;
    Parser* parser = nullptr;

    void startElement(int ns, int id, const std::vector<Attribute>& attributes) override {
        flushText();
        lastLine = parser ? parser->currentLine() : 0;
        if (names[id] == "boom") throw std::runtime_error("boom");
        log += "<" + std::to_string(ns) + ":" + names[id];
        for (const Attribute& a : attributes)
            log += " " + std::to_string(a.namespaceId) + ":" + names[a.nameId] + "=" + a.value;
        log += ">";
        if (names[id] == "skip") ignoreElement();
    }
    void endElement(int, int id) override {
        flushText();
        log += "</" + names[id] + ">";
    }
    void characterData(const char* text, int length) override { text_.append(text, length); }
    bool elementName(const char* uri, const char* name, int& ns, int& id) override {
        return mapName("e:", uri, name, ns, id);
    }
    bool attributeName(const char* uri, const char* name, int& ns, int& id) override {
        return mapName("a:", uri, name, ns, id);
    }
    void cleanup() override {
        ++cleanups;
        text_.clear();
    }
    void endIgnoreElement() override {
        flushText();
        log += "[ignored]";
    }

private:
    std::string text_;

    void flushText() {
        if (!text_.empty()) log += "'" + text_ + "'";
        text_.clear();
    }
    bool mapName(const char* kind, const char* uri, const char* name, int& ns, int& id) {
        ++asked[std::string(kind) + uri + "|" + name];
        if (std::string(name) == "refused") return false;
        ns = *uri ? 7 : 0;
        id = static_cast<int>(names.size()) + 1;
        names[id] = name;
        return true;
    }
};

bool parseWhole(Parser& parser, const std::string& text) {
    return parser.parse(text.data(), static_cast<int>(text.size()), true);
}

const std::string sample = "<?xml version='1.0'?>\n"
                           "<r xmlns='urn:a' xmlns:p='urn:p' p:x='1' y='&lt;2&#10;'>\n"
                           "  text &amp; \xC3\xA9<![CDATA[<raw>]]>\n"
                           "  <p:c y='3'>inner</p:c><c/><skip><refused a='1'>t</refused></skip>\n"
                           "</r>";

} // namespace

TEST(TesselXmlParser, SameEventsInPiecesAndWhole) {
    Recorder whole;
    Parser parser(&whole, true, nullptr);
    ASSERT_TRUE(parseWhole(parser, sample)) << parser.errorText();
    EXPECT_EQ(whole.log, "<7:r 7:x=1 0:y=<2\n>'\n  text & \xC3\xA9<raw>\n  '<7:c 0:y=3>'inner'"
                         "</c><7:c></c><7:skip>[ignored]'\n'</r>");
    // Asked once per name; element and attribute names apart; declarations are no attributes;
    // names inside an ignored element are never asked.
    const std::map<std::string, int> once{{"a:urn:p|x", 1}, {"a:|y", 1},      {"e:urn:a|r", 1},
                                          {"e:urn:p|c", 1}, {"e:urn:a|c", 1}, {"e:urn:a|skip", 1}};
    EXPECT_EQ(whole.asked, once);
    EXPECT_EQ(whole.cleanups, 0);

    Recorder pieces;
    Parser bytewise(&pieces, true, nullptr);
    for (size_t i = 0; i < sample.size(); ++i)
        ASSERT_TRUE(bytewise.parse(&sample[i], 1, false)) << i;
    ASSERT_TRUE(bytewise.parse(nullptr, 0, true));
    EXPECT_EQ(pieces.log, whole.log);
    EXPECT_EQ(pieces.asked, whole.asked);
    EXPECT_FALSE(bytewise.parse("<x/>", 4, true)); // nothing after the final piece

    // Without namespaces the names come as written, declarations still left out.
    Recorder plain;
    Parser noNamespaces(&plain, false, nullptr);
    ASSERT_TRUE(parseWhole(noNamespaces, "<p:r xmlns:p='urn:p' xmlns='u' p:a='1'/>"));
    EXPECT_EQ(plain.log, "<0:p:r 0:p:a=1></p:r>");
}

TEST(TesselXmlParser, RefusedNameAndSyntaxErrorFailOnce) {
    Recorder recorder;
    Parser parser(&recorder, true, nullptr);
    EXPECT_FALSE(parseWhole(parser, "<r>\n<a/>\n<refused/></r>"));
    EXPECT_STREQ(parser.errorText(), "stopped by handler");
    EXPECT_EQ(parser.currentLine(), 3);
    EXPECT_EQ(recorder.cleanups, 1);
    EXPECT_FALSE(parseWhole(parser, "<r/>")); // stays failed until reset
    EXPECT_EQ(recorder.cleanups, 1);

    parser.reset();
    recorder.log.clear();
    ASSERT_TRUE(parseWhole(parser, "<a/>"));
    EXPECT_EQ(recorder.log, "<0:a></a>");
    EXPECT_EQ(recorder.asked["e:|a"], 1); // answers are kept across reset

    Parser copy(parser);
    EXPECT_EQ(copy.handler(), &recorder);
    EXPECT_FALSE(parseWhole(copy, "<r>\n  <a>\n  </b></r>"));
    EXPECT_EQ(copy.currentLine(), 3);
    EXPECT_EQ(copy.currentColumn(), 5);
    EXPECT_STRNE(copy.errorText(), "");
    EXPECT_EQ(recorder.cleanups, 2);
    copy = parser; // a fresh parser again
    EXPECT_TRUE(parseWhole(copy, "<a/>"));
}

TEST(TesselXmlParser, HandlerExceptionIsRethrownAfterCleanup) {
    Recorder recorder;
    Parser parser(&recorder, true, nullptr);
    recorder.parser = &parser;
    EXPECT_THROW(parseWhole(parser, "<r>\n\n<boom/></r>"), std::runtime_error);
    EXPECT_EQ(recorder.lastLine, 3); // the position is known inside a callback
    EXPECT_EQ(recorder.cleanups, 1);
    EXPECT_FALSE(parseWhole(parser, "<r/>"));
    EXPECT_EQ(recorder.cleanups, 1);
}

TEST(TesselXmlParser, HostileInputFailsCleanly) {
    const std::string deep = std::string("<a>\n") + [] {
        std::string s;
        for (int i = 0; i < 100000; ++i) s += "<a>";
        return s;
    }();
    std::string garbage(4096, '\0');
    unsigned seed = 12345;
    for (char& c : garbage) c = static_cast<char>((seed = seed * 1103515245 + 12345) >> 16);
    const std::string laughs = [] {
        std::string s = "<?xml version='1.0'?><!DOCTYPE l [<!ENTITY l0 'lol'>";
        for (int i = 1; i < 10; ++i) {
            s += "<!ENTITY l" + std::to_string(i) + " '";
            for (int j = 0; j < 10; ++j) s += "&l" + std::to_string(i - 1) + ";";
            s += "'>";
        }
        return s + "]><l>&l9;</l>";
    }();
    const std::string hugeValue(4 << 20, 'v');

    const std::string inputs[] = {
        deep,
        garbage,
        laughs,
        "<r a='" + hugeValue, // truncated inside a huge attribute
        "<r>bad \xC3( utf-8</r>",
        "<!DOCTYPE r [<!ENTITY e SYSTEM 'file:///etc/hostname'>]><r>&e;</r>",
        "",
    };
    const auto start = std::chrono::steady_clock::now();
    for (const std::string& input : inputs) {
        Recorder recorder;
        Parser parser(&recorder, true, nullptr);
        EXPECT_FALSE(parseWhole(parser, input)) << input.substr(0, 40);
        EXPECT_EQ(recorder.cleanups, 1);
        EXPECT_STRNE(parser.errorText(), "");
        EXPECT_GE(parser.currentLine(), 1);
        if (&input == &inputs[0]) {
            EXPECT_EQ(parser.currentLine(), 2);
        }
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));

    // A huge attribute value that is complete passes whole.
    Recorder recorder;
    Parser parser(&recorder, false, nullptr);
    ASSERT_TRUE(parseWhole(parser, "<r a='" + hugeValue + "'/>"));
    EXPECT_EQ(recorder.log.size(), hugeValue.size() + std::string("<0:r 0:a=></r>").size());
}

TEST(TesselXmlParser, SimpleDataHandlerCollectsAndTrims) {
    struct Trimmer : Tessel::Xml::SimpleDataHandler {
        std::vector<std::string> texts;
        void startElement(int, int, const std::vector<Attribute>&) override { wantData(); }
        void onEndElement(int, int) override {
            trimTextData();
            texts.push_back(wantsData() ? data() : "-");
        }
    } trimmer;
    Parser parser(&trimmer, true, nullptr);
    const std::string text = "<r><a> \t\r\n x &#9;y\n </a><b>   </b><c>z</c></r>";
    for (char c : text) ASSERT_TRUE(parser.parse(&c, 1, false));
    ASSERT_TRUE(parser.parse("", 0, true));
    EXPECT_EQ(trimmer.texts, (std::vector<std::string>{"x \ty", "", "z", "-"}));
    Trimmer copy(trimmer);
    EXPECT_EQ(copy.data(), trimmer.data());
}

namespace {

// Takes runs of "p" and turns each element back into its three events.
class RunRecorder : public Recorder, public Tessel::Xml::ElementRunReader {
public:
    int runs = 0;
    std::vector<std::string> elementRunNames() const override { return {"p"}; }
    bool takesElementRun(int, int) override { return true; }
    void elementRun(int ns, int id, Tessel::Xml::ElementRun& run) override {
        ++runs;
        std::string_view text;
        while (run.next(text)) {
            startElement(ns, id, {});
            if (!text.empty()) characterData(text.data(), static_cast<int>(text.size()));
            endElement(ns, id);
        }
    }
};

} // namespace

TEST(TesselXmlParser, RunsGiveTheEventsOfTheirElements) {
    const std::string body = "<p>1</p><p>a b</p><p>\n</p><p></p><p x='1'>2</p><p>3</p>\n"
                             "<p>&amp;</p><p>4</p><p>5]</p><p>6</p><p>7\r\n</p><p>8</p></r>";
    // A declared default reaches every element, which a run could not show.
    for (const std::string prolog : {"", "<!DOCTYPE r [<!ATTLIST p d CDATA 'v'>]>"}) {
        const std::string text = prolog + "<r>\n" + body;
        RunRecorder events;
        Parser one(&events, true, nullptr);
        one.setElementRuns(false);
        ASSERT_TRUE(parseWhole(one, text));
        RunRecorder runs;
        Parser bulk(&runs, true, nullptr);
        ASSERT_TRUE(parseWhole(bulk, text));
        EXPECT_EQ(runs.log, events.log);
        EXPECT_EQ(events.runs, 0);
        EXPECT_EQ(runs.runs, prolog.empty() ? 5 : 0);
    }
}
