// One explicit tick of an axis: its position as a value expression, with an optional label.
#pragma once

#include <grafel/properties/ContentPlotElement.h>
#include <grafel/properties/OptionChildTable.h>

namespace Grafel {

/// A child of XTicksAt, YTicksAt or ZTicksAt. It holds exactly one VExpr (the position), made
/// with it, and at most one Title (the label); nothing else. Its command item is the position,
/// or "(position)=" and the quoted label when there is one.
class TickPos : public OptionedPlotElement {
public:
    /// Copies the children, so that the copy has its position too.
    TickPos(const TickPos& other);

    Arbor::Token tagName() const override;
    /// A new tick with an empty position; `deep` puts clones of the children in its place.
    Arbor::Node* cloneNode(bool deep) const override;
    void putCmd(CmdOStream& out) override;

    /// A new tick for `document`, with its VExpr; the caller takes the first reference.
    static PlotElement* create(Arbor::Document* document);

protected:
    /// Makes the VExpr child at once, without a check or an event.
    explicit TickPos(Arbor::Document* document);

    bool allowedContentChild(Arbor::Token) const override { return false; }
    int tagNameToOptionChildFlag(Arbor::Token tag) const override {
        return optionChildFlags.flagOf(tag);
    }
    int allowedOptionChildren() const override { return optionChildFlags.all(); }
    /// The VExpr: it may be exchanged for another, not taken away.
    int mandatoryOptionChildren() const override { return optionChildFlags.mask(id_VExpr); }

    /// The value and the label of a tick.
    static constexpr OptionChildTable optionChildFlags{{{id_VExpr, 1}, {id_Title, 2}}};
};

} // namespace Grafel
