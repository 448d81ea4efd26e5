#include <grafel/primitives/Surf3d.h>

#include <grafel/primitives/MeshColors.h>

#include <stdexcept>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Surf3d, GRAFEL_SURF3D_TABLE)

namespace {

/// How a kind makes its faces: face i of n points, and the number of faces of n points.
struct SurfKind {
    TokenId id;
    int corners;
    std::size_t (*faces)(std::size_t n);
    SurfFace (*face)(std::size_t i);
};

std::size_t lessTwo(std::size_t n) {
    return n >= 2 ? n - 2 : 0;
}

constexpr SurfKind kinds[] = {
    {id_Triangles, 3, [](std::size_t n) { return n / 3; },
     [](std::size_t i) {
         return SurfFace{{3 * i, 3 * i + 1, 3 * i + 2, 0}, 3};
     }},
    {id_TriangleStrip, 3, lessTwo,
     [](std::size_t i) {
         return i % 2 == 0 ? SurfFace{{i, i + 1, i + 2, 0}, 3} : SurfFace{{i, i + 2, i + 1, 0}, 3};
     }},
    {id_TriangleFan, 3, lessTwo,
     [](std::size_t i) {
         return SurfFace{{0, i + 1, i + 2, 0}, 3};
     }},
    {id_Quads, 4, [](std::size_t n) { return n / 4; },
     [](std::size_t i) {
         return SurfFace{{4 * i, 4 * i + 1, 4 * i + 2, 4 * i + 3}, 4};
     }},
    {id_QuadStrip, 4, [](std::size_t n) { return lessTwo(n) / 2; },
     [](std::size_t i) {
         return SurfFace{{2 * i, 2 * i + 1, 2 * i + 3, 2 * i + 2}, 4};
     }},
};

const SurfKind* kindOf(Arbor::Token type) {
    for (const SurfKind& kind : kinds)
        if (getToken(kind.id) == type) return &kind;
    return nullptr;
}

} // namespace

std::size_t Surf3d::numFaces() const {
    const SurfKind* kind = kindOf(m_Type);
    return kind ? kind->faces(size()) : 0;
}

int Surf3d::cornersPerFace() const {
    const SurfKind* kind = kindOf(m_Type);
    return kind ? kind->corners : 0;
}

SurfFace Surf3d::face(std::size_t i) const {
    if (i >= numFaces()) throw std::out_of_range("Surf3d::face");
    return kindOf(m_Type)->face(i);
}

const RGBA* Surf3d::lineColors() const {
    return meshLineColors(*this, m_HasLineColors);
}

const RGBA* Surf3d::faceColors() const {
    return meshFaceColors(*this, m_HasLineColors);
}

} // namespace Grafel
