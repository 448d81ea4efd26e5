// The styles of coordinate systems: option children of a scene or of the page whose values are
// the defaults of the coordinate systems of their kind below.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/LibraryElement.h>
#include <grafel/structure/CoordinateSystemStyleGetter.h>

#include <vector>

/// Declares the style class Class of the coordinate systems of one dimension; the tables it
/// takes its properties from are given in the source file.
#define GRAFEL_COORDINATE_SYSTEM_STYLE_CLASS(Class)                                                \
    class Class : public StyleElement, public CoordinateSystemStyleGetter {                        \
        GRAFEL_ELEMENT_CLASS_COPIED(Class)                                                         \
                                                                                                   \
        Class(const Class& other) : StyleElement(other), CoordinateSystemStyleGetter(this) {}      \
        Class& operator=(const Class& other) {                                                     \
            StyleElement::operator=(other);                                                        \
            return *this;                                                                          \
        }                                                                                          \
                                                                                                   \
        /** In a scene: the page's style of this class when it holds `name`; on the page (or       \
         * without a parent): null. */                                                             \
        PlotElement* inheritingFrom(Arbor::Token name) const override;                             \
        /** In a scene: the page's style of this class, when there is one. */                      \
        void getInheritanceChain(std::vector<PlotElement*>& chain) const override;                 \
        Property* propertyInfo(Arbor::Token name) const override;                                  \
                                                                                                   \
        /* Both bases can name the element the table getters read; it is this one either way. */   \
        using StyleElement::listElement_;                                                          \
                                                                                                   \
    protected:                                                                                     \
        explicit Class(Arbor::Document* document)                                                  \
            : StyleElement(document), CoordinateSystemStyleGetter(this) {}                         \
        /** The tag of the systems styled: values are written as "plot::SYSTEM::name=value". */    \
        Arbor::Token getCmdType() override;                                                        \
    }

namespace Grafel {

/// The style of 2D coordinate systems: the style values of every coordinate system and those
/// of 2D systems. Copies keep the values. It has no children.
GRAFEL_COORDINATE_SYSTEM_STYLE_CLASS(CoordinateSystem2dStyle);
/// The style of 3D coordinate systems: the style values of every coordinate system and those
/// of 3D systems. Copies keep the values. It has no children.
GRAFEL_COORDINATE_SYSTEM_STYLE_CLASS(CoordinateSystem3dStyle);

} // namespace Grafel
