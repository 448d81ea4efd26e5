#include <grafel/primitives/DensityArray2d.h>

#include <grafel/primitives/detail/Raster.h>

#include <ostream>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(DensityArray2d, GRAFEL_DENSITYARRAY2D_TABLE)

DensityArray2d::~DensityArray2d() = default;

double DensityArray2d::valueAt(std::size_t i) const {
    return detail::cellAt(cells_, i);
}

std::ostream& DensityArray2d::putXml(std::ostream& out) {
    const Arbor::Token tag = tagName();
    out << '<' << tag;
    putAttributesXml(out);
    out << '>';
    detail::putCells(cells_, out);
    return out << "</" << tag << '>';
}

} // namespace Grafel
