#include "JvdExport.h"

#include "Load.h"

#include <grafel/document/PlotDocument.h>
#include <grafel/output/JVDWriter.h>

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
    return reportExportErrors(reports, [&] { return writeWholeFile(writer, options); });
}

std::string displayFileFor(const std::string& model) {
    const std::string suffix = ".jvx";
    if (model.size() <= suffix.size() ||
        model.compare(model.size() - suffix.size(), suffix.size(), suffix) != 0)
        return {};
    return model.substr(0, model.size() - suffix.size()) + ".jvd";
}

} // namespace GrafelTool
