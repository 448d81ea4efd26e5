// A structure check of display files: the text must be well-formed XML under the root jv-disp,
// and every element of the display must stand where the format puts it, with attributes and
// text of the forms the format admits.
#pragma once

#include <string>

namespace TestSupport {

/// The problems found in `text`, one a line; empty when the display is well formed.
std::string checkJvd(const std::string& text);

} // namespace TestSupport
