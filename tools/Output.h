// Where every command's output goes: a file or standard output, with a failure reported once.
#pragma once

#include <string>

namespace GrafelTool {

/// Writes `text` to `path` ("-" for standard output). A failure is reported on standard error
/// as "NAME: error: cannot write: REASON" or "NAME: error: write failed: REASON", NAME being
/// the path or "<stdout>"; answers whether all of it was written.
bool writeOutput(const std::string& text, const std::string& path);

} // namespace GrafelTool
