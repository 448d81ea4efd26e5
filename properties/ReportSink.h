// The structured side of the library's reports: beside the printf-style text that goes to a
// document's error handler, a sink receives each report with the names and value it concerns.
#pragma once

#include <cstdarg>
#include <string>
#include <string_view>

namespace Grafel {

/// One report. The views are valid only during the call that hands it over; fields that the
/// reporter does not know are empty.
struct Report {
    /// "ZPX error: ", "Grafel error: ", or empty for a note of the reader that has no text in
    /// the error handler.
    std::string_view prefix;
    /// The message without its line end.
    std::string_view message;
    /// Tag of the element being read or changed.
    std::string_view element;
    /// Name of the attribute being set.
    std::string_view attribute;
    /// The text that was offered for that attribute.
    std::string_view value;
};

/// Receives the reports of one document (ElementDocument::setReportSink). A sink belongs to one
/// document, so loads of different documents on different threads never meet in one.
class ReportSink {
public:
    virtual void report(const Report& report) = 0;

protected:
    ~ReportSink() = default;
};

/// The text of a printf-style report, its line end removed.
std::string formatReport(const char* format, va_list args);

} // namespace Grafel
