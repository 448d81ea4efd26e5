#include <grafel/structure/ObjectTables.h>

namespace Grafel {

namespace {
GRAFEL_DEFINE_PROPERTY_LIST(ObjectStylePropertyListMgr, GRAFEL_OBJECT_STYLE_TABLE)
GRAFEL_DEFINE_PROPERTY_LIST(Object2dStylePropertyListMgr, GRAFEL_OBJECT2D_STYLE_TABLE)
GRAFEL_DEFINE_PROPERTY_LIST(Object3dStylePropertyListMgr, GRAFEL_OBJECT3D_STYLE_TABLE)
GRAFEL_DEFINE_PROPERTY_LIST(ObjectPropertyListMgr, GRAFEL_OBJECT_TABLE)
} // namespace

PropertyListMgr& objectStylePropertyList() {
    return ObjectStylePropertyListMgrInstance();
}

PropertyListMgr& object2dStylePropertyList() {
    return Object2dStylePropertyListMgrInstance();
}

PropertyListMgr& object3dStylePropertyList() {
    return Object3dStylePropertyListMgrInstance();
}

PropertyListMgr& objectPropertyList() {
    return ObjectPropertyListMgrInstance();
}

} // namespace Grafel
