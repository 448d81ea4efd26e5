#include "JvxExport.h"

#include "Arguments.h"
#include "Load.h"
#include "Output.h"

#include <grafel/document/PlotDocument.h>
#include <grafel/output/JVXWriter.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <sstream>

namespace GrafelTool {

namespace {

/// More files than this from one command is taken for a mistake in the time range or --frames.
constexpr double maxFrameFiles = 100000;

/// The writer as the tool runs it: warnings become report lines, and under --no-clobber the
/// first existing frame file stops the export.
class ToolJvxWriter : public Grafel::JVXWriter {
public:
    ToolJvxWriter(Grafel::PlotDocument* doc, ReportScope& reports, bool noClobber)
        : JVXWriter(doc), reports_(reports), noClobber_(noClobber) {}

    void warning(const char* text) override { reports_.emit(std::string("warning: ") + text); }
    bool overwriteFrameFile(const char* fileName, bool& overwriteAll) override {
        if (!noClobber_) return JVXWriter::overwriteFrameFile(fileName, overwriteAll);
        refused_ = fileName;
        return false;
    }
    /// The frame file that was not replaced, empty if none.
    const std::string& refused() const { return refused_; }

private:
    ReportScope& reports_;
    bool noClobber_;
    std::string refused_;
};

} // namespace

int exportJvx(Grafel::PlotDocument& document, const JvxExportOptions& options,
              ReportScope& reports) {
    ToolJvxWriter writer(&document, reports, options.noClobber);
    if (!options.dtdHost.empty()) writer.setDtdHost(options.dtdHost);
    return reportExportErrors(reports, [&]() -> int {
        if (options.frames) {
            double begin = 0, end = 0;
            if (writer.animationRange(begin, end) && *options.frames > 0 &&
                !((end - begin) * *options.frames < maxFrameFiles)) {
                reports.emit("error: the animation would take more than " +
                             std::to_string(static_cast<long>(maxFrameFiles)) + " files");
                return ExitFailed;
            }
            writer.writeFrames(*options.frames, options.output.c_str());
            if (!writer.refused().empty()) {
                reports.emit("error: " + writer.refused() + " exists; not replaced (--no-clobber)");
                return ExitFailed;
            }
            return ExitOk;
        }
        return writeWholeFile(writer, options);
    });
}

int reportExportErrors(ReportScope& reports, const std::function<int()>& steps) {
    try {
        return steps();
    } catch (const Grafel::JavaViewExportError& e) {
        reports.emit(std::string("JavaView export error: ") + e.what());
    } catch (const std::exception& e) {
        reports.emit(std::string("error: cannot write the document: ") + e.what());
    }
    return ExitFailed;
}

int writeWholeFile(Grafel::JavaViewWriter& writer, const JvxExportOptions& options) {
    // Made whole before the output is opened, so that a failed export leaves an existing file
    // alone.
    std::ostringstream text;
    writer.write(&text, options.time ? *options.time : Grafel::JavaViewWriter::noTime);
    return writeOutput(text.str(), options.output) ? ExitOk : ExitFailed;
}

} // namespace GrafelTool
