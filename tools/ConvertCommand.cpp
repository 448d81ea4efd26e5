// grafel convert: loads a document and writes it again, as ZPX or as command text.
#include "Arguments.h"
#include "Commands.h"
#include "JvdExport.h"
#include "JvxExport.h"
#include "Load.h"
#include "Output.h"

#include <grafel/document/PlotDocument.h>
#include <grafel/document/SaveDocument.h>
#include <grafel/foundation/NumberFormat.h>

#include <cerrno>
#include <charconv>
#include <cmath>
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
    R"(Usage: grafel convert [--to FORMAT] [-o FILE] [--precision N] [--drop-ids] [--pretty] INPUT
       grafel convert --to jvx [--time T | --frames N -o NAME [--no-clobber]] INPUT
       grafel convert --to jvx [--time T] -o NAME.jvx --with-display INPUT
       grafel convert --to jvd [--time T] [-o FILE] INPUT

Loads the plot document INPUT ("-" for standard input) and writes it out again.
Numbers are written exactly: with six significant digits where these read back to the
same value, and with as many more as it takes where they do not.

Options:
  --to FORMAT        the form to write:
                       zpx     the XML form (the default)
                       cmd     command text that builds the plot
                       replot  command text that replots an existing plot
                       jvx     a JavaView model of the first scene
                       jvd     the JavaView display of that scene: axes, box,
                               camera, lights, background
  -o, --output FILE  write to FILE instead of standard output
  --precision N      write numbers with N significant digits (1 to 99), rounding
                     where they have more; 6 gives the library's own default text
  --drop-ids         leave out the id of every element while loading
  --pretty           zpx: put each child element on a line of its own, indented by two
                     blanks a level (texts and point data are left as they are)
  --time T           jvx, jvd: the time to export (an animation is clamped into its time
                     range and starts at its begin without one; a still plot has none)
  --frames N         jvx: write the whole animation, N frames a time unit, to numbered
                     files named after -o NAME: a.jvx gives a.1.jvx, a.2.jvx, ...
  --no-clobber       with --frames: stop at an existing frame file instead of replacing it
  --with-display     jvx: also write the display NAME.jvd beside -o NAME.jvx
  --dtd-host URL     jvx, jvd: the host of the DTD named in the file's DOCTYPE
  -h, --help         show this help

Export errors are reported as "INPUT: JavaView export error: TEXT", warnings as
"INPUT: warning: TEXT"; numbers in jvx and jvd have six significant digits.
Exit status: 0 written, 1 not loaded or not written, 2 wrong command line.
)";

constexpr OptionSpec optionSpecs[] = {
    {"to", 0, true},          {"output", 'o', true}, {"precision", 0, true},
    {"drop-ids", 0, false},   {"time", 0, true},     {"frames", 0, true},
    {"no-clobber", 0, false}, {"dtd-host", 0, true}, {"with-display", 0, false},
    {"pretty", 0, false},
};

/// The most digits --precision takes; 17 already tell every double apart.
constexpr int maxPrecision = 99;

enum class Format { Zpx, Cmd, Replot, Jvx, Jvd };

