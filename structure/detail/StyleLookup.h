// How scenes, coordinate systems and their styles find the style they inherit from: a style is
// the first child of a given tag at a fixed level above, and counts only when it holds the
// value asked for.
#pragma once

#include <grafel/properties/PlotElement.h>

namespace Grafel::detail {

/// The first child of `level` named `tag`, as a plot element; null without `level` or child.
inline PlotElement* styleAt(const Arbor::Node* level, Arbor::Token tag) {
    return level ? PlotElement::from(level->findChild(tag)) : nullptr;
}

/// `style` when it holds `name` itself, else null.
inline PlotElement* holding(PlotElement* style, Arbor::Token name) {
    return style && style->hasAttribute(name) ? style : nullptr;
}

/// The parent of `node`, null for null.
inline Arbor::Node* parentOf(const Arbor::Node* node) {
    return node ? node->parentNode() : nullptr;
}

} // namespace Grafel::detail
