// The storage of the plane primitives that hold sampled points (polygons, point clouds, fields):
// one contiguous array of points, and optionally one colour per point, beside the tree.
#pragma once

#include <grafel/foundation/PointArray.h>
#include <grafel/foundation/Points.h>
#include <grafel/foundation/Rgba.h>
#include <grafel/properties/PrimitiveBase.h>

#include <cstddef>
#include <iosfwd>

namespace Grafel {

/// Abstract base of the primitives with a list of plane points; the subclass gives the tag and
/// the attributes. The arrays are no attributes and no children: filling them fires no event
/// and records no undo step, and the point data changes only by a reader or by a host that
/// rebuilds the element.
///
/// The colours are either absent or one per point. push_back keeps that only as long as every
/// point comes with the same form; the readers do so, and the writer relies on it.
class P2List : public PrimitiveBase {
public:
    ~P2List() override;

    /// Number of points.
    std::size_t size() const noexcept { return points_.size(); }
    /// Number of points the storage takes without growing.
    std::size_t capacity() const noexcept { return points_.capacity(); }
    /// The first point, or null for an empty list (never a pointer past the end).
    const P2* points() const noexcept { return points_.empty() ? nullptr : points_.data(); }
    /// Point `i`; std::out_of_range unless `i < size()`.
    const P2& pointAt(std::size_t i) const { return points_.at(i); }

    /// Whether the list has colours.
    bool colored() const noexcept { return !colors_.empty(); }
    /// The first colour, or null when there are none.
    const RGBA* colors() const noexcept { return colors_.empty() ? nullptr : colors_.data(); }
    /// Colour `i`; std::out_of_range unless `i` is below the number of colours.
    RGBA colorAt(std::size_t i) const { return colors_.at(i); }

    /// Appends an uncoloured point, and drops the colours of all earlier points (and their
    /// storage): a list is coloured only when every point was given its colour.
    void push_back(P2 point);
    /// Appends a point with its colour.
    void push_back(P2 point, RGBA color);

    /// Makes room for `n` points, and as many colours when `withColors`, so that a reader that
    /// knows the count fills the arrays without regrowth.
    void reserve(std::size_t n, bool withColors = false);
    /// Gives back the storage beyond the current size, so that a list read with an unknown
    /// count ends at its exact size.
    void shrinkToFit();
    /// Empties the points and colours but keeps their storage, for a host that rebuilds the
    /// element with about as many points; shrinkToFit() afterwards releases it.
    void clear() noexcept;

    /// Start tag with putAttributesXml(), one <P2> element per point ("x y" or "x y #colour",
    /// the form chosen once for the list), end tag; no line break and no self-closing form.
    /// Numbers go through the stream's own output of a double, so its settings decide the
    /// precision. Should the colours not match the points in number, only the points that have
    /// a colour are written, rather than read past the array.
    std::ostream& putXml(std::ostream& out) override;

    /// Copies the points and colours with the element (the subclasses' cloneNode relies on it).
    P2List(const P2List& other) = default;
    /// Copies the points and colours; the node's place in the tree stays as it was.
    P2List& operator=(const P2List& other) = default;

protected:
    explicit P2List(Arbor::Document* document) : PrimitiveBase(document) {}

private:
    PointArray<P2> points_;
    PointArray<RGBA> colors_;
};

} // namespace Grafel
