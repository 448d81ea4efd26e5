// A document of plot elements: it creates them by tag from the class registry and receives the
// reports they make.
#pragma once

#include <grafel/arbor/Document.h>
#include <grafel/arbor/Element.h>
#include <grafel/properties/ReportSink.h>

#include <cstdarg>
#include <string_view>
#include <vector>

namespace Grafel {

class PlotElement;

/// The part of the plot document that the elements rely on. Reports are printf formats with
/// their argument lists, handed to the function installed with domErrorHdl(); the library
/// itself prints nothing. A ReportSink, when installed, receives the same reports structured.
class ElementDocument : public Arbor::Document {
public:
    /// Receives (format, argument list) of each report.
    using ErrorHandler = void (*)(const char* format, va_list args);

    ElementDocument() = default;
    ElementDocument(const ElementDocument& other);
    ElementDocument& operator=(const ElementDocument& other);

    /// A new element of the class registered for `tagName`, or null (no report).
    Arbor::Element* createElement(Arbor::Token tagName) override;
    /// The same, typed.
    PlotElement* createPlotElement(Arbor::Token tagName);

    /// Hands a report to the handler, first the prefix "Grafel error: " as a call of its own,
    /// then the message. Does nothing without a handler.
    void domError(const char* format, va_list args);
    /// Installs the handler (null: reports are dropped).
    void domErrorHdl(ErrorHandler handler) { errorHandler_ = handler; }
    ErrorHandler errorHandler() const { return errorHandler_; }

    /// What a report made now concerns: the element being read, the attribute being set and
    /// the text offered for it. Set by whoever drives a change (a reader) for its duration;
    /// copies are not taken, so the texts must outlive the context.
    struct ReportContext {
        std::string_view element;
        std::string_view attribute;
        std::string_view value;
    };
    /// Installs the sink (null: none); it is not copied with the document.
    void setReportSink(ReportSink* sink) noexcept { reportSink_ = sink; }
    ReportSink* reportSink() const noexcept { return reportSink_; }
    /// Replaces the context and answers the one before, for the caller to put back.
    ReportContext exchangeReportContext(const ReportContext& context) noexcept;
    const ReportContext& reportContext() const noexcept { return reportContext_; }
    /// Hands `report` to the sink, with the context filling the fields it leaves empty.
    /// Nothing without a sink; the error handler is not called.
    void report(Report report);

private:
    friend class PlotElement;

    /// A removal under way: the elements that followed the value while it was there, in the
    /// order the change walk found them (each once), and the same sorted by address for lookup.
    struct Removal {
        Arbor::Token name;
        std::vector<Arbor::Ref<Arbor::Element>> followers;
        std::vector<const Arbor::Element*> sorted;
    };

    ErrorHandler errorHandler_ = nullptr;
    ReportSink* reportSink_ = nullptr;
    ReportContext reportContext_;
    // Innermost last: an observer may remove a value while the walk of another removal runs.
    std::vector<Removal> removals_;
    // While set, the change walk only gathers into it the elements that it would notify.
    Removal* gathering_ = nullptr;
};

} // namespace Grafel
