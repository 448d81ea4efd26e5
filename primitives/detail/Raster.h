// What the two rasters (ColorArray2d, DensityArray2d) share: cell access with the failure of an
// index past the end, and the XML form, in which the cells are the words of the element's text.
#pragma once

#include <grafel/foundation/PointArray.h>
#include <grafel/foundation/TextRun.h>

#include <cstddef>
#include <ostream>
#include <stdexcept>

namespace Grafel::detail {

/// Cell `i` of `cells`; std::out_of_range unless `i` is below the number of cells.
template <class T> T cellAt(const PointArray<T>& cells, std::size_t i) {
    if (i >= cells.size()) throw std::out_of_range("invalid vector<T> subscript");
    return cells[i];
}

/// Each cell in its value form followed by one blank: the text of the element's XML form.
template <class T> void putCells(const PointArray<T>& cells, std::ostream& out) {
    TextRun run(out);
    const T* cell = cells.data();
    for (std::size_t i = 0, n = cells.size(); i < n; ++i) run << cell[i] << ' ';
    run.flush();
}

} // namespace Grafel::detail
