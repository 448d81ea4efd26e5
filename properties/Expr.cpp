#include <grafel/properties/Expr.h>

#include <grafel/arbor/DomException.h>
#include <grafel/foundation/ScalarText.h>
#include <grafel/properties/PropertyTypes.h>
#include <grafel/properties/detail/ExprItems.h>

#include <ostream>

namespace Grafel {

using Arbor::DomException;
using Arbor::Token;

Property* OptAttribute::descriptor() {
    static TokenListProperty<Kind::Mandatory> opt(Token(), id_Opt);
    return &opt;
}

void Expr::setAttributeString(Token name, const char* text) {
    checkName(name);
    if (!text || !*text) {
        refuse(DomException::InvalidAccessErr, "empty option name\n");
    }
    setAttribute(tok_Opt, Arbor::TokenVariant(Token(text, true)));
}

std::ostream& Expr::putAttributesXml(std::ostream& out) {
    out << " Opt=\"";
    putXmlValue(out, getOpt());
    return out << '"';
}

void Expr::putCmd(CmdOStream& out) {
    putCmdNamedExpr(out, getOpt());
}

bool ExprSeq::mayReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newFirst) {
    return contentOnly(newFirst);
}

ChildRole ExprSeq::childRole(Token tag) const {
    return tag == tok_IExpr ? ChildRole::Content : ChildRole::None;
}

void ExprSeq::putCmd(CmdOStream& out) {
    out.beginItem();
    out << getOpt() << '=';
    if (firstChild()) {
        out << '[';
        detail::putCmdItems(out, this);
        out << ']';
    } else {
        out << "NIL";
    }
    out.endItem();
}

namespace {

constexpr unsigned minColorItems = 1;
constexpr unsigned maxColorItems = 4;

} // namespace

ColorFunc::ColorFunc(Arbor::Document* document) : Expr(document) {
    detail::appendEmptyItemsRaw(this, minColorItems);
}

ColorFunc::ColorFunc(const ColorFunc& other) : Expr(other) {
    detail::replaceItemsRaw(this, &other);
}

Token ColorFunc::tagName() const {
    return tok_ColorFunc;
}

Arbor::Node* ColorFunc::cloneNode(bool deep) const {
    auto* copy = new ColorFunc(document_);
    if (deep) detail::replaceItemsRaw(copy, this);
    return copy;
}

PlotElement* ColorFunc::create(Arbor::Document* document) {
    return new ColorFunc(document);
}

bool ColorFunc::mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) {
    return detail::itemsFit(detail::itemsAfterChange(long(items()), first, count, newFirst),
                            contentCount());
}

ChildRole ColorFunc::childRole(Token tag) const {
    return tag == tok_IExpr ? ChildRole::Content : ChildRole::None;
}

ChildCount ColorFunc::contentCount() const {
    return {minColorItems, maxColorItems};
}

bool ColorFunc::isVoid() const {
    return detail::firstItemBlank(this);
}

std::ostream& ColorFunc::putXml(std::ostream& out) {
    return isVoid() ? out : Expr::putXml(out);
}

void ColorFunc::putCmd(CmdOStream& out) {
    out.beginItem();
    out << getOpt() << '=';
    if (isVoid()) {
        out << "NIL";
    } else {
        // A single entry is a colour function; several are the components of one colour.
        const bool list = items() > 1;
        out << (list ? '[' : '(');
        detail::putCmdItems(out, this);
        out << (list ? ']' : ')');
    }
    out.endItem();
}

GRAFEL_REGISTER_ELEMENT_CLASS(ColorFunc, Expr);

} // namespace Grafel
