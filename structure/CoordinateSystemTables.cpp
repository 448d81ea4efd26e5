#include <grafel/structure/CoordinateSystemTables.h>

namespace Grafel {

namespace {
GRAFEL_DEFINE_PROPERTY_LIST(CoordinateSystemPropertyListMgr, GRAFEL_COORDINATE_SYSTEM_TABLE)
GRAFEL_DEFINE_PROPERTY_LIST(CoordinateSystemStylePropertyListMgr,
                            GRAFEL_COORDINATE_SYSTEM_STYLE_TABLE)
GRAFEL_DEFINE_PROPERTY_LIST(CoordinateSystem2dStylePropertyListMgr,
                            GRAFEL_COORDINATE_SYSTEM2D_STYLE_TABLE)
GRAFEL_DEFINE_PROPERTY_LIST(CoordinateSystem3dStylePropertyListMgr,
                            GRAFEL_COORDINATE_SYSTEM3D_STYLE_TABLE)
} // namespace

PropertyListMgr& coordinateSystemPropertyList() {
    return CoordinateSystemPropertyListMgrInstance();
}

PropertyListMgr& coordinateSystemStylePropertyList() {
    return CoordinateSystemStylePropertyListMgrInstance();
}

PropertyListMgr& coordinateSystem2dStylePropertyList() {
    return CoordinateSystem2dStylePropertyListMgrInstance();
}

PropertyListMgr& coordinateSystem3dStylePropertyList() {
    return CoordinateSystem3dStylePropertyListMgrInstance();
}

} // namespace Grafel
