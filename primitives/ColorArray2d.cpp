#include <grafel/primitives/ColorArray2d.h>

#include <grafel/primitives/detail/Raster.h>

#include <ostream>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(ColorArray2d, GRAFEL_COLORARRAY2D_TABLE)

ColorArray2d::~ColorArray2d() = default;

std::ostream& ColorArray2d::putXml(std::ostream& out) {
    return detail::putRasterXml(*this, cells_, out);
}

} // namespace Grafel
