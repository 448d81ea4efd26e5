// grafel convert --to jvd, and the display that --with-display writes beside a model.
#pragma once

#include "JvxExport.h"

#include <string>

namespace GrafelTool {

/// Writes the display of `document` at the time of `options` to `options.output`, with the
/// reports of the model export. A display that goes with a model (`companion`) keeps quiet
/// about the warnings that the model's export has already reported.
int exportJvd(Grafel::PlotDocument& document, const JvxExportOptions& options, ReportScope& reports,
              bool companion = false);

/// The display file that goes with the model file `model`: NAME.jvx gives NAME.jvd; empty
/// when `model` does not end in ".jvx".
std::string displayFileFor(const std::string& model);

} // namespace GrafelTool
