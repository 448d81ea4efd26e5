// The styles of the scenes of a page: option children of the Canvas whose values are the
// defaults of every scene of their kind.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/LibraryElement.h>
#include <grafel/structure/SceneStyleGetter.h>

/// Declares the style class Class of the scenes of one dimension; the tables it takes its
/// properties from are given in the source file.
#define GRAFEL_SCENE_STYLE_CLASS(Class)                                                            \
    class Class : public StyleElement, public SceneStyleGetter {                                   \
        GRAFEL_ELEMENT_CLASS(Class)                                                                \
                                                                                                   \
        Class(const Class& other) : StyleElement(other), SceneStyleGetter(this) {}                 \
        Class& operator=(const Class& other) {                                                     \
            StyleElement::operator=(other);                                                        \
            return *this;                                                                          \
        }                                                                                          \
                                                                                                   \
        Property* propertyInfo(Arbor::Token name) const override;                                  \
                                                                                                   \
        /* Both bases can name the element the table getters read; it is this one either way. */   \
        using StyleElement::listElement_;                                                          \
                                                                                                   \
    protected:                                                                                     \
        explicit Class(Arbor::Document* document)                                                  \
            : StyleElement(document), SceneStyleGetter(this) {}                                    \
        /** The tag of the scenes styled: values are written as "plot::SCENE::name=value". */      \
        Arbor::Token getCmdType() override;                                                        \
    }

namespace Grafel {

/// The style of the 2D scenes of a page: the style values of every scene. It inherits from
/// nothing, so a value it lacks is the descriptor's default. It has no children; a copy made
/// by cloneNode starts without values.
GRAFEL_SCENE_STYLE_CLASS(Scene2dStyle);
/// The style of the 3D scenes of a page: the style values of every scene and those of 3D
/// scenes. It inherits from nothing and has no children; a copy made by cloneNode starts
/// without values.
GRAFEL_SCENE_STYLE_CLASS(Scene3dStyle);

} // namespace Grafel
