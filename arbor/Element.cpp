#include <grafel/arbor/Element.h>

#include <grafel/arbor/Document.h>
#include <grafel/arbor/DomException.h>

#include <algorithm>
#include <ostream>
#include <vector>

namespace Arbor {

std::ostream& Element::putXml(std::ostream& out) {
    const Token tag = tagName();
    out << '<' << tag;
    if (parent_ && parent_ == document_ && !document_->xmlNamespace().empty())
        out << " xmlns=\"" << document_->xmlNamespace() << '"';
    putAttributesXml(out);
    out << '>';
    for (Node* n = firstChild(); n; n = n->nextSibling()) n->putXml(out);
    return out << "</" << tag << '>';
}

Variant Element::getAttribute(Token) const {
    return Variant();
}
bool Element::hasAttribute(Token) const {
    return false;
}
bool Element::maySetAttribute(Token, const Variant&) {
    return false;
}
bool Element::mayRemoveAttribute(Token) {
    return false;
}
void Element::setAttributeRaw(Token, const Variant&) {}
void Element::removeAttributeRaw(Token) {}
bool Element::beforeSetAttribute(Element*, Token, const Variant&) {
    return true;
}
bool Element::afterSetAttribute(Element*, Token) {
    return true;
}
bool Element::beforeRemoveAttribute(Element*, Token) {
    return true;
}
bool Element::afterRemoveAttribute(Element*, Token) {
    return true;
}
void Element::beforeRemoval(Token) {}
void Element::afterRemoval(Token) {}
void Element::removalAbandoned(Token) noexcept {}
std::ostream& Element::putAttributesXml(std::ostream& out) {
    return out;
}

void Element::setAttribute(Token name, const Variant& value) {
    if (readOnly()) throw DomException(DomException::NoModificationAllowedErr);
    if (!maySetAttribute(name, value) || !beforeSetAttribute(this, name, value))
        throw DomException(DomException::InvalidAccessErr);
    if (document_ && document_->recordingUndo()) {
        const bool had = hasAttribute(name);
        document_->recordAttribute(this, name, had, had ? getAttribute(name) : Variant(), true,
                                   value);
    }
    setAttributeRaw(name, value);
    if (document_) document_->noteChangeOf(this, name);
    walkAfterSet(this, name);
}

void Element::removeAttribute(Token name) {
    if (readOnly()) throw DomException(DomException::NoModificationAllowedErr);
    if (!mayRemoveAttribute(name) || !beforeRemoveAttribute(this, name))
        throw DomException(DomException::InvalidAccessErr);
    if (document_ && document_->recordingUndo()) {
        const bool had = hasAttribute(name);
        document_->recordAttribute(this, name, had, had ? getAttribute(name) : Variant(), false,
                                   Variant());
    }
    removeAndWalk(name);
}

void Element::removeAndWalk(Token name) {
    beforeRemoval(name);
    // A walk that throws (an observer may) must not leave what beforeRemoval() set up behind.
    struct Abandon {
        Element* element;
        Token name;
        bool ended = false;
        ~Abandon() {
            if (!ended) element->removalAbandoned(name);
        }
    } abandon{this, name};
    removeAttributeRaw(name);
    if (document_) document_->noteChangeOf(this, name);
    walkAfterRemove(this, name);
    abandon.ended = true;
    afterRemoval(name);
}

namespace {

// The after walk: `hook` on `top`, and while it answers true, on the child elements below.
// Kept iterative so that the depth of a tree does not matter.
template <class Hook> void walkDown(Element* top, Hook hook) {
    if (!hook(top)) return;
    std::vector<Element*> stack;
    auto pushChildren = [&stack](Element* e) {
        const size_t mark = stack.size();
        for (Node* n = e->firstChild(); n; n = n->nextSibling())
            if (Element* child = n->asElement()) stack.push_back(child);
        std::reverse(stack.begin() + mark, stack.end()); // visit in document order
    };
    pushChildren(top);
    while (!stack.empty()) {
        Element* e = stack.back();
        stack.pop_back();
        if (hook(e)) pushChildren(e);
    }
}

} // namespace

void Element::walkAfterSet(Element* source, Token name) {
    walkDown(this, [source, name](Element* e) { return e->afterSetAttribute(source, name); });
}

void Element::walkAfterRemove(Element* source, Token name) {
    walkDown(this, [source, name](Element* e) { return e->afterRemoveAttribute(source, name); });
}

} // namespace Arbor
