#include <grafel/arbor/Document.h>

#include <grafel/arbor/DocumentFragment.h>
#include <grafel/arbor/DomException.h>
#include <grafel/arbor/Text.h>
#include <grafel/arbor/detail/DocumentState.h>

#include <algorithm>
#include <ostream>

namespace Arbor {

Document::Document() : InnerNode(nullptr), state_(std::make_unique<State>()) {
    document_ = this;
}

Document::Document(const Document& other) : InnerNode(other), state_(std::make_unique<State>()) {
    document_ = this;
    state_->xmlNamespace = other.state_->xmlNamespace;
}

Document& Document::operator=(const Document& other) {
    if (this != &other) state_->xmlNamespace = other.state_->xmlNamespace;
    return *this;
}

Document::~Document() {
    Document::tearDown();
}

Node* Document::cloneNode(bool) const {
    throw DomException(DomException::NotSupportedErr);
}

Token Document::nodeName() const {
    static const Token name("#document", false);
    return name;
}

std::ostream& Document::putXml(std::ostream& out) {
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    for (Node* n = firstChild(); n; n = n->nextSibling()) n->putXml(out);
    return out << '\n';
}

Element* Document::documentElement() const {
    for (Node* n = firstChild(); n; n = n->nextSibling())
        if (Element* e = n->asElement()) return e;
    return nullptr;
}

Text* Document::createTextNode(const wchar_t* data) {
    return new Text(this, data);
}

DocumentFragment* Document::createDocumentFragment() {
    return new DocumentFragment(this);
}

void Document::setXmlNamespace(std::string uri) {
    state_->xmlNamespace = std::move(uri);
}

const std::string& Document::xmlNamespace() const {
    return state_->xmlNamespace;
}

void Document::tearDown() {
    state_->ranges.clear();
    state_->held.clear();
    state_->heldKeys.clear();
    state_->openTask.clear();
    state_->undoStack.clear();
    state_->redoStack.clear();
    state_->recording = false;
    releaseChildren();
}

// ---- Observers and events -------------------------------------------------------------------

void Document::addObserver(IDocObserver* observer, Token type) {
    if (!observer || type.isNull()) return;
    state_->observers.push_back({observer, type});
    hasObservers_ = true;
}

void Document::addObserver(IDocObserver* observer) {
    if (!observer) return;
    state_->observers.push_back({observer, Token()});
    hasObservers_ = true;
}

void Document::removeObserver(IDocObserver* observer, Token type) {
    state_->dropObservers(
        [&](const State::Observer& o) { return o.observer == observer && o.type == type; });
    hasObservers_ = observed();
}

void Document::removeObserver(IDocObserver* observer) {
    state_->dropObservers([&](const State::Observer& o) { return o.observer == observer; });
    hasObservers_ = observed();
}

bool Document::observed() const {
    for (const auto& o : state_->observers)
        if (o.observer) return true;
    return false;
}

bool Document::observed(Token type) const {
    for (const auto& o : state_->observers)
        if (o.observer && (o.type.isNull() || o.type == type)) return true;
    return false;
}

void Document::deliver(DomEvent& event) {
    State& s = *state_;
    struct Scope {
        State& s;
        explicit Scope(State& state) : s(state) { ++s.delivering; }
        ~Scope() {
            --s.delivering;
            s.compactObservers();
        }
    } scope(s);
    // Observers added during the delivery hear the next event, not this one.
    const size_t count = s.observers.size();
    for (size_t i = 0; i < count; ++i)
        if (s.observers[i].observer && s.observers[i].type == event.type())
            s.observers[i].observer->handleEvent(event);
    for (size_t i = 0; i < count; ++i)
        if (s.observers[i].observer && s.observers[i].type.isNull())
            s.observers[i].observer->handleEvent(event);
}

void Document::fireEvent(DomEvent& event) {
    if (!observed(event.type())) return;
    if (state_->batchDepth > 0) {
        const Token key = event.coalescingKey();
        if (!key.isNull() && !state_->heldKeys.insert({event.target(), event.type(), key}).second)
            return;
        state_->held.push_back({Ref<Element>(event.target()), event.clone(), nullptr});
        return;
    }
    deliver(event);
}

// ---- Batches and deferred functions ---------------------------------------------------------

void Document::beginBatchChanges() {
    ++state_->batchDepth;
}

void Document::endBatchChanges() {
    State& s = *state_;
    if (s.batchDepth == 0 || --s.batchDepth > 0) return;
    std::vector<State::Held> held;
    held.swap(s.held);
    s.heldKeys.clear();
    for (auto& h : held) {
        if (h.event)
            deliver(*h.event);
        else if (h.function)
            h.function->run();
    }
}

int Document::batchDepth() const {
    return state_->batchDepth;
}

void Document::postFunction(Functor* function) {
    std::unique_ptr<Functor> owned(function);
    if (!owned) return;
    if (state_->batchDepth > 0) {
        state_->held.push_back({Ref<Element>(), nullptr, std::move(owned)});
        return;
    }
    owned->run();
}

// ---- Ranges ---------------------------------------------------------------------------------

Range* Document::createRange(bool selected) {
    state_->ranges.push_back(std::unique_ptr<Range>(new Range(this, selected)));
    return state_->ranges.back().get();
}

Range* Document::firstSelectedRange() const {
    for (const auto& r : state_->ranges)
        if (r->selected()) return r.get();
    return nullptr;
}

void Document::deleteRange(Range* range) {
    std::erase_if(state_->ranges, [range](const auto& r) { return r.get() == range; });
}

bool Document::hasRanges() const {
    return !state_->ranges.empty();
}

void Document::adjustRanges(InnerNode* parent, unsigned index, Node* removedFirst, unsigned removed,
                            unsigned inserted) {
    // Whether `container` now lies in one of the removed subtrees.
    auto wasRemoved = [&](Node* container) {
        Node* top = container;
        while (top->parentNode()) top = top->parentNode();
        Node* n = removedFirst;
        for (unsigned k = 0; k < removed && n; ++k, n = n->nextSibling())
            if (n == top) return true;
        return false;
    };
    auto adjust = [&](Node*& container, unsigned& offset) {
        if (removedFirst && wasRemoved(container)) {
            container = parent;
            offset = index;
        } else if (container == parent) {
            if (offset > index + removed)
                offset = offset - removed + inserted;
            else if (offset > index)
                offset = index;
        }
    };
    for (auto& r : state_->ranges) {
        adjust(r->start_, r->startOffset_);
        adjust(r->end_, r->endOffset_);
    }
}

} // namespace Arbor
