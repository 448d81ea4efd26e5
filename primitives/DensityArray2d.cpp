#include <grafel/primitives/DensityArray2d.h>

#include <grafel/primitives/detail/Raster.h>

#include <ostream>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(DensityArray2d, GRAFEL_DENSITYARRAY2D_TABLE)

DensityArray2d::~DensityArray2d() = default;

std::ostream& DensityArray2d::putXml(std::ostream& out) {
    return detail::putRasterXml(*this, cells_, out);
}

} // namespace Grafel
