// A point of a plot object given by expressions: its coordinates, then optionally the
// components of its colour. Point2d and its 3D twin Point3d.
#pragma once

#include <grafel/properties/PlotElement.h>

namespace Grafel {

/// The shared part of Point2d and Point3d: IExpr children only, the coordinates first and at
/// most four more. It has no properties.
class SymbolicPoint : public PlotElement {
public:
    /// Allows a change after which the point has IExpr children only, at least as many as it
    /// has coordinates and at most four more. Refuses without a report.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    ChildRole childRole(Arbor::Token tag) const override {
        return tag == tok_IExpr ? ChildRole::Content : ChildRole::None;
    }
    ChildCount contentCount() const override;
    /// An item "[x,y]", with the further expressions as a nested list: "[x,y,[r,g,b]]".
    void putCmd(CmdOStream& out) override;

    /// The number of coordinates: 2 or 3.
    unsigned coordinates() const { return coordinates_; }

    /// Clones the expressions, so that the copy is as complete as the original.
    SymbolicPoint(const SymbolicPoint& other);

protected:
    /// A point with one empty IExpr for each coordinate, attached with no check or event.
    SymbolicPoint(Arbor::Document* document, unsigned coordinates);
    /// Completes a new point made by cloneNode: for `deep`, clones of this point's children
    /// take the place of the empty expressions it was made with.
    Arbor::Node* completeClone(SymbolicPoint* copy, bool deep) const;

private:
    unsigned coordinates_;
};

/// A point of a 2D object: two coordinates, up to four colour components.
class Point2d final : public SymbolicPoint {
public:
    Arbor::Token tagName() const override;
    /// A new point; `deep` puts clones of the expressions in place of its empty ones.
    Arbor::Node* cloneNode(bool deep) const override;
    /// A new point for `document`; the caller takes the first reference.
    static PlotElement* create(Arbor::Document* document);

protected:
    explicit Point2d(Arbor::Document* document) : SymbolicPoint(document, 2) {}
};

/// A point of a 3D object: three coordinates, up to four colour components.
class Point3d final : public SymbolicPoint {
public:
    Arbor::Token tagName() const override;
    /// A new point; `deep` puts clones of the expressions in place of its empty ones.
    Arbor::Node* cloneNode(bool deep) const override;
    /// A new point for `document`; the caller takes the first reference.
    static PlotElement* create(Arbor::Document* document);

protected:
    explicit Point3d(Arbor::Document* document) : SymbolicPoint(document, 3) {}
};

} // namespace Grafel
