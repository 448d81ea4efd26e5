// A structure check of JavaView model files, independent of the writer: what a viewer that
// reads the published format relies on, not the exact text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TestSupport {

/// The problems found in `text`, each a line naming the place; empty for a good file. Checked:
/// well-formed XML with the DOCTYPE of jvx-model and that root; geometries/geometry, each
/// starting with a pointSet before any lineSet, faceSet or vectorField; every list with a num
/// holds that many items; points have at least the dimension of their set; line and face indices
/// lie in the point set, neighbours in the face list; a set shown with colours has one colour per
/// point, line or face; every colour is three integers from 0 to 255.
std::vector<std::string> jvxProblems(std::string_view text);

/// The problems joined by line feeds, for a test's failure message.
std::string joinedJvxProblems(std::string_view text);

} // namespace TestSupport
