// Base of the graphic primitives (and lights, cameras, clipping boxes, point lists): childless
// elements of the member family that inherit their style from the object above their image.
#pragma once

#include <grafel/properties/PlotElement.h>

namespace Grafel {

/// Accepts no children at all. Inherits from its parent's parent (the object above the image
/// that holds it): that element when it holds the value, else whatever that element inherits
/// from; the chain is that element followed by its own chain.
class PrimitiveBase : public PlotElement {
public:
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    PlotElement* inheritingFrom(Arbor::Token name) const override;
    /// A primitive holds no styles or objects; one given children behind the checks (a raw
    /// store) no longer counts as a leaf.
    bool isContentLeaf() const override { return !firstChild(); }
    void getInheritanceChain(std::vector<PlotElement*>& chain) const override;

    PrimitiveBase(const PrimitiveBase& other) = default;

protected:
    explicit PrimitiveBase(Arbor::Document* document) : PlotElement(document) {}

private:
    /// The parent's parent, when it is a plot element.
    PlotElement* source() const;
};

} // namespace Grafel