std::optional<Format> formatNamed(std::string_view name) {
    if (name == "zpx") return Format::Zpx;
    if (name == "cmd") return Format::Cmd;
    if (name == "replot") return Format::Replot;
    if (name == "jvx") return Format::Jvx;
    if (name == "jvd") return Format::Jvd;
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

/// A finite number, all of `text`.
std::optional<double> timeNamed(std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

/// Reads the options of the jvx form into `options`; the exit status of a wrong command line.
std::optional<int> jvxOptions(const ParsedArguments& parsed, bool jvx, JvxExportOptions& options) {
    for (const char* name : {"time", "frames", "no-clobber", "dtd-host"})
        if (!jvx && parsed.has(name))
            return usageError(command, std::string("option '--") + name + "' needs --to jvx");
    if (!jvx) return std::nullopt;
    if (parsed.has("precision"))
        return usageError(command, "option '--precision' does not apply to jvx");
    options.output = parsed.value("output", "-");
    options.dtdHost = parsed.value("dtd-host", "");
    options.noClobber = parsed.has("no-clobber");
    if (parsed.has("time")) {
        const std::string text = parsed.value("time", "");
        options.time = timeNamed(text);
        if (!options.time) return usageError(command, "invalid time '" + text + "'");
    }
    if (parsed.has("frames")) {
        const std::string text = parsed.value("frames", "");
        int value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc() || end != text.data() + text.size() || value < 0)
            return usageError(command,
                              "invalid frame count '" + text + "' (a whole number, 0 or more)");
        options.frames = value;
        if (options.time)
            return usageError(command, "options '--time' and '--frames' exclude each other");
        if (!parsed.has("output") || options.output == "-")
            return usageError(command, "option '--frames' needs -o NAME");
    } else if (options.noClobber) {
        return usageError(command, "option '--no-clobber' needs --frames");
    }
    return std::nullopt;
}

/// The options of jvx that a display does not take; the exit status of a wrong command line.
std::optional<int> jvdOptions(const ParsedArguments& parsed, Format format) {
    if (format != Format::Jvd) return std::nullopt;
    for (const char* name : {"frames", "no-clobber", "with-display"})
        if (parsed.has(name))
            return usageError(command, std::string("option '--") + name + "' needs --to jvx");
    return std::nullopt;
}

/// Checks --with-display against the jvx options read into `options`.
std::optional<int> withDisplayOptions(const ParsedArguments& parsed, Format format,
                                      const JvxExportOptions& options) {
    if (!parsed.has("with-display")) return std::nullopt;
    if (format != Format::Jvx) return usageError(command, "option '--with-display' needs --to jvx");
    if (options.frames)
        return usageError(command, "options '--with-display' and '--frames' exclude each other");
    if (displayFileFor(options.output).empty())
        return usageError(command, "option '--with-display' needs -o NAME.jvx");
    return std::nullopt;
}

void render(Grafel::PlotDocument& document, Format format, bool pretty, std::ostream& out) {
    Grafel::SaveOptions options;
    options.indent = pretty;
    switch (format) {
    case Format::Zpx:
        options.format = Grafel::SaveFormat::Zpx;
        break;
    case Format::Cmd:
        options.format = Grafel::SaveFormat::Cmd;
        break;
    case Format::Replot:
        options.format = Grafel::SaveFormat::Replot;
        break;
    case Format::Jvx:
    case Format::Jvd:
        return;
    }
    Grafel::saveDocument(document, out, options);
}

} // namespace

int runConvert(Words args) {
    ParsedArguments parsed;
    if (auto end = startCommand(command, help, args, optionSpecs, parsed)) return *end;

    const std::string formatName = parsed.value("to", "zpx");
    const std::optional<Format> format = formatNamed(formatName);
    if (!format)
        return usageError(command,
                          "unknown format '" + formatName + "' (zpx, cmd, replot, jvx, jvd)");
    if (auto end = jvdOptions(parsed, *format)) return *end;
    JvxExportOptions jvx;
    if (auto end = jvxOptions(parsed, *format == Format::Jvx || *format == Format::Jvd, jvx))
        return *end;
    if (auto end = withDisplayOptions(parsed, *format, jvx)) return *end;
    if (parsed.has("pretty") && *format != Format::Zpx)
        return usageError(command, "option '--pretty' needs --to zpx");
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
    if (!loadDocument(document, input, Grafel::LoadOptions{parsed.has("drop-ids")}, reports))
        return ExitFailed;
    if (*format == Format::Jvd) return exportJvd(document, jvx, reports);
    if (*format == Format::Jvx) {
        const int status = exportJvx(document, jvx, reports);
        if (status != ExitOk || !parsed.has("with-display")) return status;
        JvxExportOptions display = jvx;
        display.output = displayFileFor(jvx.output);
        return exportJvd(document, display, reports, true);
    }

    // The whole text is made before the output is opened, so that nothing is left half
    // written, and a failed load leaves an existing output file alone.
    // A conversion loses no digits unless asked to.
    std::ostringstream text;
    if (precision)
        text.precision(*precision);
    else
        text << Grafel::exactNumbers;
    try {
        render(document, *format, parsed.has("pretty"), text);
    } catch (const std::exception& e) {
        reports.emit(std::string("error: cannot write the document: ") + e.what());
        return ExitFailed;
    }
    return writeOutput(text.str(), parsed.value("output", "-")) ? ExitOk : ExitFailed;
}

} // namespace GrafelTool
