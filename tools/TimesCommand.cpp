// grafel times: the moments at which an animated document changes, as a viewer steps through
// them.
#include "Arguments.h"
#include "Commands.h"
#include "Load.h"
#include "Output.h"

#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/NaN.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/properties/PlotElement.h>

#include <cmath>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <string>

namespace GrafelTool {

namespace {

constexpr std::string_view command = "times";

constexpr std::string_view help = R"(Usage: grafel times [--from T] [--backward] INPUT

Loads the plot document INPUT ("-" for standard input) and prints the moments of its animation,
one per line: the start time, then each next time at which anything changes, until there is
none. A document without a TimeRange has no animation and prints nothing.

Options:
  --from T     start at time T; by default the document's current or initial time, else the
               begin of the TimeRange (its end with --backward)
  --backward   step towards earlier times
  -h, --help   show this help

Exit status: 0 stepped (or nothing to step), 1 not loaded or not stepped, 2 wrong command line.
)";

constexpr OptionSpec optionSpecs[] = {
    {"from", 0, true},
    {"backward", 0, false},
};

/// The number that makes up all of `text`, as strtod reads it, or nothing.
std::optional<double> parseTime(const std::string& text) {
    if (text.empty()) return std::nullopt;
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (end != text.c_str() + text.size()) return std::nullopt;
    return value;
}

/// The TimeRange of the page, or null.
const Grafel::PlotElement* timeRange(Grafel::PlotDocument& document) {
    const Arbor::Element* root = document.documentElement();
    return root ? Grafel::PlotElement::from(root->findChild(Grafel::tok_TimeRange)) : nullptr;
}

double doubleProperty(const Grafel::PlotElement& element, Arbor::Token name) {
    const Arbor::Variant value = element.getProperty(name);
    const auto* d = value.as<Arbor::DoubleVariant>();
    return d ? d->val() : Grafel::NaN();
}

/// The start time, then every next time, one per line, as `<<` writes a double.
void stepThrough(Grafel::PlotDocument& document, std::optional<double> from, bool backward,
                 std::ostream& out) {
    const Grafel::PlotElement* range = timeRange(document);
    if (!range) return;
    double time = from ? *from : document.getInitialAnimationTime();
    if (!from && std::isnan(time))
        time = doubleProperty(*range, backward ? Grafel::tok_TimeEnd : Grafel::tok_TimeBegin);
    out << time << '\n';
    // Each answer lies strictly beyond the time asked, and is a frame's time or the end of the
    // range, so the steps end after at most one per frame.
    for (;;) {
        time = document.getNextAnimationTime(time, backward);
        if (std::isnan(time)) break;
        out << time << '\n';
    }
}

} // namespace

int runTimes(Words args) {
    ParsedArguments parsed;
    if (auto end = startCommand(command, help, args, optionSpecs, parsed)) return *end;
    if (auto end = checkInputs(command, parsed, false)) return *end;
    std::optional<double> from;
    if (parsed.has("from")) {
        const std::string text = parsed.value("from", "");
        from = parseTime(text);
        if (!from) return usageError(command, "invalid time '" + text + "'");
    }
    const bool backward = parsed.has("backward");
    const std::string& input = parsed.operands.front();

    ReportScope reports(displayName(input), std::cerr);
    Grafel::PlotDocument document;
    if (!loadDocument(document, input, {}, reports)) return ExitFailed;
    return writeMadeOutput(
        reports, "step the animation",
        [&](std::ostream& out) { stepThrough(document, from, backward, out); }, "-");
}

} // namespace GrafelTool
