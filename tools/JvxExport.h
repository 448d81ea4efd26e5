// grafel convert --to jvx: one model, or an animation as numbered model files.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace Grafel {
class JavaViewWriter;
class PlotDocument;
} // namespace Grafel

namespace GrafelTool {

class ReportScope;

struct JvxExportOptions {
    /// The export time; none: the begin of an animation, no time for a still plot.
    std::optional<double> time;
    /// Frames a time unit of an animation written as files named after `output`.
    std::optional<int> frames;
    /// The output file, "-" for standard output; a name pattern with frames.
    std::string output = "-";
    /// With frames: an existing frame file ends the export instead of being replaced.
    bool noClobber = false;
    /// The host of the DTD location in the DOCTYPE; empty: the writer's default.
    std::string dtdHost;
};

/// Writes `document` as options say. Export errors and warnings are reported through
/// `reports` as "JavaView export error: TEXT" and "warning: TEXT"; answers the exit status.
int exportJvx(Grafel::PlotDocument& document, const JvxExportOptions& options,
              ReportScope& reports);

/// Runs the steps of an export and answers their exit status; what they throw is reported
/// through `reports` as the export commands report it, and fails the export.
int reportExportErrors(ReportScope& reports, const std::function<int()>& steps);

/// Writes what `writer` makes at the time of `options` to `options.output` in one piece.
int writeWholeFile(Grafel::JavaViewWriter& writer, const JvxExportOptions& options);

} // namespace GrafelTool
