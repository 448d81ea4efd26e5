// The XML form the two rasters (ColorArray2d, DensityArray2d) share: the cells are the words of
// the element's text.
#pragma once

#include <grafel/arbor/Token.h>
#include <grafel/foundation/PointArray.h>
#include <grafel/foundation/TextRun.h>

#include <cstddef>
#include <ostream>

namespace Grafel::detail {

/// Start tag with the attributes of `raster`, each cell in its value form followed by one
/// blank, end tag.
template <class Raster, class T>
std::ostream& putRasterXml(Raster& raster, const PointArray<T>& cells, std::ostream& out) {
    const Arbor::Token tag = raster.tagName();
    out << '<' << tag;
    raster.putAttributesXml(out);
    out << '>';
    {
        TextRun run(out);
        const T* cell = cells.data();
        for (std::size_t i = 0, n = cells.size(); i < n; ++i) run << cell[i] << ' ';
        run.flush();
    }
    return out << "</" << tag << '>';
}

} // namespace Grafel::detail
