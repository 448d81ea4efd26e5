// How the JVX writer walks the faces of a Surf3d: corners, edge pairs and neighbours by kind.
#pragma once

#include <grafel/arbor/Token.h>

#include <cstdint>
#include <memory>

namespace Grafel::detail {

/// The faces of `n` points under one Surf3d Type. The line counts and pairs are those the model
/// format has always been given for each kind, which for strips and fans declare more lines
/// than the faces list.
class FaceIterator {
public:
    explicit FaceIterator(std::int64_t points) : n(points) {}
    virtual ~FaceIterator() = default;
    virtual std::int64_t numFaces() const = 0;
    virtual std::int64_t numLines() const = 0;
    virtual bool isQuad() const { return false; }
    virtual bool hasNeighbours() const = 0;
    /// Fills the corners of face `i` and answers their count.
    virtual int faceIndices(std::int64_t i, std::int64_t* out) const = 0;
    /// Fills index pairs of face `i` and answers the number of pairs.
    virtual int faceLines(std::int64_t i, std::int64_t* out) const = 0;
    /// Fills one neighbour per corner, -1 for none.
    virtual void faceNeighbours(std::int64_t i, std::int64_t* out) const = 0;

    std::int64_t n;
};

/// The iterator for a Surf3d Type; any other word throws "unknown Surf3d type".
std::unique_ptr<FaceIterator> makeFaceIterator(Arbor::Token type, std::int64_t n);

} // namespace Grafel::detail
