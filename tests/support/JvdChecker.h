// A structure check of display files: well-formed XML with the DOCTYPE and root jv-disp, and
// every element of the display where the format puts it, with attributes and text of the
// forms the format admits.
#pragma once

#include <string>

namespace TestSupport {

/// The problems found in `text`, one a line; empty when the display is well formed.
std::string checkJvd(const std::string& text);

} // namespace TestSupport
