// Which of a point list's two colour lists colours the lines of a mesh or surface, and which its
// faces: one list serves lines or faces as HasLineColors says, two serve lines and faces in
// this order.
#pragma once

#include <grafel/document/P3List.h>
#include <grafel/foundation/Rgba.h>

namespace Grafel {

/// The colours of the lines, one per point, or null when the lines have none.
inline const RGBA* meshLineColors(const P3List& list, bool hasLineColors) {
    if (!list.firstColors()) return nullptr;
    return list.secondColors() || hasLineColors ? list.firstColors() : nullptr;
}

/// The colours of the faces, one per point, or null when the faces have none.
inline const RGBA* meshFaceColors(const P3List& list, bool hasLineColors) {
    if (list.secondColors()) return list.secondColors();
    return hasLineColors ? nullptr : list.firstColors();
}

} // namespace Grafel
