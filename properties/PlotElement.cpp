#include <grafel/properties/PlotElement.h>

#include <grafel/arbor/DomException.h>
#include <grafel/foundation/NaN.h>
#include <grafel/properties/AfterPropertyChangeEvent.h>
#include <grafel/properties/Property.h>

#include <algorithm>
#include <cstdarg>
#include <string>

namespace Grafel {

using Arbor::DomException;
using Arbor::Token;
using Arbor::Variant;

AfterPropertyChangeEvent::AfterPropertyChangeEvent(PlotElement* element, Token name)
    : Arbor::DomAttributeEvent(element, tok_AfterPropertyChange, name) {}

void PlotElement::domError(const char* format, ...) const {
    ElementDocument* doc = plotDocument();
    if (!doc) return;
    va_list args;
    va_start(args, format);
    doc->domError(format, args);
    va_end(args);
}

void PlotElement::refuse(long code, const char* format, ...) const {
    va_list args;
    va_start(args, format);
    va_list copy;
    va_copy(copy, args);
    std::string message;
    try {
        message = formatReport(format, copy);
    } catch (...) {
        // The refusal stands without its text.
    }
    va_end(copy);
    if (ElementDocument* doc = plotDocument()) doc->domError(format, args);
    va_end(args);
    throw DomException(code, message);
}

Property* PlotElement::requireProperty(Token name) const {
    if (Property* p = propertyInfo(name)) return p;
    refuse(DomException::InvalidAccessErr, "unknown property '%s' [node '%s']\n", name.text(),
           nodeName().text());
}

ChildRole PlotElement::childRole(Token) const {
    return ChildRole::None;
}

bool PlotElement::contentOnly(Arbor::Node* newFirst) const {
    for (Arbor::Node* n = newFirst; n; n = n->nextInChain())
        if (childRole(n->nodeName()) != ChildRole::Content) return false;
    return true;
}

Property* PlotElement::propertyInfo(Token) const {
    return nullptr;
}

Variant PlotElement::getAttribute(Token name) const {
    Variant out;
    if (!requireProperty(name)->tryGet(this, out))
        throw DomException(DomException::InvalidAccessErr);
    return out;
}

bool PlotElement::hasAttribute(Token name) const {
    Property* p = propertyInfo(name);
    return p && p->isSet(this);
}

bool PlotElement::maySetAttribute(Token name, const Variant& value) {
    Property* p = propertyInfo(name);
    return p && p->checkValue(this, value);
}

bool PlotElement::mayRemoveAttribute(Token name) {
    Property* p = propertyInfo(name);
    return p && p->mayRemove(this);
}

void PlotElement::setAttributeRaw(Token name, const Variant& value) {
    requireProperty(name)->storeRaw(this, value);
}

void PlotElement::removeAttributeRaw(Token name) {
    requireProperty(name)->removeRaw(this);
}

bool PlotElement::afterSetAttribute(Arbor::Element* source, Token name) {
    return afterAttributeChange(source, name);
}

bool PlotElement::afterRemoveAttribute(Arbor::Element* source, Token name) {
    return afterAttributeChange(source, name);
}

void PlotElement::setAttributeString(Token name, const char* text) {
    requireProperty(name)->setFromString(this, text);
}

bool PlotElement::hasProperty(Token name) const {
    return propertyInfo(name) != nullptr;
}

Variant PlotElement::getProperty(Token name) const {
    return requireProperty(name)->getValue(this);
}

void PlotElement::setProperty(Token name, const Variant& value) {
    requireProperty(name)->setProperty(this, value);
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling())
        if (auto* child = PlotElement::from(n)) child->normalizeAttribute(this, name);
}

bool PlotElement::isPropertyEnabled(Token name) const {
    Property* p = propertyInfo(name);
    return p && p->isEnabled(this);
}

PlotElement* PlotElement::inheritingFrom(Token) const {
    return nullptr;
}

void PlotElement::getInheritanceChain(std::vector<PlotElement*>&) const {}

bool PlotElement::afterAttributeChange(Arbor::Element* source, Token name) {
    Property* p = propertyInfo(name);
    return p && p->afterChange(this, source);
}

