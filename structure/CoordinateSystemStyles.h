// The styles of coordinate systems: option children of a scene or of the page whose values are
// the defaults of the coordinate systems of their kind below.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/LibraryElement.h>
#include <grafel/structure/CoordinateSystemStyleGetter.h>

#include <vector>

namespace Grafel {

/// The style class of the coordinate systems of one dimension, tagged Tag; the tables it takes
/// its properties from and the tag of the systems it styles are given in the source file.
template <TokenId Tag>
class CoordinateSystemStyle
    : public ElementClass<CoordinateSystemStyle<Tag>, Tag, StyleElement, CloneBy::copy>,
      public CoordinateSystemStyleGetter {
    using Element = ElementClass<CoordinateSystemStyle, Tag, StyleElement, CloneBy::copy>;
    friend Element;

public:
    CoordinateSystemStyle(const CoordinateSystemStyle& other)
        : Element(other), CoordinateSystemStyleGetter(this) {}
    CoordinateSystemStyle& operator=(const CoordinateSystemStyle& other) {
        StyleElement::operator=(other);
        return *this;
    }

    /// In a scene: the page's style of this class when it holds `name`; on the page (or
    /// without a parent): null.
    PlotElement* inheritingFrom(Arbor::Token name) const override;
    /// In a scene: the page's style of this class, when there is one.
    void getInheritanceChain(std::vector<PlotElement*>& chain) const override;
    Property* propertyInfo(Arbor::Token name) const override;

    // Both bases can name the element the table getters read; it is this one either way.
    using StyleElement::listElement_;

protected:
    explicit CoordinateSystemStyle(Arbor::Document* document)
        : Element(document), CoordinateSystemStyleGetter(this) {}
    /// The tag of the systems styled: values are written as "plot::SYSTEM::name=value".
    Arbor::Token getCmdType() override;
};

/// The style of 2D coordinate systems: the style values of every coordinate system and those
/// of 2D systems. Copies keep the values. It has no children.
using CoordinateSystem2dStyle = CoordinateSystemStyle<id_CoordinateSystem2dStyle>;
/// The style of 3D coordinate systems: the style values of every coordinate system and those
/// of 3D systems. Copies keep the values. It has no children.
using CoordinateSystem3dStyle = CoordinateSystemStyle<id_CoordinateSystem3dStyle>;

extern template class CoordinateSystemStyle<id_CoordinateSystem2dStyle>;
extern template class CoordinateSystemStyle<id_CoordinateSystem3dStyle>;

} // namespace Grafel
