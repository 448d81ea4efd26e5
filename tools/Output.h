// Where every command's output goes: a file or standard output, with a failure reported once.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>

namespace GrafelTool {

/// Writes `text` to `path` ("-" for standard output). A failure is reported on standard error
/// as "NAME: error: cannot write: REASON" or "NAME: error: write failed: REASON", NAME being
/// the path or "<stdout>"; answers whether all of it was written.
bool writeOutput(const std::string& text, const std::string& path);

class ReportScope;

/// Has `make` write a command's whole text, then writes it to `path` in one piece, so that a
/// failure leaves an existing file alone. What `make` throws is reported through `reports` as
/// "error: cannot DOING: REASON" and nothing is written. Answers the exit status.
int writeMadeOutput(ReportScope& reports, const char* doing,
                    const std::function<void(std::ostream&)>& make, const std::string& path);

} // namespace GrafelTool
