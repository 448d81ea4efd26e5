// The text elements that hold one string or one expression of the host system: quoted strings
// (titles, headers, ...), named expressions, and the bare items of a sequence.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/PCDataElement.h>

/// Declares a concrete text element Class on Base that differs from its siblings only in its
/// tag, the token of the class name.
#define GRAFEL_TEXT_LEAF_CLASS(Class, Base)                                                        \
    class Class : public Base {                                                                    \
        GRAFEL_ELEMENT_CLASS(Class)                                                                \
        Class(const Class& other) = default;                                                       \
                                                                                                   \
    protected:                                                                                     \
        explicit Class(::Arbor::Document* document) : Base(document) {}                            \
    }

namespace Grafel {

/// A string of the plot, such as a title: written as the item tag="text" in command text.
class StringElement : public PCDataElement {
public:
    StringElement(const StringElement& other) = default;

    /// An item: the tag, "=", then putCmdString().
    void putCmd(CmdOStream& out) override;
    /// The text in double quotes, each Text child escaped for the command language.
    virtual void putCmdString(CmdOStream& out);

protected:
    explicit StringElement(Arbor::Document* document) : PCDataElement(document) {}
};

/// The title of a scene, an object or a tick.
GRAFEL_TEXT_LEAF_CLASS(Title, StringElement);
/// The header line of a scene.
GRAFEL_TEXT_LEAF_CLASS(Header, StringElement);
/// The footer line of a scene.
GRAFEL_TEXT_LEAF_CLASS(Footer, StringElement);
/// The text of an object's legend entry.
GRAFEL_TEXT_LEAF_CLASS(LegendText, StringElement);
/// The title of the x axis.
GRAFEL_TEXT_LEAF_CLASS(XAxisTitle, StringElement);
/// The title of the y axis.
GRAFEL_TEXT_LEAF_CLASS(YAxisTitle, StringElement);
/// The title of the z axis.
GRAFEL_TEXT_LEAF_CLASS(ZAxisTitle, StringElement);

/// An expression that stands under its own tag: written as the item tag=(text), or tag=NIL
/// when the text is blank.
class NamedExprElement : public PCDataElement {
public:
    NamedExprElement(const NamedExprElement& other) = default;

    void putCmd(CmdOStream& out) override;

protected:
    explicit NamedExprElement(Arbor::Document* document) : PCDataElement(document) {}
};

/// The name of the animation parameter.
GRAFEL_TEXT_LEAF_CLASS(ParameterName, NamedExprElement);
/// The x position of a title.
GRAFEL_TEXT_LEAF_CLASS(TitlePositionX, NamedExprElement);
/// The y position of a title.
GRAFEL_TEXT_LEAF_CLASS(TitlePositionY, NamedExprElement);
/// The z position of a title.
GRAFEL_TEXT_LEAF_CLASS(TitlePositionZ, NamedExprElement);

/// One item of a sequence (a matrix entry, a colour component, a tick value): written as the
/// bare text, or "NIL" when blank, with no item of its own; the holder lays out the list.
class SeqExprElement : public PCDataElement {
public:
    SeqExprElement(const SeqExprElement& other) = default;

    void putCmd(CmdOStream& out) override;

protected:
    explicit SeqExprElement(Arbor::Document* document) : PCDataElement(document) {}
};

/// An item of a sequence that holds only its expression text.
GRAFEL_TEXT_LEAF_CLASS(IExpr, SeqExprElement);

} // namespace Grafel
