// The base of the elements whose content is text: an expression or a string of the host
// system, kept in Text children and written out without ever being looked into.
#pragma once

#include <grafel/properties/PlotElement.h>

namespace Grafel {

/// An element whose content is text. A child change is checked on the head of the incoming
/// chain only: a reader hands the text over one node at a time, and a chain built by hand is
/// trusted past its first node.
class PCDataElement : public PlotElement {
public:
    PCDataElement(const PCDataElement& other) = default;
    PCDataElement& operator=(const PCDataElement&) = default;

    /// Refuses, with a report, a chain whose first node is not a Text.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    bool takesText() const override { return true; }

    /// True when the element holds no text: no children, or only Text children whose
    /// characters are all blanks (code 32 or below) with `ignoreBlank`, or that are empty
    /// without it. Any child that is not a Text makes it non-empty.
    bool isEmpty(bool ignoreBlank) const;
    /// Writes the text of each Text child in UTF-8 as it stands: no escaping, no separator.
    void putCmdPCData(CmdOStream& out) const;

protected:
    explicit PCDataElement(Arbor::Document* document) : PlotElement(document) {}

    /// The value form of a named expression: "(" text ")", or "NIL" when the text is blank.
    void putCmdExprValue(CmdOStream& out) const;
    /// The item of a named expression: `name`, "=", then the value form.
    void putCmdNamedExpr(CmdOStream& out, Arbor::Token name) const;
};

} // namespace Grafel
