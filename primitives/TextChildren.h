// The rule of the text primitives, whose children are their text.
#pragma once

#include <grafel/arbor/Node.h>
#include <grafel/properties/PlotElement.h>

namespace Grafel {

/// Whether `element` may take the nodes from `newFirst` on as children: any removal passes, an
/// addition when its first node is a text node (only that one is looked at). Otherwise reports
/// "not a text node child".
bool mayTakeTextChildren(const PlotElement& element, Arbor::Node* newFirst);

} // namespace Grafel
