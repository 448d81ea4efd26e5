// Expressions that an object states under an option name (its function, a range, a colour
// function), and the sequences of such expressions.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/PCDataElement.h>

namespace Grafel {

/// An expression text stated for the option Opt of the element above, written as the item
/// Opt=(text). It has no descriptor table: Opt, a token that can be set but never removed, is
/// handled here, and any other name is an illegal attribute.
class Expr : public ElementClass<Expr, id_Expr, PCDataElement> {
    friend ElementClass;

public:
    Expr(const Expr& other) = default;

    /// The option name; null until set.
    Arbor::Token getOpt() const { return opt_; }

    /// Opt as a TokenVariant; any other name reports and throws DomException 15.
    Arbor::Variant getAttribute(Arbor::Token name) const override;
    /// True for Opt only.
    bool hasAttribute(Arbor::Token name) const override;
    /// Interns the text as the option name. An empty text or another name reports and throws
    /// DomException 15.
    void setAttributeString(Arbor::Token name, const char* text) override;
    bool hasProperty(Arbor::Token name) const override;
    /// The same as getAttribute().
    Arbor::Variant getProperty(Arbor::Token name) const override;
    /// The same as setAttribute(): nothing is inherited.
    void setProperty(Arbor::Token name, const Arbor::Variant& value) override;
    bool isPropertyEnabled(Arbor::Token name) const override;
    /// A static descriptor for Opt, null for any other name.
    Property* propertyInfo(Arbor::Token name) const override;
    /// Fires for a change on this element; never goes on to the children.
    bool afterAttributeChange(Arbor::Element* source, Arbor::Token name) override;
    /// An item: Opt, "=", then "(" text ")" or "NIL".
    void putCmd(CmdOStream& out) override;

protected:
    explicit Expr(Arbor::Document* document) : ElementClass(document) {}

    /// Opt with a TokenVariant.
    bool maySetAttribute(Arbor::Token name, const Arbor::Variant& value) override;
    /// Opt names the element's role and cannot be removed.
    bool mayRemoveAttribute(Arbor::Token name) override;
    void setAttributeRaw(Arbor::Token name, const Arbor::Variant& value) override;
    void removeAttributeRaw(Arbor::Token name) override;
    /// ` Opt="token"`, always.
    std::ostream& putAttributesXml(std::ostream& out) override;

    Arbor::Token opt_;
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
