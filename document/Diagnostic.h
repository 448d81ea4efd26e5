// One report about an input, as a load hands it back: where, about what, and the library's own
// words.
#pragma once

#include <string>

namespace Grafel {

/// A report made while a document was read, or by the loader itself.
struct Diagnostic {
    enum class Severity { Error, Warning };

    /// Error when the load failed; a report on a load that went on is a Warning.
    Severity severity = Severity::Error;
    /// Position in the input, from 1; 0 when unknown (the Zpa reader knows lines only).
    long line = 0;
    long column = 0;
    /// Tag of the element concerned, name of its attribute, and the text that was offered for
    /// it; empty when unknown or when there is none.
    std::string element;
    std::string attribute;
    std::string value;
    /// Who speaks: "ZPX error: ", "Grafel error: ", "XML error: " (the XML syntax), "Zpa error: "
    /// or "error: " (the loader: an input that cannot be opened or read, a failure the reader
    /// gave no text for).
    std::string prefix;
    /// The text as the library reports it, without a line end.
    std::string message;

    /// prefix + message.
    std::string text() const { return prefix + message; }
};

} // namespace Grafel
