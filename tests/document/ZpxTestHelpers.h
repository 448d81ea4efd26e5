// Loading and writing ZPX text in tests, with the reports collected, and a scope in which small
// test classes stand in for element classes that are not there yet.
#pragma once

#include <grafel/document/P2List.h>
#include <grafel/document/P3List.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/document/ZpxParser.h>
#include <grafel/document/ZpxParserHandler.h>
#include <grafel/properties/ElementRegistry.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PropertyTypes.h>
#include <grafel/structure/Canvas.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

namespace ZpxTest {

using namespace Grafel;

/// Every call of the report function, one entry each, formatted.
inline std::vector<std::string>& calls() {
    static std::vector<std::string> all;
    return all;
}

inline void collect(const char* format, va_list args) {
    std::vector<char> text(1 << 16);
    std::vsnprintf(text.data(), text.size(), format, args);
    calls().push_back(text.data());
}

/// The messages of the reports, without the prefix calls.
inline std::vector<std::string> messages() {
    std::vector<std::string> out;
    for (const std::string& c : calls())
        if (c != "ZPX error: " && c != "Grafel error: ") out.push_back(c);
    return out;
}

/// Writes the whole document as XML.
inline std::string xml(PlotDocument& doc) {
    std::ostringstream out;
    doc.putXml(out);
    return out.str();
}

/// Whether the document holds what a failed load leaves: one Canvas, no children, no values.
inline bool isFreshCanvas(PlotDocument& doc) {
    Arbor::Element* root = doc.documentElement();
    if (!root || root->tagName() != tok_Canvas || root->hasChildNodes() ||
        doc.firstChild() != doc.lastChild() || doc.batchDepth() != 0)
        return false;
    for (int id = 1; id <= tokenCount; ++id)
        if (root->hasAttribute(getToken(id))) return false;
    return true;
}

/// The first element named `tag` below `from`, depth first in document order.
inline PlotElement* find(Arbor::Node* from, Arbor::Token tag) {
    for (Arbor::Node* n = from->firstChild(); n; n = n->nextSibling()) {
        if (n->nodeName() == tag) return PlotElement::from(n);
        if (PlotElement* below = find(n, tag)) return below;
    }
    return nullptr;
}

// Test stand-ins, registered only inside a TestClasses scope: a P2 list (tag Row1), a P3 list
// (Row2), and a page that takes them, and objects directly, in place of the scenes and
// coordinate systems.

#define ZPX_TEST_POLY_TABLE(P) P(Optional, BoolProperty, Closed, false, false)

class TestPoly2 : public P2List {
public:
    explicit TestPoly2(Arbor::Document* d) : P2List(d) {}
    Arbor::Token tagName() const override { return tok_Row1; }
    Arbor::Node* cloneNode(bool) const override { return new TestPoly2(*this); }
    static PlotElement* create(Arbor::Document* d) { return new TestPoly2(d); }
    GRAFEL_MEMBER_PROPERTIES(TestPoly2, ZPX_TEST_POLY_TABLE)
};

class TestPoly3 : public P3List {
public:
    explicit TestPoly3(Arbor::Document* d) : P3List(d) {}
    Arbor::Token tagName() const override { return tok_Row2; }
    Arbor::Node* cloneNode(bool) const override { return new TestPoly3(*this); }
    static PlotElement* create(Arbor::Document* d) { return new TestPoly3(d); }
};

class TestCanvas : public Canvas {
public:
    explicit TestCanvas(Arbor::Document* d) : Canvas(d) {}
    static PlotElement* create(Arbor::Document* d) { return new TestCanvas(d); }

protected:
    bool allowedContentChild(Arbor::Token tag) const override {
        return tag == tok_Row1 || tag == tok_Row2 || tag == tok_Obj2d || tag == tok_Obj3d ||
               Canvas::allowedContentChild(tag);
    }
};

/// Registers the stand-ins (the page under Canvas) for its lifetime, and restores the
/// registrations it found.
class TestClasses {
public:
    TestClasses() {
        set(id_Canvas, &TestCanvas::create);
        set(id_Row1, &TestPoly2::create);
        set(id_Row2, &TestPoly3::create);
    }
    ~TestClasses() {
        for (auto it = saved_.rbegin(); it != saved_.rend(); ++it)
            registerElementClass(it->first, it->second);
    }
    TestClasses(const TestClasses&) = delete;
    TestClasses& operator=(const TestClasses&) = delete;

private:
    void set(int id, ElementMaker maker) {
        saved_.emplace_back(id, elementMaker(id));
        registerElementClass(id, maker);
    }
    std::vector<std::pair<int, ElementMaker>> saved_;
};

/// A reader that also knows the stand-ins' tags.
class TestHandler : public ZpxParserHandler {
public:
    using ZpxParserHandler::ZpxParserHandler;
    bool elementName(const char* uri, const char* name, int& ns, int& id) override {
        for (int extra : {id_Row1, id_Row2}) {
            if (std::strcmp(name, getToken(extra).c_str()) == 0) {
                ns = 0;
                id = extra;
                return true;
            }
        }
        return ZpxParserHandler::elementName(uri, name, ns, id);
    }
};

/// Loads `text` into `doc` in pieces of at most `piece` bytes (0: all at once); the answer of
/// the last parseSave. Reports, of the reader and of the elements, are collected afresh.
template <class Handler = ZpxParserHandler>
bool load(PlotDocument& doc, const std::string& text, bool dropIds = false, std::size_t piece = 0) {
    calls().clear();
    doc.domErrorHdl(&collect);
    Handler handler(&doc, dropIds, &collect);
    ZpxParser parser(&handler, true, nullptr);
    if (piece == 0) piece = text.size();
    std::size_t at = 0;
    do {
        const std::size_t n = std::min(piece, text.size() - at);
        const bool last = at + n == text.size();
        if (!parser.parseSave(text.data() + at, static_cast<int>(n), last)) return false;
        at += n;
    } while (at < text.size());
    return true;
}

} // namespace ZpxTest
