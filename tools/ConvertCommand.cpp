// grafel convert: loads a document and writes it again, as ZPX or as command text.
#include "Arguments.h"
#include "Commands.h"
#include "Load.h"

#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/NumberFormat.h>

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>

namespace GrafelTool {

namespace {

constexpr std::string_view command = "convert";

constexpr std::string_view help =
    R"(Usage: grafel convert [--to FORMAT] [-o FILE] [--precision N] [--drop-ids] INPUT

Loads the plot document INPUT ("-" for standard input) and writes it out again.
Numbers are written exactly: with six significant digits where these read back to the
same value, and with as many more as it takes where they do not.

Options:
  --to FORMAT        the form to write:
                       zpx     the XML form (the default)
                       cmd     command text that builds the plot
                       replot  command text that replots an existing plot
  -o, --output FILE  write to FILE instead of standard output
  --precision N      write numbers with N significant digits (1 to 99), rounding
                     where they have more; 6 gives the library's own default text
  --drop-ids         leave out the id of every element while loading
  -h, --help         show this help

The JavaView forms jvx and jvd are not available yet.
Exit status: 0 written, 1 not loaded or not written, 2 wrong command line.
)";

constexpr OptionSpec optionSpecs[] = {
    {"to", 0, true},
    {"output", 'o', true},
    {"precision", 0, true},
    {"drop-ids", 0, false},
};

/// The most digits --precision takes; 17 already tell every double apart.
constexpr int maxPrecision = 99;

enum class Format { Zpx, Cmd, Replot };

std::optional<Format> formatNamed(std::string_view name) {
    if (name == "zpx") return Format::Zpx;
    if (name == "cmd") return Format::Cmd;
    if (name == "replot") return Format::Replot;
    return std::nullopt;
}

/// The value of --precision: a whole number from 1 to maxPrecision.
std::optional<int> precisionNamed(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < 1 ||
        value > maxPrecision)
        return std::nullopt;
    return value;
}

void render(Grafel::PlotDocument& document, Format format, std::ostream& out) {
    switch (format) {
    case Format::Zpx:
        document.putXml(out);
        break;
    case Format::Cmd:
        document.putCmd(out, false);
        break;
    case Format::Replot:
        document.putCmd(out, true);
        break;
    }
}

/// Writes `text` to `path` ("-" for standard output); a failure is reported with the name of
/// the output.
bool writeOutput(const std::string& text, const std::string& path) {
    const bool toStdout = path == "-";
    const std::string shown = toStdout ? "<stdout>" : path;
    std::FILE* file = toStdout ? stdout : std::fopen(path.c_str(), "wb");
    if (!file) {
        std::cerr << shown << ": error: cannot write: " << std::strerror(errno) << '\n';
        return false;
    }
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    int error = written ? 0 : errno;
    if (std::fflush(file) != 0 && error == 0) error = errno;
    if (!toStdout && std::fclose(file) != 0 && error == 0) error = errno;
    if (!written || error != 0) {
        std::cerr << shown << ": error: write failed: " << std::strerror(error ? error : EIO)
                  << '\n';
        return false;
    }
    return true;
}

} // namespace

int runConvert(Words args) {
    ParsedArguments parsed;
    if (auto end = startCommand(command, help, args, optionSpecs, parsed)) return *end;

    const std::string formatName = parsed.value("to", "zpx");
    const std::optional<Format> format = formatNamed(formatName);
    if (!format) {
        if (formatName == "jvx" || formatName == "jvd")
            return usageError(command, "format '" + formatName + "' is not available yet");
        return usageError(command, "unknown format '" + formatName + "' (zpx, cmd, replot)");
    }
    std::optional<int> precision;
    if (parsed.has("precision")) {
        const std::string text = parsed.value("precision", "");
        precision = precisionNamed(text);
        if (!precision)
            return usageError(command, "invalid precision '" + text +
                                           "' (a whole number from 1 to " +
                                           std::to_string(maxPrecision) + ")");
    }
    if (auto end = checkInputs(command, parsed, false)) return *end;
    const std::string& input = parsed.operands.front();

    ReportScope reports(displayName(input), std::cerr);
    Grafel::PlotDocument document;
    if (!loadDocument(document, input, LoadOptions{parsed.has("drop-ids")}, reports))
        return ExitFailed;

    // The whole text is made before the output is opened, so that nothing is left half
    // written, and a failed load leaves an existing output file alone.
    // A conversion loses no digits unless asked to.
    std::ostringstream text;
    if (precision)
        text.precision(*precision);
    else
        text << Grafel::exactNumbers;
    try {
        render(document, *format, text);
    } catch (const std::exception& e) {
        reports.emit(std::string("error: cannot write the document: ") + e.what());
        return ExitFailed;
    }
    return writeOutput(text.str(), parsed.value("output", "-")) ? ExitOk : ExitFailed;
}

} // namespace GrafelTool
