// Loading a plot document for the grafel tool, with the library's diagnostics printed one line
// each on standard error, as a compiler gives them: "INPUT:LINE:COLUMN: prefix message".
#pragma once

#include <grafel/document/LoadDocument.h>
#include <grafel/properties/ReportSink.h>

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace Grafel {
class PlotDocument;
}

namespace GrafelTool {

/// Writes the report lines about one input. Installed as a document's report sink, it also
/// prints what the library reports after the load.
class ReportScope : public Grafel::ReportSink {
public:
    /// `input` is the name shown at the start of each line.
    ReportScope(std::string input, std::ostream& out);
    ReportScope(const ReportScope&) = delete;
    ReportScope& operator=(const ReportScope&) = delete;

    void report(const Grafel::Report& report) override;
    /// One line for a diagnostic of a load.
    void print(const Grafel::Diagnostic& diagnostic);
    /// Writes a line of the tool's own, in the same form as the reports.
    void emit(std::string_view message);
    /// The same at a position of the input (0: unknown).
    void emitAt(long line, long column, std::string_view message);

    const std::string& input() const { return input_; }
    /// Lines written so far, the tool's own included.
    std::size_t lines() const { return lines_; }

private:
    std::string input_;
    std::ostream& out_;
    std::size_t lines_ = 0;
};

/// Reads `path` ("-" for standard input) into `document`, prints its diagnostics and makes
/// `reports` the document's report sink. Answers whether the document loaded; `result`, when
/// given, receives the whole result.
bool loadDocument(Grafel::PlotDocument& document, const std::string& path,
                  const Grafel::LoadOptions& options, ReportScope& reports,
                  Grafel::LoadResult* result = nullptr);

/// The name under which `path` appears in messages.
std::string displayName(const std::string& path);

} // namespace GrafelTool
