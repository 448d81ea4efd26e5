// The text elements that hold one string or one expression of the host system: quoted strings
// (titles, headers, ...), named expressions, and the bare items of a sequence.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/PCDataElement.h>

namespace Grafel {

/// A concrete text element on Base that differs from its siblings only in its tag, Tag.
template <TokenId Tag, class Base>
class TextLeaf : public ElementClass<TextLeaf<Tag, Base>, Tag, Base> {
    friend ElementClass<TextLeaf, Tag, Base>;

public:
    TextLeaf(const TextLeaf& other) = default;

protected:
    explicit TextLeaf(Arbor::Document* document) : ElementClass<TextLeaf, Tag, Base>(document) {}
};

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
using Title = TextLeaf<id_Title, StringElement>;
/// The header line of a scene.
using Header = TextLeaf<id_Header, StringElement>;
/// The footer line of a scene.
using Footer = TextLeaf<id_Footer, StringElement>;
/// The text of an object's legend entry.
using LegendText = TextLeaf<id_LegendText, StringElement>;
/// The title of the x axis.
using XAxisTitle = TextLeaf<id_XAxisTitle, StringElement>;
/// The title of the y axis.
using YAxisTitle = TextLeaf<id_YAxisTitle, StringElement>;
/// The title of the z axis.
using ZAxisTitle = TextLeaf<id_ZAxisTitle, StringElement>;

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
using ParameterName = TextLeaf<id_ParameterName, NamedExprElement>;
/// The x position of a title.
using TitlePositionX = TextLeaf<id_TitlePositionX, NamedExprElement>;
/// The y position of a title.
using TitlePositionY = TextLeaf<id_TitlePositionY, NamedExprElement>;
/// The z position of a title.
using TitlePositionZ = TextLeaf<id_TitlePositionZ, NamedExprElement>;

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
using IExpr = TextLeaf<id_IExpr, SeqExprElement>;

} // namespace Grafel
