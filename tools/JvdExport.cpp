#include "JvdExport.h"

#include "Arguments.h"
#include "Load.h"
#include "Output.h"

#include <grafel/document/PlotDocument.h>
#include <grafel/output/JVDWriter.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <sstream>

namespace GrafelTool {

namespace {

/// The writer as the tool runs it: warnings become report lines unless they repeat a model's.
class ToolJvdWriter : public Grafel::JVDWriter {
public:
    ToolJvdWriter(Grafel::PlotDocument* doc, ReportScope& reports, bool quiet)
        : JVDWriter(doc), reports_(reports), quiet_(quiet) {}

    void warning(const char* text) override {
        if (!quiet_) reports_.emit(std::string("warning: ") + text);
    }

private:
    ReportScope& reports_;
    bool quiet_;
};

} // namespace

int exportJvd(Grafel::PlotDocument& document, const JvxExportOptions& options, ReportScope& reports,
              bool companion) {
    ToolJvdWriter writer(&document, reports, companion);
    if (!options.dtdHost.empty()) writer.setDtdHost(options.dtdHost);
    try {
        // Made whole before the output is opened, so that a failed export leaves an existing
        // file alone.
        std::ostringstream text;
        writer.write(&text, options.time ? *options.time : Grafel::JavaViewWriter::noTime);
        return writeOutput(text.str(), options.output) ? ExitOk : ExitFailed;
    } catch (const Grafel::JavaViewExportError& e) {
        reports.emit(std::string("JavaView export error: ") + e.what());
    } catch (const std::exception& e) {
        reports.emit(std::string("error: cannot write the document: ") + e.what());
    }
    return ExitFailed;
}

std::string displayFileFor(const std::string& model) {
    const std::string suffix = ".jvx";
    if (model.size() <= suffix.size() ||
        model.compare(model.size() - suffix.size(), suffix.size(), suffix) != 0)
        return {};
    return model.substr(0, model.size() - suffix.size()) + ".jvd";
}

} // namespace GrafelTool
