// The face iterators of the five Surf3d kinds.
#include <grafel/foundation/Tokens.h>
#include <grafel/output/JavaViewWriter.h>
#include <grafel/output/detail/JvxFaces.h>

namespace Grafel::detail {

namespace {

/// Faces of `Corners` points each, one after the other, none sharing a point.
template <int Corners> class SeparateFacesIterator final : public FaceIterator {
public:
    using FaceIterator::FaceIterator;
    std::int64_t numFaces() const override { return n / Corners; }
    std::int64_t numLines() const override { return (n / Corners) * Corners; }
    bool isQuad() const override { return Corners == 4; }
    bool hasNeighbours() const override { return false; }
    int faceIndices(std::int64_t i, std::int64_t* o) const override {
        for (int k = 0; k < Corners; ++k) o[k] = Corners * i + k;
        return Corners;
    }
    /// Each corner paired with the next, the last with the first.
    int faceLines(std::int64_t i, std::int64_t* o) const override {
        const std::int64_t a = Corners * i;
        for (int k = 0; k < Corners; ++k) {
            o[2 * k] = a + k;
            o[2 * k + 1] = a + (k + 1) % Corners;
        }
        return Corners;
    }
    void faceNeighbours(std::int64_t, std::int64_t* o) const override {
        for (int k = 0; k < Corners; ++k) o[k] = -1;
    }
};

using TrianglesIterator = SeparateFacesIterator<3>;
using QuadsIterator = SeparateFacesIterator<4>;

/// Strip and fan share their counts and pairs.
class StripOrFan : public FaceIterator {
public:
    using FaceIterator::FaceIterator;
    std::int64_t numFaces() const override { return n - 2; }
    std::int64_t numLines() const override { return 2 * n - 3; }
    bool hasNeighbours() const override { return n > 3; }
    int faceLines(std::int64_t i, std::int64_t* o) const override {
        o[0] = i + 1, o[1] = i + 2, o[2] = i + 2, o[3] = i;
        return 2;
    }
};

class TriangleStripIterator final : public StripOrFan {
public:
    using StripOrFan::StripOrFan;
    int faceIndices(std::int64_t i, std::int64_t* o) const override {
        o[0] = i;
        o[1] = i % 2 ? i + 2 : i + 1;
        o[2] = i % 2 ? i + 1 : i + 2;
        return 3;
    }
    void faceNeighbours(std::int64_t i, std::int64_t* o) const override {
        o[0] = i < n - 3 ? i + 1 : -1;
        o[1] = i % 2 ? i - 1 : -1;
        o[2] = i % 2 ? -1 : i - 1;
    }
};

class TriangleFanIterator final : public StripOrFan {
public:
    using StripOrFan::StripOrFan;
    int faceIndices(std::int64_t i, std::int64_t* o) const override {
        o[0] = 0, o[1] = i + 1, o[2] = i + 2;
        return 3;
    }
    void faceNeighbours(std::int64_t i, std::int64_t* o) const override {
        o[0] = -1;
        o[1] = i < n - 3 ? i + 1 : -1;
        o[2] = i - 1;
    }
};

class QuadStripIterator final : public FaceIterator {
public:
    using FaceIterator::FaceIterator;
    std::int64_t numFaces() const override { return (n - 2) / 2; }
    std::int64_t numLines() const override { return ((n - 2) / 2) * 3 + 1; }
    bool isQuad() const override { return true; }
    bool hasNeighbours() const override { return n > 4; }
    int faceIndices(std::int64_t i, std::int64_t* o) const override {
        o[0] = 2 * i, o[1] = 2 * i + 1, o[2] = 2 * i + 3, o[3] = 2 * i + 2;
        return 4;
    }
    int faceLines(std::int64_t i, std::int64_t* o) const override {
        const std::int64_t a = 2 * i;
        const std::int64_t v[6] = {a + 1, a + 2, a + 2, a + 3, a + 3, a};
        for (int k = 0; k < 6; ++k) o[k] = v[k];
        return 3;
    }
    void faceNeighbours(std::int64_t i, std::int64_t* o) const override {
        o[0] = -1;
        o[1] = i < (n - 2) / 2 - 1 ? i + 1 : -1;
        o[2] = -1;
        o[3] = i - 1;
    }
};

} // namespace

std::unique_ptr<FaceIterator> makeFaceIterator(Arbor::Token type, std::int64_t n) {
    if (type == getToken(id_Triangles)) return std::make_unique<TrianglesIterator>(n);
    if (type == getToken(id_TriangleStrip)) return std::make_unique<TriangleStripIterator>(n);
    if (type == getToken(id_TriangleFan)) return std::make_unique<TriangleFanIterator>(n);
    if (type == getToken(id_Quads)) return std::make_unique<QuadsIterator>(n);
    if (type == getToken(id_QuadStrip)) return std::make_unique<QuadStripIterator>(n);
    throw JavaViewExportError("unknown Surf3d type");
}

} // namespace Grafel::detail
