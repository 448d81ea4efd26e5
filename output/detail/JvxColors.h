// Colours of the JVX writer computed from numbers: the colour functions over a value range, and
// the per-point colours of a point list.
#pragma once

#include <grafel/arbor/Token.h>
#include <grafel/foundation/Points.h>
#include <grafel/foundation/Rgba.h>

#include <cstddef>
#include <cstdint>

namespace Grafel::detail {

/// Hue in degrees, saturation 0 to 1, value 0 to 255.
struct Hsv {
    double h = 0, s = 0, v = 0;
};

Hsv rgbToHsv(RGBA c);

/// Whether a ColorType computes colours: never Flat, Functional only with a list to take them
/// from.
bool isColored(Arbor::Token type, const RGBA* list);
/// The list colours are taken from under a ColorType: `list` for Functional, else none.
const RGBA* functionalList(Arbor::Token type, const RGBA* list);

/// The colour of a number between `min` and `max` under a ColorType: a flat range gives the
/// first colour; Monochrome scales it, Dichromatic runs from the second colour at `min` to the
/// first at `max`, anything else runs the long way round the colour circle between them.
class ColorWriter {
public:
    ColorWriter(Arbor::Token type, RGBA color1, RGBA color2, double min, double max);
    RGBA colorOf(double v) const;
    bool flat() const { return flat_; }

private:
    enum class Kind { monochrome, dichromatic, rainbow };
    Kind kind_;
    RGBA color1_, color2_;
    Hsv hsv1_, hsv2_;
    double min_, max_;
    bool flat_;
};

/// Per-point colours: the point list's own colours where it has them, else the colour of the
/// point's height (y in 2D, z in 3D). Indices past the end of the data give the last item's
/// colour, so that a walk that overshoots keeps its count.
class ColorListWriter : public ColorWriter {
public:
    ColorListWriter(Arbor::Token type, RGBA color1, RGBA color2, double min, double max,
                    const RGBA* colorList, std::size_t count)
        : ColorWriter(type, color1, color2, min, max), colorList_(colorList), count_(count) {}
    virtual ~ColorListWriter() = default;

    std::size_t count() const { return count_; }
    RGBA at(std::int64_t i) const;
    RGBA at(std::int64_t i, std::int64_t j) const;
    /// The mean of 2, 3 or 4 corners.
    RGBA at(const std::int64_t* corners, int n) const;

protected:
    virtual double valueAt(std::size_t i) const = 0;

private:
    std::size_t clamp(std::int64_t i) const;
    const RGBA* colorList_;
    std::size_t count_;
};

/// The height a point is coloured by.
inline double heightOf(P2 p) {
    return p.y;
}

inline double heightOf(P3 p) {
    return p.z;
}

/// Per-point colours of a list of 2D or 3D points.
template <class Point> class PointColorWriter final : public ColorListWriter {
public:
    PointColorWriter(Arbor::Token type, RGBA color1, RGBA color2, double min, double max,
                     const RGBA* colorList, const Point* points, std::size_t count)
        : ColorListWriter(type, color1, color2, min, max, colorList, count), points_(points) {}

protected:
    double valueAt(std::size_t i) const override { return heightOf(points_[i]); }

private:
    const Point* points_;
};

using ColorWriter2D = PointColorWriter<P2>;
using ColorWriter3D = PointColorWriter<P3>;

} // namespace Grafel::detail
