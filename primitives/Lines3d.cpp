#include <grafel/primitives/Lines3d.h>

#include <stdexcept>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_PROPERTIES(Lines3d, GRAFEL_LINES3D_TABLE)

std::size_t Lines3d::numSegments() const {
    const std::size_t n = size();
    if (m_Type == tok_Lines) return n / 2;
    if (m_Type == tok_LineStrip) return n >= 1 ? n - 1 : 0;
    if (m_Type == tok_LineLoop) return n;
    return 0;
}

std::pair<std::size_t, std::size_t> Lines3d::segment(std::size_t k) const {
    if (k >= numSegments()) throw std::out_of_range("Lines3d::segment");
    if (m_Type == tok_Lines) return {2 * k, 2 * k + 1};
    return {k, (k + 1) % size()};
}

} // namespace Grafel
