#include <grafel/properties/ExprHolders.h>

#include <grafel/arbor/Document.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/PCDataElement.h>
#include <grafel/properties/detail/ExprItems.h>

#include <ostream>

namespace Grafel {

namespace detail {

bool allIncomingNamed(Arbor::Node* newFirst, Arbor::Token tag) {
    for (Arbor::Node* n = newFirst; n; n = n->nextInChain())
        if (n->nodeName() != tag) return false;
    return true;
}

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

/// The definitions of a holder declared with GRAFEL_FIXED_HOLDER_CLASS that keeps `Items`
/// entries.
#define GRAFEL_DEFINE_FIXED_HOLDER(Class, Items)                                                   \
    Class::Class(Arbor::Document* document) : PlotElement(document) {                              \
        detail::appendEmptyItemsRaw(this, Items);                                                  \
    }                                                                                              \
    Class::Class(const Class& other) : PlotElement(other) {                                        \
        detail::replaceItemsRaw(this, &other);                                                     \
    }                                                                                              \
    Arbor::Token Class::tagName() const {                                                          \
        return tok_##Class;                                                                        \
    }                                                                                              \
    Arbor::Node* Class::cloneNode(bool deep) const {                                               \
        auto* copy = new Class(document_);                                                         \
        if (deep) detail::replaceItemsRaw(copy, this);                                             \
        return copy;                                                                               \
    }                                                                                              \
    PlotElement* Class::create(Arbor::Document* document) {                                        \
        return new Class(document);                                                                \
    }                                                                                              \
    bool Class::mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) {    \
        /* The present children are not counted: a holder is complete from its construction. */    \
        return detail::itemsAfterChange(Items, first, count, newFirst) == (Items);                 \
    }                                                                                              \
    bool Class::isVoid() const {                                                                   \
        return detail::firstItemBlank(this);                                                       \
    }                                                                                              \
    std::ostream& Class::putXml(std::ostream& out) {                                               \
        return isVoid() ? out : PlotElement::putXml(out);                                          \
    }                                                                                              \
    void Class::putCmd(CmdOStream& out) {                                                          \
        out.beginItem();                                                                           \
        out << nodeName() << '=';                                                                  \
        if (isVoid()) {                                                                            \
            out << "NIL";                                                                          \
        } else {                                                                                   \
            out << '[';                                                                            \
            detail::putCmdItems(out, this);                                                        \
            out << ']';                                                                            \
        }                                                                                          \
        out.endItem();                                                                             \
    }                                                                                              \
    GRAFEL_REGISTER_ELEMENT_CLASS(Class)

GRAFEL_DEFINE_FIXED_HOLDER(Matrix2d, 4);
GRAFEL_DEFINE_FIXED_HOLDER(Matrix3d, 9);
GRAFEL_DEFINE_FIXED_HOLDER(TextOrientation, 6);

} // namespace Grafel
