// Loading a plot document for the grafel tool, with the library's reports turned into one
// line each on standard error: "INPUT:LINE: prefix message" during a load, "INPUT: prefix
// message" outside one.
#pragma once

#include <grafel/properties/ElementDocument.h>

#include <cstdarg>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace Tessel::Xml {
class Parser;
}

namespace Grafel {
class PlotDocument;
}

namespace GrafelTool {

/// Receives the reports that the library makes about one input while the scope lives. The
/// library hands a report over in two calls of a plain function, first the prefix ("ZPX error:
/// ", "Grafel error: "), then the message; the scope joins them into one line. Scopes nest: the
/// newest one is the one that receives.
class ReportScope {
public:
    /// `input` is the name shown at the start of each line.
    ReportScope(std::string input, std::ostream& out);
    ~ReportScope();
    ReportScope(const ReportScope&) = delete;
    ReportScope& operator=(const ReportScope&) = delete;

    /// The function to install with domErrorHdl() and to hand to the reader.
    static void handler(const char* format, va_list args);
    static constexpr Grafel::ElementDocument::ErrorHandler errorHandler = &handler;

    /// The parser whose position gives the line of each report; null outside a load.
    void setParser(const Tessel::Xml::Parser* parser);
    /// Writes a line of the tool's own, in the same form as the reports.
    void emit(std::string_view message);
    /// Writes a line of the tool's own for line `line` of the input, when no parser tells it.
    void emitAt(long line, std::string_view message);
    /// Writes a prefix that is still waiting for its message.
    void flush();

    const std::string& input() const { return input_; }
    /// Lines written so far, the tool's own included.
    std::size_t lines() const { return lines_; }

private:
    void receive(const char* format, va_list args);
    void writeLine(std::string_view text, long line = 0);

    std::string input_;
    std::ostream& out_;
    const Tessel::Xml::Parser* parser_ = nullptr;
    std::string prefix_;
    bool prefixPending_ = false;
    std::size_t lines_ = 0;
    ReportScope* outer_;
};

/// How a load is asked for.
struct LoadOptions {
    /// Drop the attribute id of every element.
    bool dropIds = false;
};

/// Reads `path` ("-" for standard input) into `document`, which gets the scope's handler.
/// Answers whether the document loaded; every failure has written at least one line to the
/// scope, and the document then holds an empty page.
bool loadDocument(Grafel::PlotDocument& document, const std::string& path,
                  const LoadOptions& options, ReportScope& reports);

/// The name under which `path` appears in messages.
std::string displayName(const std::string& path);

} // namespace GrafelTool
