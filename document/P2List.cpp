#include <grafel/document/P2List.h>

#include <grafel/foundation/TextRun.h>

#include <algorithm>
#include <ostream>

namespace Grafel {

P2List::~P2List() = default;

// The arguments come by value: a point or colour taken from this list's own arrays is copied
// before any of them can move.

void P2List::push_back(P2 point) {
    points_.makeRoom();
    colors_.reset();
    points_.appendInRoom(point);
}

void P2List::push_back(P2 point, RGBA color) {
    points_.makeRoom();
    colors_.makeRoom();
    points_.appendInRoom(point);
    colors_.appendInRoom(color);
}

void P2List::reserve(std::size_t n, bool withColors) {
    points_.reserve(n);
    if (withColors) colors_.reserve(n);
}

void P2List::shrinkToFit() {
    points_.shrinkToFit();
    colors_.shrinkToFit();
}

void P2List::clear() noexcept {
    points_.clear();
    colors_.clear();
}

std::ostream& P2List::putXml(std::ostream& out) {
    const Arbor::Token tag = tagName();
    out << '<' << tag;
    putAttributesXml(out);
    out << '>';
    const P2* p = points_.data();
    TextRun run(out);
    if (colored()) {
        const RGBA* c = colors_.data();
        const std::size_t n = std::min(points_.size(), colors_.size());
        for (std::size_t i = 0; i < n; ++i)
            run << "<P2>" << p[i].x << ' ' << p[i].y << ' ' << c[i] << "</P2>";
    } else {
        const std::size_t n = points_.size();
        for (std::size_t i = 0; i < n; ++i) run << "<P2>" << p[i].x << ' ' << p[i].y << "</P2>";
    }
    run.flush();
    return out << "</" << tag << '>';
}

} // namespace Grafel
