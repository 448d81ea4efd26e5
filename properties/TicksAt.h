// The explicit tick positions of an axis: a list of TickPos children, each a value with an
// optional label.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/PlotElement.h>

namespace Grafel {

/// The explicit ticks of the x axis; YTicksAt and ZTicksAt differ only in their tag.
class XTicksAt : public ElementClass<XTicksAt, id_XTicksAt, PlotElement> {
    friend ElementClass;

public:
    XTicksAt(const XTicksAt& other) = default;

    /// Every new child must be a TickPos; refuses without a report. Removals are free.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    ChildRole childRole(Arbor::Token tag) const override {
        return tag == tok_TickPos ? ChildRole::Content : ChildRole::None;
    }
    /// An item: the tag, "=", then "[" the children's own items "]", or "NIL" without
    /// children.
    void putCmd(CmdOStream& out) override;

protected:
    explicit XTicksAt(Arbor::Document* document) : ElementClass(document) {}
};

/// The explicit ticks of the y axis.
class YTicksAt : public ElementClass<YTicksAt, id_YTicksAt, XTicksAt> {
    friend ElementClass;

public:
    YTicksAt(const YTicksAt& other) = default;

protected:
    explicit YTicksAt(Arbor::Document* document) : ElementClass(document) {}
};

/// The explicit ticks of the z axis.
class ZTicksAt : public ElementClass<ZTicksAt, id_ZTicksAt, XTicksAt> {
    friend ElementClass;

public:
    ZTicksAt(const ZTicksAt& other) = default;

protected:
    explicit ZTicksAt(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
