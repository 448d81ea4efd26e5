#include <grafel/document/P3List.h>

#include <grafel/foundation/TextRun.h>

#include <algorithm>
#include <ostream>

namespace Grafel {

P3List::~P3List() = default;

// The public forms take their arguments by value: an item taken from this list's own arrays is
// copied before any of them can move, and append() only sees the copies.

void P3List::push_back(P3 point) {
    append(point, nullptr, nullptr, nullptr);
}

void P3List::push_back(P3 point, P3 normal) {
    append(point, &normal, nullptr, nullptr);
}

void P3List::push_back(P3 point, RGBA first) {
    append(point, nullptr, &first, nullptr);
}

void P3List::push_back(P3 point, RGBA first, RGBA second) {
    append(point, nullptr, &first, &second);
}

void P3List::push_back(P3 point, P3 normal, RGBA first) {
    append(point, &normal, &first, nullptr);
}

void P3List::push_back(P3 point, P3 normal, RGBA first, RGBA second) {
    append(point, &normal, &first, &second);
}

void P3List::append(const P3& point, const P3* normal, const RGBA* first, const RGBA* second) {
    points_.makeRoom();
    if (normal) normals_.makeRoom();
    if (first) firstColors_.makeRoom();
    if (second) secondColors_.makeRoom();
    // Nothing below allocates, so nothing below throws.
    points_.appendInRoom(point);
    if (normal) normals_.appendInRoom(*normal);
    if (first) firstColors_.appendInRoom(*first);
    if (second) secondColors_.appendInRoom(*second);
}

void P3List::reserve(std::size_t n, bool withNormals, int colors) {
    points_.reserve(n);
    if (withNormals) normals_.reserve(n);
    if (colors >= 1) firstColors_.reserve(n);
    if (colors >= 2) secondColors_.reserve(n);
}

void P3List::shrinkToFit() {
    points_.shrinkToFit();
    normals_.shrinkToFit();
    firstColors_.shrinkToFit();
    secondColors_.shrinkToFit();
}

void P3List::clear() noexcept {
    points_.clear();
    normals_.clear();
    firstColors_.clear();
    secondColors_.clear();
}

std::ostream& P3List::putXml(std::ostream& out) {
    const Arbor::Token tag = tagName();
    out << '<' << tag;
    putAttributesXml(out);
    out << '>';

    // The form, once for the whole list.
    const bool withNormals = hasNormals();
    const int colors = numColors();
    std::size_t n = points_.size();
    if (withNormals) n = std::min(n, normals_.size());
    if (colors >= 1) n = std::min(n, firstColors_.size());
    if (colors >= 2) n = std::min(n, secondColors_.size());

    const P3* p = points_.data();
    const P3* normal = normals_.data();
    const RGBA* first = firstColors_.data();
    const RGBA* second = secondColors_.data();
    TextRun run(out);
    for (std::size_t i = 0; i < n; ++i) {
        run << "<P3>" << p[i].x << ' ' << p[i].y << ' ' << p[i].z;
        if (withNormals) run << ' ' << normal[i].x << ' ' << normal[i].y << ' ' << normal[i].z;
        if (colors >= 1) run << ' ' << first[i];
        if (colors >= 2) run << ' ' << second[i];
        run << "</P3>";
    }
    run.flush();
    return out << "</" << tag << '>';
}

} // namespace Grafel
