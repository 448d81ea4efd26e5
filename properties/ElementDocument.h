// A document of plot elements: it creates them by tag from the class registry and receives the
// reports they make.
#pragma once

#include <grafel/arbor/Document.h>

#include <cstdarg>

namespace Grafel {

class PlotElement;

/// The part of the plot document that the elements rely on. Reports are printf formats with
/// their argument lists, handed to the function installed with domErrorHdl(); the library
/// itself prints nothing.
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

private:
    ErrorHandler errorHandler_ = nullptr;
};

} // namespace Grafel
