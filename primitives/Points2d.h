// The symbolic points of a plot object, as an option child of the object: Points2d holds
// Point2d children, its 3D twin Points3d holds Point3d children.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/PlotElement.h>

namespace Grafel {

/// The shared part of Points2d and Points3d: children of one tag only, any number of them.
/// It has no properties.
class SymbolicPoints : public PlotElement {
public:
    /// Allows a change that brings in only points of the list's own kind; refuses without a
    /// report.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    ChildRole childRole(Arbor::Token tag) const override {
        return tag == pointTag() ? ChildRole::Content : ChildRole::None;
    }
    /// An item: the tag, "=", then "[", a line break, the points and "]"; or "NIL" when empty.
    void putCmd(CmdOStream& out) override;

    SymbolicPoints(const SymbolicPoints& other) = default;

protected:
    explicit SymbolicPoints(Arbor::Document* document) : PlotElement(document) {}
    /// The tag of the children.
    virtual Arbor::Token pointTag() const = 0;
};

/// The points of a 2D object.
class Points2d final : public ElementClass<Points2d, id_Points2d, SymbolicPoints> {
    friend ElementClass;

protected:
    explicit Points2d(Arbor::Document* document) : ElementClass(document) {}
    Arbor::Token pointTag() const override { return tok_Point2d; }
};

/// The points of a 3D object.
class Points3d final : public ElementClass<Points3d, id_Points3d, SymbolicPoints> {
    friend ElementClass;

protected:
    explicit Points3d(Arbor::Document* document) : ElementClass(document) {}
    Arbor::Token pointTag() const override { return tok_Point3d; }
};

} // namespace Grafel
