// The styles of the scenes of a page: option children of the Canvas whose values are the
// defaults of every scene of their kind.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/LibraryElement.h>
#include <grafel/structure/SceneStyleGetter.h>

namespace Grafel {

/// The style class of the scenes of one dimension, tagged Tag; the tables it takes its
/// properties from and the tag of the scenes it styles are given in the source file.
template <TokenId Tag>
class SceneStyle : public ElementClass<SceneStyle<Tag>, Tag, StyleElement>,
                   public SceneStyleGetter {
    friend ElementClass<SceneStyle, Tag, StyleElement>;

public:
    SceneStyle(const SceneStyle& other)
        : ElementClass<SceneStyle, Tag, StyleElement>(other), SceneStyleGetter(this) {}
    SceneStyle& operator=(const SceneStyle& other) {
        StyleElement::operator=(other);
        return *this;
    }

    Property* propertyInfo(Arbor::Token name) const override;

    // Both bases can name the element the table getters read; it is this one either way.
    using StyleElement::listElement_;

protected:
    explicit SceneStyle(Arbor::Document* document)
        : ElementClass<SceneStyle, Tag, StyleElement>(document), SceneStyleGetter(this) {}
    /// The tag of the scenes styled: values are written as "plot::SCENE::name=value".
    Arbor::Token getCmdType() override;
};

/// The style of the 2D scenes of a page: the style values of every scene. It inherits from
/// nothing, so a value it lacks is the descriptor's default. It has no children; a copy made
/// by cloneNode starts without values.
using Scene2dStyle = SceneStyle<id_Scene2dStyle>;
/// The style of the 3D scenes of a page: the style values of every scene and those of 3D
/// scenes. It inherits from nothing and has no children; a copy made by cloneNode starts
/// without values.
using Scene3dStyle = SceneStyle<id_Scene3dStyle>;

extern template class SceneStyle<id_Scene2dStyle>;
extern template class SceneStyle<id_Scene3dStyle>;

} // namespace Grafel
