// A raster of numbers over a rectangle, coloured by a colour function: XMesh by YMesh cells,
// held beside the tree.
#pragma once

#include <grafel/document/ZpxParserHandler.h>
#include <grafel/primitives/PrimitiveClass.h>
#include <grafel/primitives/RasterCells.h>

#include <cstddef>
#include <iosfwd>

// FillColor starts black in the member and defaults to white in the descriptor.
#define GRAFEL_DENSITYARRAY2D_TABLE(P)                                                             \
    GRAFEL_RASTER_ROWS(P)                                                                          \
    P(Inherited, ColorProperty, FillColor, RGBA::Black, RGBA::White)                               \
    P(Inherited, ColorType, FillColorType, ::Arbor::Token(), getToken(id_Flat))                    \
    P(Inherited, ColorProperty, FillColor2, RGBA::Black, RGBA::Black)                              \
    P(Inherited, BoolProperty, AntiAliased, false, false)

namespace Grafel {

/// Cells laid out as those of ColorArray2d; each value is turned into a colour by
/// FillColorType between FillColor and FillColor2 when the raster is drawn. In XML the cells
/// are the words of the element's text. A copy keeps the cells.
class DensityArray2d
    : public ElementClass<DensityArray2d, id_DensityArray2d, PrimitiveBase, CloneBy::copy>,
      public RasterCells<double, DensityArrayInput> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(DensityArray2d, GRAFEL_DENSITYARRAY2D_TABLE, densityAttributeFlags)

public:
    ~DensityArray2d() override;

    /// The first cell, or null when there is none.
    const double* values() const noexcept { return firstCell(); }
    /// Cell `i`; std::out_of_range ("invalid vector<T> subscript") unless `i < size()`.
    double valueAt(std::size_t i) const { return cellAt(i); }

    /// Start tag with the attributes, each cell as the stream writes a double and a blank, end
    /// tag.
    std::ostream& putXml(std::ostream& out) override;

protected:
    explicit DensityArray2d(Arbor::Document* document) : ElementClass(document) {}
    DensityArray2d(const DensityArray2d& other) = default;
};

} // namespace Grafel
