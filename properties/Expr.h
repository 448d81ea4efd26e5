// Expressions that an object states under an option name (its function, a range, a colour
// function), and the sequences of such expressions.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/PCDataElement.h>
#include <grafel/properties/SoleAttributeElement.h>

namespace Grafel {

/// Expr's one attribute, Opt: a token, null until set.
struct OptAttribute {
    using Value = Arbor::Token;
    using Holder = Arbor::TokenVariant;
    static Arbor::Token name() { return tok_Opt; }
    static Arbor::Token none() { return {}; }
    static Property* descriptor();
};

/// An expression text stated for the option Opt of the element above, written as the item
/// Opt=(text). It has no descriptor table: Opt, a token that can be set but never removed, is
/// its only attribute.
class Expr : public SoleAttributeElement<ElementClass<Expr, id_Expr, PCDataElement>, OptAttribute> {
    friend ElementClass;

public:
    Expr(const Expr& other) = default;

    /// The option name; null until set.
    Arbor::Token getOpt() const { return value_; }

    /// Interns the text as the option name. An empty text or another name reports and throws
    /// DomException 15.
    void setAttributeString(Arbor::Token name, const char* text) override;
    /// An item: Opt, "=", then "(" text ")" or "NIL".
    void putCmd(CmdOStream& out) override;

protected:
    explicit Expr(Arbor::Document* document) : SoleAttributeElement(document) {}

    /// ` Opt="token"`, always.
    std::ostream& putAttributesXml(std::ostream& out) override;
};

/// A list of expressions, such as contour levels: IExpr children only, any number of them.
class ExprSeq : public ElementClass<ExprSeq, id_ExprSeq, Expr> {
    friend ElementClass;

public:
    ExprSeq(const ExprSeq& other) = default;

    /// Every new child must be an IExpr; refuses without a report.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    ChildRole childRole(Arbor::Token tag) const override;
    bool takesText() const override { return false; }
    /// An item: Opt, "=", then "[" the children separated by "," "]", or "NIL" without
    /// children.
    void putCmd(CmdOStream& out) override;

protected:
    explicit ExprSeq(Arbor::Document* document) : ElementClass(document) {}
};

/// A colour given as one to four expressions (a function, or the components). It is made
/// with one empty IExpr and never holds fewer than one or more than four; with a blank first
/// entry it counts as not given and writes no XML.
class ColorFunc : public Expr {
public:
    ::Arbor::Token tagName() const override;
    /// A new ColorFunc with one empty entry; `deep` puts clones of the entries in its place.
    ::Arbor::Node* cloneNode(bool deep) const override;
    /// A new element for `document`; the caller takes the first reference.
    static PlotElement* create(Arbor::Document* document);
    /// Copies the option and clones the entries.
    ColorFunc(const ColorFunc& other);

    /// Counts from the present entries; the result must lie in 1 to 4, and every new child
    /// must be an IExpr. Refuses without a report.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    ChildRole childRole(Arbor::Token tag) const override;
    ChildCount contentCount() const override;
    bool takesText() const override { return false; }
    /// Nothing when void, else the kernel's form.
    std::ostream& putXml(std::ostream& out) override;
    /// An item: Opt, "=", then the entries separated by ",", in "(" ")" for one entry and in
    /// "[" "]" for more, or "NIL" when void.
    void putCmd(CmdOStream& out) override;

protected:
    explicit ColorFunc(Arbor::Document* document);

    /// No first child, a first child that is no IExpr, or a blank first IExpr.
    bool isVoid() const;
};

} // namespace Grafel
