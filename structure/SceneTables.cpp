#include <grafel/structure/SceneTables.h>

namespace Grafel {

namespace {
GRAFEL_DEFINE_PROPERTY_LIST(ScenePropertyListMgr, GRAFEL_SCENE_TABLE)
GRAFEL_DEFINE_PROPERTY_LIST(SceneStylePropertyListMgr, GRAFEL_SCENE_STYLE_TABLE)
GRAFEL_DEFINE_PROPERTY_LIST(Scene3dStylePropertyListMgr, GRAFEL_SCENE3D_STYLE_TABLE)
} // namespace

PropertyListMgr& scenePropertyList() {
    return ScenePropertyListMgrInstance();
}

PropertyListMgr& sceneStylePropertyList() {
    return SceneStylePropertyListMgrInstance();
}

PropertyListMgr& scene3dStylePropertyList() {
    return Scene3dStylePropertyListMgrInstance();
}

} // namespace Grafel
