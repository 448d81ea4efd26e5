#include <grafel/structure/SceneStyles.h>

#include <grafel/structure/LibraryTables.h>

namespace Grafel {

using Arbor::Token;

/// The definitions of a style declared with GRAFEL_SCENE_STYLE_CLASS that styles the scenes
/// tagged Scene and takes its properties from the tables that follow, in this order.
#define GRAFEL_DEFINE_SCENE_STYLE(Class, Scene, ...)                                               \
    Property* Class::propertyInfo(Token name) const {                                              \
        return findInTables<__VA_ARGS__>(name);                                                    \
    }                                                                                              \
    Token Class::getCmdType() {                                                                    \
        return tok_##Scene;                                                                        \
    }

GRAFEL_DEFINE_SCENE_STYLE(Scene2dStyle, Scene2d, sceneStylePropertyList)
GRAFEL_DEFINE_SCENE_STYLE(Scene3dStyle, Scene3d, scene3dStylePropertyList, sceneStylePropertyList)

} // namespace Grafel
