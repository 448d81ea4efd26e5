#include <grafel/primitives/DensityArray2d.h>

#include <grafel/primitives/detail/Raster.h>

#include <ostream>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(DensityArray2d, GRAFEL_DENSITYARRAY2D_TABLE)

DensityArray2d::~DensityArray2d() = default;

std::ostream& DensityArray2d::putXml(std::ostream& out) {
    const Arbor::Token tag = tagName();
    out << '<' << tag;
    putAttributesXml(out);
    out << '>';
    detail::putCells(cells_, out);
    return out << "</" << tag << '>';
}

} // namespace Grafel
