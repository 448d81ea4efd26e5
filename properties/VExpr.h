// Sequence items and named expressions that hold a number beside their text: the number is what
// a viewer computed for the expression (a tick value, an axis origin, a viewing box limit), and
// is NaN until one was stated.
#pragma once

#include <grafel/foundation/NaN.h>
#include <grafel/properties/SoleAttributeElement.h>
#include <grafel/properties/TextElements.h>

namespace Grafel {

/// VExpr's one attribute, Val: a number, NaN while none was stated.
struct ValAttribute {
    using Value = double;
    using Holder = Arbor::DoubleVariant;
    static Arbor::Token name() { return tok_Val; }
    static double none() { return NaN(); }
    static Property* descriptor();
};

/// An expression text with its value, the attribute Val. Like Expr it has no descriptor table:
/// Val, which cannot be removed since NaN stands for its absence, is its only attribute. A NaN
/// value is not written to XML.
class VExpr
    : public SoleAttributeElement<ElementClass<VExpr, id_VExpr, SeqExprElement>, ValAttribute> {
    friend ElementClass;

public:
    VExpr(const VExpr& other) = default;

    /// The value; NaN when none was stated.
    double getVal() const { return value_; }

    /// Reads Val: a text containing "inf" is NaN; otherwise one number, limited to +-1e30 on
    /// the viewing box limits. Bad text or another name reports and throws DomException 15.
    void setAttributeString(Arbor::Token name, const char* text) override;

protected:
    explicit VExpr(Arbor::Document* document) : SoleAttributeElement(document) {}

    /// ` Val="value"`, or nothing for NaN.
    std::ostream& putAttributesXml(std::ostream& out) override;
};

/// A value expression under its own tag: written as the item tag=(text), or tag=NIL.
class NamedVExprElement : public VExpr {
public:
    NamedVExprElement(const NamedVExprElement& other) = default;

    void putCmd(CmdOStream& out) override;

protected:
    explicit NamedVExprElement(Arbor::Document* document) : VExpr(document) {}
};

/// The x coordinate of the axes' crossing.
using AxesOriginX = TextLeaf<id_AxesOriginX, NamedVExprElement>;
/// The y coordinate of the axes' crossing.
using AxesOriginY = TextLeaf<id_AxesOriginY, NamedVExprElement>;
/// The z coordinate of the axes' crossing.
using AxesOriginZ = TextLeaf<id_AxesOriginZ, NamedVExprElement>;
/// The first value of the animation parameter.
using ParameterBegin = TextLeaf<id_ParameterBegin, NamedVExprElement>;
/// The last value of the animation parameter.
using ParameterEnd = TextLeaf<id_ParameterEnd, NamedVExprElement>;
/// A value that the ticks of the x axis pass through.
using XTicksAnchor = TextLeaf<id_XTicksAnchor, NamedVExprElement>;
/// A value that the ticks of the y axis pass through.
using YTicksAnchor = TextLeaf<id_YTicksAnchor, NamedVExprElement>;
/// A value that the ticks of the z axis pass through.
using ZTicksAnchor = TextLeaf<id_ZTicksAnchor, NamedVExprElement>;
/// The distance between ticks of the x axis.
using XTicksDistance = TextLeaf<id_XTicksDistance, NamedVExprElement>;
/// The distance between ticks of the y axis.
using YTicksDistance = TextLeaf<id_YTicksDistance, NamedVExprElement>;
/// The distance between ticks of the z axis.
using ZTicksDistance = TextLeaf<id_ZTicksDistance, NamedVExprElement>;

/// A limit of the viewing box. A coordinate system that found the limit itself marks it in
/// its AutoViewingBox mask; such a limit stays out of the command text, so that the host
/// finds it again rather than being held to the found value.
class ViewingBoxExprElement : public NamedVExprElement {
public:
    ViewingBoxExprElement(const ViewingBoxExprElement& other) = default;

    /// Nothing under a CoordinateSystem2d or CoordinateSystem3d whose AutoViewingBox has
    /// partFlag(); otherwise as any named value expression.
    void putCmd(CmdOStream& out) override;
    /// The bit of this limit in AutoViewingBox.
    virtual long partFlag() const = 0;

protected:
    explicit ViewingBoxExprElement(Arbor::Document* document) : NamedVExprElement(document) {}
};

/// A viewing box limit whose bit in AutoViewingBox is Flag.
template <long Flag> class ViewingBoxPart : public ViewingBoxExprElement {
public:
    ViewingBoxPart(const ViewingBoxPart& other) = default;

    long partFlag() const override { return Flag; }

protected:
    explicit ViewingBoxPart(Arbor::Document* document) : ViewingBoxExprElement(document) {}
};

/// The lower x limit; a value below -1e30 is read as -1e30.
using ViewingBoxXMin = TextLeaf<id_ViewingBoxXMin, ViewingBoxPart<1>>;
/// The upper x limit; a value above 1e30 is read as 1e30.
using ViewingBoxXMax = TextLeaf<id_ViewingBoxXMax, ViewingBoxPart<2>>;
/// The lower y limit; a value below -1e30 is read as -1e30.
using ViewingBoxYMin = TextLeaf<id_ViewingBoxYMin, ViewingBoxPart<4>>;
/// The upper y limit; a value above 1e30 is read as 1e30.
using ViewingBoxYMax = TextLeaf<id_ViewingBoxYMax, ViewingBoxPart<8>>;
/// The lower z limit; a value below -1e30 is read as -1e30.
using ViewingBoxZMin = TextLeaf<id_ViewingBoxZMin, ViewingBoxPart<16>>;
/// The upper z limit; a value above 1e30 is read as 1e30.
using ViewingBoxZMax = TextLeaf<id_ViewingBoxZMax, ViewingBoxPart<32>>;

} // namespace Grafel
