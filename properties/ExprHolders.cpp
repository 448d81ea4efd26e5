#include <grafel/properties/ExprHolders.h>

#include <grafel/arbor/Document.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/PCDataElement.h>
#include <grafel/properties/detail/ExprItems.h>

#include <ostream>

namespace Grafel {

namespace detail {

long itemsAfterChange(long present, Arbor::Node* first, unsigned count, Arbor::Node* newFirst) {
    for (Arbor::Node* n = first; n && count; n = n->nextSibling(), --count) --present;
    for (Arbor::Node* n = newFirst; n; n = n->nextInChain()) {
        if (n->nodeName() != tok_IExpr) return -1;
        ++present;
    }
    return present;
}

bool firstItemBlank(const Arbor::Node* holder) {
    Arbor::Node* first = holder->firstChild();
    if (!first || first->nodeName() != tok_IExpr) return true;
    const auto* item = dynamic_cast<const PCDataElement*>(first);
    return !item || item->isEmpty(true);
}

void putCmdItems(CmdOStream& out, const Arbor::Node* holder) {
    bool first = true;
    for (Arbor::Node* n = holder->firstChild(); n; n = n->nextSibling()) {
        auto* item = dynamic_cast<PlotElement*>(n);
        if (!item) continue;
        if (!first) out << ',';
        first = false;
        item->putCmd(out);
    }
}

void replaceItemsRaw(Arbor::Node* target, const Arbor::Node* source) {
    target->replaceChildrenRaw(target->firstChild(), target->items(), nullptr);
    for (Arbor::Node* n = source->firstChild(); n; n = n->nextSibling())
        target->replaceChildrenRaw(nullptr, 0, n->cloneNode(true));
}

void appendEmptyItemsRaw(Arbor::Node* holder, unsigned count) {
    Arbor::Document* document = holder->ownerDocument();
    if (!document) return;
    for (unsigned k = 0; k < count; ++k)
        if (Arbor::Node* item = document->createElement(tok_IExpr))
            holder->replaceChildrenRaw(nullptr, 0, item);
}

} // namespace detail

template <TokenId Tag, unsigned Items>
FixedHolder<Tag, Items>::FixedHolder(Arbor::Document* document) : Element(document) {
    detail::appendEmptyItemsRaw(this, Items);
}

template <TokenId Tag, unsigned Items>
FixedHolder<Tag, Items>::FixedHolder(const FixedHolder& other) : Element(other) {
    detail::replaceItemsRaw(this, &other);
}

template <TokenId Tag, unsigned Items>
Arbor::Node* FixedHolder<Tag, Items>::cloneNode(bool deep) const {
    auto* copy = new FixedHolder(this->document_);
    if (deep) detail::replaceItemsRaw(copy, this);
    return copy;
}

template <TokenId Tag, unsigned Items>
bool FixedHolder<Tag, Items>::mayReplaceChildren(Arbor::Node* first, unsigned count,
                                                 Arbor::Node* newFirst) {
    // The present children are not counted: a holder is complete from its construction.
    return detail::itemsFit(detail::itemsAfterChange(Items, first, count, newFirst),
                            contentCount());
}

template <TokenId Tag, unsigned Items>
ChildRole FixedHolder<Tag, Items>::childRole(Arbor::Token tag) const {
    return tag == tok_IExpr ? ChildRole::Content : ChildRole::None;
}

template <TokenId Tag, unsigned Items> bool FixedHolder<Tag, Items>::isVoid() const {
    return detail::firstItemBlank(this);
}

template <TokenId Tag, unsigned Items>
std::ostream& FixedHolder<Tag, Items>::putXml(std::ostream& out) {
    return isVoid() ? out : PlotElement::putXml(out);
}

template <TokenId Tag, unsigned Items> void FixedHolder<Tag, Items>::putCmd(CmdOStream& out) {
    out.beginItem();
    out << this->nodeName() << '=';
    if (isVoid()) {
        out << "NIL";
    } else {
        out << '[';
        detail::putCmdItems(out, this);
        out << ']';
    }
    out.endItem();
}

template class FixedHolder<id_Matrix2d, 4>;
template class FixedHolder<id_Matrix3d, 9>;
template class FixedHolder<id_TextOrientation, 6>;

} // namespace Grafel
