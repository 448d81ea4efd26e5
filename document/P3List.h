// The storage of the space primitives that hold sampled points (polylines, point clouds, meshes,
// surfaces, fields): one contiguous array of points, and optionally one normal and up to two
// colours per point, beside the tree.
#pragma once

#include <grafel/foundation/PointArray.h>
#include <grafel/foundation/Points.h>
#include <grafel/foundation/Rgba.h>
#include <grafel/properties/PrimitiveBase.h>

#include <cstddef>
#include <iosfwd>

namespace Grafel {

/// Abstract base of the primitives with a list of space points; the subclass gives the tag, the
/// attributes and the meaning of the two colours (a mesh has a line and a fill colour, for
/// instance). The arrays are no attributes and no children: filling them fires no event and
/// records no undo step, and the point data changes only by a reader or by a host that rebuilds
/// the element.
///
/// The normals and each kind of colour are either absent or one per point. push_back keeps that
/// only as long as every point comes with the same form; the readers do so, and the writer
/// relies on it. Unlike P2List, a plain point drops nothing.
class P3List : public PrimitiveBase {
public:
    ~P3List() override;

    /// Number of points.
    std::size_t size() const noexcept { return points_.size(); }
    /// Number of points the storage takes without growing.
    std::size_t capacity() const noexcept { return points_.capacity(); }
    /// The first point, or null for an empty list (never a pointer past the end).
    const P3* points() const noexcept { return dataOrNull(points_); }
    /// Point `i`; std::out_of_range unless `i < size()`.
    const P3& pointAt(std::size_t i) const { return points_.at(i); }

    /// Whether the list has normals.
    bool hasNormals() const noexcept { return !normals_.empty(); }
    /// The first normal, or null when there are none.
    const P3* normals() const noexcept { return dataOrNull(normals_); }
    /// Normal `i`; std::out_of_range unless `i` is below the number of normals.
    const P3& normalAt(std::size_t i) const { return normals_.at(i); }

    /// How many of the first and second colours are present: 0, 1 or 2.
    int numColors() const noexcept { return int(!firstColors_.empty()) + !secondColors_.empty(); }
    /// The first of the first colours, or null when there are none.
    const RGBA* firstColors() const noexcept { return dataOrNull(firstColors_); }
    /// First colour `i`; std::out_of_range unless `i` is below the number of first colours.
    RGBA firstColorAt(std::size_t i) const { return firstColors_.at(i); }
    /// The first of the second colours, or null when there are none.
    const RGBA* secondColors() const noexcept { return dataOrNull(secondColors_); }
    /// Second colour `i`; std::out_of_range unless `i` is below the number of second colours.
    RGBA secondColorAt(std::size_t i) const { return secondColors_.at(i); }

    /// Each form appends the point and the items it names, and touches no other array.
    void push_back(P3 point);
    void push_back(P3 point, P3 normal);
    void push_back(P3 point, RGBA first);
    void push_back(P3 point, RGBA first, RGBA second);
    void push_back(P3 point, P3 normal, RGBA first);
    void push_back(P3 point, P3 normal, RGBA first, RGBA second);

    /// Makes room for `n` points, as many normals when `withNormals`, and as many of the first
    /// (`colors` >= 1) and second (`colors` >= 2) colours, so that a reader that knows the count
    /// fills the arrays without regrowth.
    void reserve(std::size_t n, bool withNormals = false, int colors = 0);
    /// Gives back the storage beyond the current size, so that a list read with an unknown
    /// count ends at its exact size.
    void shrinkToFit();
    /// Empties all four arrays but keeps their storage, for a host that rebuilds the element
    /// with about as many points; shrinkToFit() afterwards releases it.
    void clear() noexcept;

    /// Start tag with putAttributesXml(), one <P3> element per point ("x y z", then "nx ny nz"
    /// with normals, then the first and second colours as numColors() says; the form chosen
    /// once for the list), end tag; no line break and no self-closing form. Numbers go through
    /// the stream's own output of a double, so its settings decide the precision. Should an
    /// array of the chosen form be shorter than the points, the points beyond it are not
    /// written, rather than read past the array.
    std::ostream& putXml(std::ostream& out) override;

    /// Copies all four arrays with the element (the subclasses' cloneNode relies on it).
    P3List(const P3List& other) = default;
    /// Copies all four arrays; the node's place in the tree stays as it was.
    P3List& operator=(const P3List& other) = default;

protected:
    explicit P3List(Arbor::Document* document) : PrimitiveBase(document) {}

private:
    template <class T> static const T* dataOrNull(const PointArray<T>& v) noexcept {
        return v.empty() ? nullptr : v.data();
    }
    /// The one append behind all push_back forms; a null item is not appended.
    void append(const P3& point, const P3* normal, const RGBA* first, const RGBA* second);

    PointArray<P3> points_;
    PointArray<P3> normals_;
    PointArray<RGBA> firstColors_;
    PointArray<RGBA> secondColors_;
};

} // namespace Grafel
