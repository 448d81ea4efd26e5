// The walk that finds object styles: the ObjStyle children of the levels above a node, nearest
// level first and in document order within a level.
#pragma once

#include <grafel/structure/ObjStyle.h>

namespace Grafel::detail {

/// Whether the styles among the children of `level` count: a transform holds none.
inline bool holdsStyles(const Arbor::Node* level) {
    const Arbor::Token name = level->nodeName();
    return name != tok_Transform2d && name != tok_Transform3d;
}

/// Calls `visit` with each ObjStyle among the children of the levels from the parent of
/// `start` up, nearest level first and in document order, until it answers true; answers that
/// style, or null. Transforms are passed over.
template <class Visit> ObjStyle* walkStyles(Arbor::Node* start, Visit visit) {
    const Arbor::Token styleTag = tok_ObjStyle;
    // The child a level is reached from is `start`, which is not examined, or an ancestor of
    // it, which has children and so is no style: it is passed over unasked.
    for (Arbor::Node *from = start, *level = start->parentNode(); level;
         from = level, level = level->parentNode()) {
        bool levelChecked = false;
        for (Arbor::Node* n = level->firstChild(); n; n = n->nextSibling()) {
            // The tag ObjStyle belongs to this class (a document makes elements by tag from the
            // class registry), so on the read path the tag test stands in for a dynamic_cast.
            if (n == from || n->nodeName() != styleTag) continue;
            // Most levels hold no style, so the level's own tag is only asked on a find.
            if (!levelChecked) {
                if (!holdsStyles(level)) break;
                levelChecked = true;
            }
            ObjStyle* style = static_cast<ObjStyle*>(n);
            if (visit(style)) return style;
        }
    }
    return nullptr;
}

} // namespace Grafel::detail
