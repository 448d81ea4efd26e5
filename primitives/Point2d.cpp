#include <grafel/primitives/Point2d.h>

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/detail/ExprItems.h>

namespace Grafel {

namespace {

/// Beside the coordinates, a point takes at most the four components of a colour.
constexpr unsigned maxColorItems = 4;

} // namespace

SymbolicPoint::SymbolicPoint(Arbor::Document* document, unsigned coordinates)
    : PlotElement(document), coordinates_(coordinates) {
    detail::appendEmptyItemsRaw(this, coordinates);
}

SymbolicPoint::SymbolicPoint(const SymbolicPoint& other)
    : PlotElement(other), coordinates_(other.coordinates_) {
    detail::replaceItemsRaw(this, &other);
}

Arbor::Node* SymbolicPoint::completeClone(SymbolicPoint* copy, bool deep) const {
    if (deep) detail::replaceItemsRaw(copy, this);
    return copy;
}

bool SymbolicPoint::mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) {
    return detail::itemsFit(detail::itemsAfterChange(items(), first, count, newFirst),
                            contentCount());
}

ChildCount SymbolicPoint::contentCount() const {
    return {coordinates_, coordinates_ + maxColorItems};
}

void SymbolicPoint::putCmd(CmdOStream& out) {
    out.beginItem();
    out << '[';
    unsigned index = 0;
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling()) {
        PlotElement* item = PlotElement::from(n);
        if (!item) continue;
        if (index > 0) out << (index == coordinates_ ? ",[" : ",");
        item->putCmd(out);
        ++index;
    }
    out << (index > coordinates_ ? "]]" : "]");
    out.endItem();
}

Arbor::Token Point2d::tagName() const {
    return tok_Point2d;
}

Arbor::Node* Point2d::cloneNode(bool deep) const {
    return completeClone(new Point2d(document_), deep);
}

PlotElement* Point2d::create(Arbor::Document* document) {
    return new Point2d(document);
}

Arbor::Token Point3d::tagName() const {
    return tok_Point3d;
}

Arbor::Node* Point3d::cloneNode(bool deep) const {
    return completeClone(new Point3d(document_), deep);
}

PlotElement* Point3d::create(Arbor::Document* document) {
    return new Point3d(document);
}

GRAFEL_REGISTER_ELEMENT_CLASS(Point2d, SymbolicPoint);
GRAFEL_REGISTER_ELEMENT_CLASS(Point3d, SymbolicPoint);

} // namespace Grafel
