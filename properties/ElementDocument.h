// A document of plot elements: it creates them by tag from the class registry and receives the
// reports they make.
#pragma once

#include <grafel/arbor/Document.h>
#include <grafel/arbor/Element.h>

#include <cstdarg>
#include <vector>

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
    friend class PlotElement;

    /// A removal under way: the elements that followed the value while it was there, in the
    /// order the change walk found them (each once), and the same sorted by address for lookup.
    struct Removal {
        Arbor::Token name;
        std::vector<Arbor::Ref<Arbor::Element>> followers;
        std::vector<const Arbor::Element*> sorted;
    };

    ErrorHandler errorHandler_ = nullptr;
    // Innermost last: an observer may remove a value while the walk of another removal runs.
    std::vector<Removal> removals_;
    // While set, the change walk only gathers into it the elements that it would notify.
    Removal* gathering_ = nullptr;
};

} // namespace Grafel
