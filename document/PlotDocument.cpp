#include <grafel/document/PlotDocument.h>

#include <grafel/arbor/Range.h>
#include <grafel/document/ZpxDialect.h>
#include <grafel/foundation/CmdOStream.h>
#include <grafel/foundation/NaN.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/properties/PlotElement.h>

#include <cmath>
#include <ostream>
#include <vector>

namespace Grafel {

using Arbor::Element;
using Arbor::Node;
using Arbor::Token;

PlotDocument::PlotDocument() {
    setXmlNamespace(zpxNamespaceUri);
}

PlotDocument::~PlotDocument() = default;

namespace {
// Set once while the library loads, before any caller can ask.
PlotDocument::StdObjTypeLookup stdObjTypeLookup = nullptr;
} // namespace

PlotElement* PlotDocument::getStdObjType(Token type) {
    return stdObjTypeLookup ? stdObjTypeLookup(type) : nullptr;
}

void PlotDocument::setStdObjTypeLookup(StdObjTypeLookup lookup) noexcept {
    stdObjTypeLookup = lookup;
}

void PlotDocument::fixupTree() {
    if (PlotElement* root = PlotElement::from(documentElement())) root->fixupTree();
}

void PlotDocument::putCmd(std::ostream& out, bool replot) {
    PlotElement* root = PlotElement::from(documentElement());
    if (!root) return;
    Token units = tok_MM;
    if (root->hasAttribute(tok_OutputUnits)) {
        const Arbor::Variant unit = root->getAttribute(tok_OutputUnits);
        if (auto* token = unit.as<Arbor::TokenVariant>()) units = token->val();
    }
    CmdOStream cmd(out, units);
    out << (replot ? "plot::replot(" : "plot(") << "\r\n";
    root->putCmd(cmd);
    out << "):";
}

void PlotDocument::selectElement(Element* element) {
    if (!element) {
        deselect();
        return;
    }
    Arbor::Range* range = firstSelectedRange();
    if (!range) range = createRange(true);
    range->selectNode(element);
}

bool PlotDocument::selectElementId(const Tessel::FixedStringBase<char>& id) {
    if (id.empty()) {
        deselect();
        return false;
    }
    // Depth first, parents before children, children in document order.
    Element* match = nullptr;
    std::vector<Node*> stack;
    if (Element* root = documentElement()) stack.push_back(root);
    while (!stack.empty() && !match) {
        Element* e = stack.back()->asElement();
        stack.pop_back();
        if (!e) continue;
        if (e->hasAttribute(tok_id)) {
            const Arbor::Variant v = e->getAttribute(tok_id);
            if (auto* s = v.as<Arbor::FixedStringVariant>(); s && s->val() == id) {
                match = e;
                break;
            }
        }
        for (Node* n = e->lastChild(); n; n = n->previousSibling()) stack.push_back(n);
    }
    selectElement(match);
    return match != nullptr;
}

Element* PlotDocument::selectedElement() {
    Arbor::Range* range = firstSelectedRange();
    if (!range) return nullptr;
    Node* start = range->startContainer();
    if (!start || start != range->endContainer() || range->endOffset() != range->startOffset() + 1)
        return nullptr;
    Node* child = start->findChild(range->startOffset());
    return child ? child->asElement() : nullptr;
}

void PlotDocument::deselect() {
    if (Arbor::Range* range = firstSelectedRange()) range->collapse(true);
}

bool PlotDocument::canDeleteSelection() {
    Element* e = selectedElement();
    if (!e) return false;
    const Token tag = e->tagName();
    if (tag == tok_Canvas) return false;
    if (tag == tok_Scene2d || tag == tok_Scene3d || tag == tok_CoordinateSystem2d ||
        tag == tok_CoordinateSystem3d) {
        Node* parent = e->parentNode();
        if (!parent) return false;
        for (Node* n = parent->firstChild(); n; n = n->nextSibling())
            if (n != e && n->nodeName() == tag) return true;
        return false;
    }
    return true;
}

void PlotDocument::deleteSelection() {
    if (!canDeleteSelection()) return;
    Arbor::Ref<Element> element(selectedElement());
    if (!element) return;
    Arbor::Ref<Node> parent(element->parentNode());
    if (!parent) return;
    newUndoTask();
    parent->removeChild(element.get());
    // Every element above that keeps a Consistent flag is no longer consistent.
    for (Node* n = parent.get(); n && n->asElement(); n = n->parentNode()) {
        Element* up = n->asElement();
        if (!up->hasAttribute(tok_Consistent)) continue;
        const Arbor::Variant flag = up->getAttribute(tok_Consistent);
        auto* value = flag.as<Arbor::BoolVariant>();
        if (!value || value->val()) up->setAttribute(tok_Consistent, Arbor::BoolVariant(false));
    }
    newUndoTask();
}

void PlotDocument::setCurrentAnimationTime(double time) {
    if (Element* root = documentElement())
        root->setAttribute(tok_CurrentTime, Arbor::DoubleVariant(time));
}

double PlotDocument::getInitialAnimationTime() {
    PlotElement* root = PlotElement::from(documentElement());
    if (!root || !root->hasProperty(tok_CurrentTime)) return NaN();
    auto time = [root](Token name) {
        const Arbor::Variant v = root->getProperty(name);
        auto* d = v.as<Arbor::DoubleVariant>();
        return d ? d->val() : NaN();
    };
    const double current = time(tok_CurrentTime);
    return std::isnan(current) ? time(tok_InitialTime) : current;
}

double PlotDocument::getNextAnimationTime(double time, bool backward) {
    double best = NaN();
    if (PlotElement* root = PlotElement::from(documentElement()))
        root->getNextAnimationTime(time, backward, best);
    return best;
}

} // namespace Grafel
