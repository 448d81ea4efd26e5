// Typed reading of the resolved style values of a scene or a scene style: one getter per
// property of the scene style tables, each answering what getProperty answers.
#pragma once

#include <grafel/properties/AttributeListElement.h>
#include <grafel/structure/SceneTables.h>

namespace Grafel {

/// Mixed into Scene2d, Scene3d, Scene2dStyle and Scene3dStyle: `get` plus the name of each
/// property of the scene style tables. A getter reads through the served element's own
/// descriptors, so it resolves, defaults and fails as getProperty does there: the 3D values
/// (getLighting, getBackgroundStyle, getBackgroundColor2, getZXRatio) report "unknown
/// property" and throw DomException 15 on a 2D scene or style. Fonts come back by reference
/// into the record or descriptor that holds them, valid until the tree changes.
class SceneStyleGetter {
public:
    /// Serves `element`, for good; `element` is the element this getter is part of.
    explicit SceneStyleGetter(PlotElement* element) : elem(element) {}
    /// A copy would serve the wrong element: the class mixing this in passes its own `this`.
    SceneStyleGetter(const SceneStyleGetter&) = delete;
    /// Keeps the element served.
    SceneStyleGetter& operator=(const SceneStyleGetter&) { return *this; }

    /// The element served.
    PlotElement* thisElem() const { return elem; }
    /// The element whose values the getters read.
    const AttributeListElement* listElement_() const { return elem->asAttributeList(); }

    GRAFEL_LIST_GETTERS(GRAFEL_SCENE_STYLE_TABLE)
    GRAFEL_LIST_GETTERS(GRAFEL_SCENE3D_STYLE_TABLE)

protected:
    PlotElement* const elem;
};

} // namespace Grafel
