// The XML form the two rasters (ColorArray2d, DensityArray2d) share: the cells are the words of
// the element's text.
#pragma once

#include <grafel/foundation/PointArray.h>
#include <grafel/foundation/TextRun.h>

#include <cstddef>
#include <ostream>

namespace Grafel::detail {

/// Each cell in its value form followed by one blank: the text of the element's XML form.
template <class T> void putCells(const PointArray<T>& cells, std::ostream& out) {
    TextRun run(out);
    const T* cell = cells.data();
    for (std::size_t i = 0, n = cells.size(); i < n; ++i) run << cell[i] << ' ';
    run.flush();
}

} // namespace Grafel::detail
