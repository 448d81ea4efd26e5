#include <grafel/properties/ElementDocument.h>

#include <grafel/properties/ElementRegistry.h>
#include <grafel/properties/PlotElement.h>

#include <cstdio>
#include <string>
#include <utility>

namespace Grafel {

std::string formatReport(const char* format, va_list args) {
    va_list copy;
    va_copy(copy, args);
    const int length = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    if (length < 0) return format;
    std::string text(static_cast<std::size_t>(length), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, args);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    return text;
}

ElementDocument::ElementDocument(const ElementDocument& other)
    : Arbor::Document(other), errorHandler_(other.errorHandler_) {}

ElementDocument& ElementDocument::operator=(const ElementDocument& other) {
    Arbor::Document::operator=(other);
    errorHandler_ = other.errorHandler_;
    return *this;
}

Arbor::Element* ElementDocument::createElement(Arbor::Token tagName) {
    return createPlotElement(tagName);
}

PlotElement* ElementDocument::createPlotElement(Arbor::Token tagName) {
    if (tagName.isNull()) return nullptr;
    ElementMaker maker = elementMaker(getTokenId(tagName.c_str()));
    return maker ? maker(this) : nullptr;
}

ElementDocument::ReportContext
ElementDocument::exchangeReportContext(const ReportContext& context) noexcept {
    return std::exchange(reportContext_, context);
}

void ElementDocument::report(Report report) {
    if (!reportSink_) return;
    if (report.element.empty()) report.element = reportContext_.element;
    if (report.attribute.empty()) report.attribute = reportContext_.attribute;
    if (report.value.empty()) report.value = reportContext_.value;
    reportSink_->report(report);
}

void ElementDocument::domError(const char* format, va_list args) {
    if (reportSink_) {
        va_list copy;
        va_copy(copy, args);
        const std::string message = formatReport(format, copy);
        va_end(copy);
        report({"Grafel error: ", message, {}, {}, {}});
    }
    if (!errorHandler_) return;
    va_list copy;
    va_copy(copy, args);
    errorHandler_("Grafel error: ", copy);
    va_end(copy);
    va_copy(copy, args);
    errorHandler_(format, copy);
    va_end(copy);
}

} // namespace Grafel
