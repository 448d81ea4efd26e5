// A raster of colours over a rectangle: XMesh by YMesh cells, held beside the tree.
#pragma once

#include <grafel/document/ZpxParserHandler.h>
#include <grafel/primitives/PrimitiveClass.h>
#include <grafel/primitives/RasterCells.h>

#include <cstddef>
#include <iosfwd>

#define GRAFEL_COLORARRAY2D_TABLE(P)                                                               \
    GRAFEL_RASTER_ROWS(P)                                                                          \
    P(Inherited, BoolProperty, AntiAliased, false, false)

namespace Grafel {

/// Cells stored row after row from YMin upwards, x running fastest: cell (i, j) is at index
/// j * XMesh + i, over the rectangle XMin..XMax by YMin..YMax. Nothing here compares the number
/// of cells with the mesh; the reader refuses too few. In XML the cells are the words of the
/// element's text. A copy keeps the cells.
class ColorArray2d
    : public ElementClass<ColorArray2d, id_ColorArray2d, PrimitiveBase, CloneBy::copy>,
      public RasterCells<RGBA, ColorArrayInput> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(ColorArray2d, GRAFEL_COLORARRAY2D_TABLE, colorAttributeFlags)

public:
    ~ColorArray2d() override;

    /// The first cell, or null when there is none.
    const RGBA* colors() const noexcept { return firstCell(); }
    /// Cell `i`; std::out_of_range ("invalid vector<T> subscript") unless `i < size()`.
    RGBA colorAt(std::size_t i) const { return cellAt(i); }

    /// Start tag with the attributes, each cell as "#rrggbb" (or "#rrggbbaa") and a blank, end
    /// tag.
    std::ostream& putXml(std::ostream& out) override;

protected:
    explicit ColorArray2d(Arbor::Document* document) : ElementClass(document) {}
    ColorArray2d(const ColorArray2d& other) = default;
};

} // namespace Grafel
