// A small document for exercising the kernel: elements that log their hooks and can be told
// to refuse changes.
#pragma once

#include <grafel/arbor/BasicElement.h>
#include <grafel/arbor/DomEvent.h>

#include <string>
#include <vector>

namespace KernelTest {

using namespace Arbor;

inline Token tok(const char* text) {
    return Token(text, true);
}

struct Log {
    std::vector<std::string> lines;
    void add(std::string s) { lines.push_back(std::move(s)); }
};

/// Logs its hooks to the document's log; `refuseChildren` and `refuseAttributes` veto changes,
/// and `stopWalk` makes the after walk stop here.
class LoggingElement : public BasicElement {
public:
    LoggingElement(Document* d, Token tag, Log* log) : BasicElement(d, tag), log_(log) {}
    bool refuseChildren = false;
    bool refuseAttributes = false;
    bool stopWalk = false;

    bool mayReplaceChildren(Node* first, unsigned count, Node* newFirst) override {
        log_->add(std::string(tagName().text()) + ".mayReplace(" +
                  (first ? first->nodeName().text() : "null") + "," + std::to_string(count) + "," +
                  (newFirst ? newFirst->nodeName().text() : "null") + ")");
        return !refuseChildren;
    }
    void afterParentChanged() override {
        log_->add(std::string(tagName().text()) + ".afterParentChanged");
    }

protected:
    bool maySetAttribute(Token name, const Variant& v) override {
        log_->add(std::string(tagName().text()) + ".maySet " + name.text());
        return !refuseAttributes && BasicElement::maySetAttribute(name, v);
    }
    bool beforeSetAttribute(Element* source, Token name, const Variant& v) override {
        log_->add(std::string(tagName().text()) + ".beforeSet " + name.text());
        return BasicElement::beforeSetAttribute(source, name, v);
    }
    void setAttributeRaw(Token name, const Variant& v) override {
        log_->add(std::string(tagName().text()) + ".setRaw " + name.text());
        BasicElement::setAttributeRaw(name, v);
    }
    bool afterSetAttribute(Element* source, Token name) override {
        log_->add(std::string(tagName().text()) + ".afterSet " + name.text() + " from " +
                  source->tagName().text());
        return !stopWalk;
    }
    bool afterRemoveAttribute(Element* source, Token name) override {
        log_->add(std::string(tagName().text()) + ".afterRemove " + name.text() + " from " +
                  source->tagName().text());
        return !stopWalk;
    }

private:
    Log* log_;
};

class LoggingDocument : public Document {
public:
    Log log;
    Element* createElement(Token tag) override { return new LoggingElement(this, tag, &log); }
    LoggingElement* make(const char* tag) {
        return static_cast<LoggingElement*>(createElement(tok(tag)));
    }
};

/// Records the events it hears as "type:target:attribute".
class Recorder : public IDocObserver {
public:
    std::vector<std::string> heard;
    void handleEvent(DomEvent& e) override {
        std::string s = std::string(e.type().text()) + ":" + e.target()->tagName().text();
        if (auto* a = dynamic_cast<DomAttributeEvent*>(&e))
            s += std::string(":") + a->attribute().text();
        heard.push_back(s);
    }
};

} // namespace KernelTest
