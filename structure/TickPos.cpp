#include <grafel/structure/TickPos.h>

#include <grafel/arbor/Document.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/TextElements.h>

namespace Grafel {

using Arbor::Node;
using Arbor::Token;

namespace {

/// Drops the children of `target` and puts deep clones of those of `source` in their place,
/// all raw: the children a tick was made with would otherwise stand twice.
void replaceChildrenByClonesRaw(Node* target, const Node* source) {
    target->replaceChildrenRaw(target->firstChild(), target->items(), nullptr);
    for (Node* n = source->firstChild(); n; n = n->nextSibling())
        target->replaceChildrenRaw(nullptr, 0, n->cloneNode(true));
}

} // namespace

GRAFEL_REGISTER_ELEMENT_CLASS(TickPos, OptionedPlotElement);

TickPos::TickPos(Arbor::Document* document) : OptionedPlotElement(document) {
    if (document)
        if (Node* value = document->createElement(tok_VExpr)) replaceChildrenRaw(nullptr, 0, value);
}

TickPos::TickPos(const TickPos& other) : OptionedPlotElement(other) {
    replaceChildrenByClonesRaw(this, &other);
}

PlotElement* TickPos::create(Arbor::Document* document) {
    return new TickPos(document);
}

Token TickPos::tagName() const {
    return tok_TickPos;
}

Node* TickPos::cloneNode(bool deep) const {
    auto* copy = new TickPos(document_);
    if (deep) replaceChildrenByClonesRaw(copy, this);
    return copy;
}

void TickPos::putCmd(CmdOStream& out) {
    out.beginItem();
    if (PlotElement* value = PlotElement::from(findChild(tok_VExpr))) {
        auto* title = dynamic_cast<StringElement*>(findChild(tok_Title));
        if (title) out << '(';
        value->putCmd(out);
        if (title) {
            out << ")=";
            title->putCmdString(out);
        }
    }
    out.endItem();
}

} // namespace Grafel
