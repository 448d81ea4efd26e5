#include <grafel/document/P2List.h>

#include <grafel/foundation/TextRun.h>

#include <algorithm>
#include <ostream>

namespace Grafel {

namespace {

/// Makes room for one more element before anything is appended, so that a failed allocation
/// leaves every array as it was and the parallel arrays never part. Grows by doubling, as the
/// standard containers do.
template <class T> void makeRoom(std::vector<T>& v) {
    if (v.size() == v.capacity()) v.reserve(v.empty() ? 1 : 2 * v.size());
}

} // namespace

P2List::~P2List() = default;

// The arguments come by value: a point or colour taken from this list's own arrays is copied
// before any of them can move.

void P2List::push_back(P2 point) {
    makeRoom(points_);
    if (!colors_.empty()) std::vector<RGBA>().swap(colors_);
    points_.push_back(point);
}

void P2List::push_back(P2 point, RGBA color) {
    makeRoom(points_);
    makeRoom(colors_);
    points_.push_back(point);
    colors_.push_back(color);
}

void P2List::reserve(std::size_t n, bool withColors) {
    points_.reserve(n);
    if (withColors) colors_.reserve(n);
}

void P2List::shrinkToFit() {
    points_.shrink_to_fit();
    colors_.shrink_to_fit();
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
