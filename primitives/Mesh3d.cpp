#include <grafel/primitives/Mesh3d.h>

#include <grafel/primitives/MeshColors.h>

#include <cstdint>
#include <limits>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Mesh3d, GRAFEL_MESH3D_TABLE)

namespace {

constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();

/// a * b for a, b >= 0, or INT64_MAX when the product does not fit.
std::int64_t saturatingProduct(std::int64_t a, std::int64_t b) {
    std::int64_t product;
    return __builtin_mul_overflow(a, b, &product) ? most : product;
}

/// a + 1 for a >= 0, or INT64_MAX when the sum does not fit.
std::int64_t saturatingNext(std::int64_t a) {
    return a == most ? most : a + 1;
}

/// (lines - 1) * (submesh + 1) + 1: the points along one direction. Values the descriptors
/// refuse cannot be stored, but a copy of a hand-built element is not trusted to be in range.
std::int64_t pointsAlong(long lines, long submesh) {
    if (lines < 1) return 0;
    if (submesh < 0) submesh = 0;
    return saturatingNext(saturatingProduct(std::int64_t(lines) - 1, saturatingNext(submesh)));
}

} // namespace

std::int64_t Mesh3d::nU() const {
    return pointsAlong(m_UMesh, m_USubmesh);
}

std::int64_t Mesh3d::nV() const {
    return pointsAlong(m_VMesh, m_VSubmesh);
}

std::int64_t Mesh3d::gridPoints() const {
    return saturatingProduct(nU(), nV());
}

std::int64_t Mesh3d::numFaces() const {
    const std::int64_t u = nU();
    const std::int64_t v = nV();
    if (u < 2 || v < 2) return 0;
    return saturatingProduct(u - 1, v - 1);
}

bool Mesh3d::isRefined() const {
    return numFaces() > 0 && (m_USubmesh > 0 || m_VSubmesh > 0);
}

std::array<std::int64_t, 4> Mesh3d::faceCorners(std::int64_t r, std::int64_t c) const {
    const std::int64_t u = nU();
    const std::int64_t i = r * u + c;
    return {i, i + 1, i + 1 + u, i + u};
}

bool Mesh3d::meshLinesVisible() const {
    return m_UseXYLinesVisible ? m_XLinesVisible || m_YLinesVisible
                               : m_ULinesVisible || m_VLinesVisible;
}

const RGBA* Mesh3d::lineColors() const {
    return meshLineColors(*this, m_HasLineColors);
}

const RGBA* Mesh3d::faceColors() const {
    return meshFaceColors(*this, m_HasLineColors);
}

} // namespace Grafel
