// What the rasters (ColorArray2d, DensityArray2d) hold alike: the first rows of their tables,
// and the cells with what the reader's input interface asks of them.
#pragma once

#include <grafel/foundation/PointArray.h>
#include <grafel/primitives/PrimitiveClass.h>

#include <cstddef>
#include <stdexcept>

// The rows every raster's table starts with: the mesh, the rectangle and the grid lines. The
// mesh members start at 0 with their presence bits set: a new raster has no cells until a
// reader states its mesh.
#define GRAFEL_RASTER_ROWS(P)                                                                      \
    P(Mandatory, MandatoryMeshPropertyImpl, XMesh, 0L, 1L)                                         \
    P(Mandatory, MandatoryMeshPropertyImpl, YMesh, 0L, 1L)                                         \
    P(Optional, RangeValueType, XMin, 0.0, 0.0)                                                    \
    P(Optional, RangeValueType, XMax, 1.0, 1.0)                                                    \
    P(Optional, RangeValueType, YMin, 0.0, 0.0)                                                    \
    P(Optional, RangeValueType, YMax, 1.0, 1.0)                                                    \
    P(Inherited, BoolProperty, LinesVisible, false, false)                                         \
    P(Inherited, PosOutputSizeType, LineWidth, 0.5, 0.5)                                           \
    P(Inherited, ColorProperty, LineColor, RGBA::Black, RGBA::Black)

namespace Grafel {

/// Cells of type T beside the tree, filled through Input (ColorArrayInput or
/// DensityArrayInput). A copy of the raster keeps them.
template <class T, class Input> class RasterCells : public Input {
public:
    /// Appends a cell.
    void push_back(T cell) override { cells_.push_back(cell); }
    void append(const T* cells, std::size_t count) override { cells_.append(cells, count); }
    T* spare(std::size_t count) override { return cells_.spare(count); }
    void grown(std::size_t count) override { cells_.grown(count); }
    /// Number of cells.
    std::size_t size() const override { return cells_.size(); }
    void shrinkToFit() override { cells_.shrinkToFit(); }
    /// Number of cells the storage takes without growing.
    std::size_t capacity() const noexcept { return cells_.capacity(); }

protected:
    RasterCells() = default;
    RasterCells(const RasterCells&) = default;
    ~RasterCells() = default;

    /// The first cell, or null when there is none.
    const T* firstCell() const noexcept { return cells_.empty() ? nullptr : cells_.data(); }
    /// Cell `i`; std::out_of_range ("invalid vector<T> subscript") unless `i < size()`.
    T cellAt(std::size_t i) const {
        if (i >= cells_.size()) throw std::out_of_range("invalid vector<T> subscript");
        return cells_[i];
    }

    PointArray<T> cells_;
};

} // namespace Grafel
