#include "Load.h"

#include <grafel/document/PlotDocument.h>

#include <iostream>
#include <utility>

namespace GrafelTool {

namespace {

/// The text with its line end removed and any inner line break turned into a blank, so that
/// one report stays one line.
std::string oneLine(std::string_view text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.remove_suffix(1);
    std::string line(text);
    for (char& c : line)
        if (c == '\n' || c == '\r') c = ' ';
    return line;
}

/// " (value "TEXT")" for a refused value, nothing without one.
std::string valueNote(std::string_view value) {
    if (value.empty()) return {};
    return " (value \"" + oneLine(value) + "\")";
}

} // namespace

ReportScope::ReportScope(std::string input, std::ostream& out)
    : input_(std::move(input)), out_(out) {}

void ReportScope::report(const Grafel::Report& report) {
    emit(std::string(report.prefix) + std::string(report.message) + valueNote(report.value));
}

void ReportScope::print(const Grafel::Diagnostic& d) {
    emitAt(d.line, d.column, d.prefix + d.message + valueNote(d.value));
}

void ReportScope::emit(std::string_view message) {
    emitAt(0, 0, message);
}

void ReportScope::emitAt(long line, long column, std::string_view message) {
    out_ << input_;
    if (line > 0) {
        out_ << ':' << line;
        if (column > 0) out_ << ':' << column;
    }
    out_ << ": " << oneLine(message) << '\n' << std::flush;
    ++lines_;
}

std::string displayName(const std::string& path) {
    return path == "-" ? "<stdin>" : path;
}

bool loadDocument(Grafel::PlotDocument& document, const std::string& path,
                  const Grafel::LoadOptions& options, ReportScope& reports,
                  Grafel::LoadResult* result) {
    Grafel::LoadResult loaded = path == "-" ? Grafel::loadDocument(document, std::cin, options)
                                            : Grafel::loadDocument(document, path, options);
    for (const Grafel::Diagnostic& d : loaded.diagnostics) reports.print(d);
    document.setReportSink(&reports);
    const bool ok = loaded.ok();
    if (result) *result = std::move(loaded);
    return ok;
}

} // namespace GrafelTool