void PlotElement::normalizeAttribute(Arbor::Element*, Token) {}

void PlotElement::normalizeAttributes() {}

void PlotElement::fixupTree() {
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling())
        if (auto* child = PlotElement::from(n)) child->fixupTree();
}

void PlotElement::putCmd(CmdOStream&) {}

void PlotElement::getNextAnimationTime(double, bool, double&) {}

double PlotElement::getFrameTime(double, double, double, double) {
    return NaN();
}

bool PlotElement::inheritingElement(Arbor::Element* element, Token name) const {
    for (PlotElement* p = inheritingFrom(name); p; p = p->inheritingFrom(name))
        if (p == element) return true;
    return false;
}

void PlotElement::propagateAfterAttributeChange(Arbor::Element* source, Token name) {
    if (!afterAttributeChange(source, name)) return;
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling())
        if (auto* child = PlotElement::from(n)) child->propagateAfterAttributeChange(source, name);
}

void PlotElement::fireAfterPropertyChange(Token name) {
    if (!document_ || !document_->hasObservers()) return;
    if (ElementDocument* doc = plotDocument(); !doc->removals_.empty()) {
        if (ElementDocument::Removal* r = doc->gathering_) {
            if (r->name == name) r->followers.emplace_back(this);
            return;
        }
        const ElementDocument::Removal& r = doc->removals_.back();
        if (r.name == name && std::binary_search(r.sorted.begin(), r.sorted.end(), this))
            return; // told when the removal ends
    }
    AfterPropertyChangeEvent event(this, name);
    document_->fireEvent(event);
}

void PlotElement::beforeRemoval(Token name) {
    ElementDocument* doc = plotDocument();
    if (!doc) return;
    ElementDocument::Removal& r = doc->removals_.emplace_back();
    r.name = name;
    // With the value gone, inheritingElement() no longer sees the way through this element, so
    // the question is asked now, by the walk that a set of the value here would run.
    if (!doc->hasObservers() || !hasAttribute(name)) return;
    struct Gathering { // a walk that throws leaves neither the gathering nor the entry behind
        ElementDocument* doc;
        bool done = false;
        ~Gathering() {
            doc->gathering_ = nullptr;
            if (!done) doc->removals_.pop_back();
        }
    } gathering{doc};
    doc->gathering_ = &r;
    propagateAfterAttributeChange(this, name);
    gathering.done = true;
    // Once each, in the order found.
    auto& f = r.followers;
    for (const auto& e : f) r.sorted.push_back(e.get());
    std::sort(r.sorted.begin(), r.sorted.end());
    r.sorted.erase(std::unique(r.sorted.begin(), r.sorted.end()), r.sorted.end());
    if (r.sorted.size() != f.size()) {
        std::vector<bool> taken(r.sorted.size());
        std::erase_if(f, [&](const Arbor::Ref<Arbor::Element>& e) {
            const auto at = std::lower_bound(r.sorted.begin(), r.sorted.end(), e.get());
            const size_t k = size_t(at - r.sorted.begin());
            if (taken[k]) return true;
            taken[k] = true;
            return false;
        });
    }
}

void PlotElement::afterRemoval(Token) {
    ElementDocument* doc = plotDocument();
    if (!doc || doc->removals_.empty()) return;
    ElementDocument::Removal r = std::move(doc->removals_.back());
    doc->removals_.pop_back();
    for (const auto& e : r.followers)
        static_cast<PlotElement*>(e.get())->fireAfterPropertyChange(r.name);
}

void PlotElement::removalAbandoned(Token) noexcept {
    if (ElementDocument* doc = plotDocument(); doc && !doc->removals_.empty())
        doc->removals_.pop_back();
}

void PlotElement::replaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) {
    Arbor::Node::replaceChildren(first, count, newFirst);
}

void PlotElement::afterReplaceChildren(Arbor::Node* newFirst, unsigned count) {
    Arbor::Node* n = newFirst;
    for (unsigned k = 0; k < count && n; ++k, n = n->nextSibling())
        if (auto* element = PlotElement::from(n)) element->normalizeAttributes();
}

} // namespace Grafel
