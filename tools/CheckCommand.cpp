// grafel check: loads each document and tells which ones load.
#include "Arguments.h"
#include "Commands.h"
#include "Load.h"
#include "StrictCheck.h"

#include <grafel/document/PlotDocument.h>

#include <iostream>

namespace GrafelTool {

namespace {

constexpr std::string_view command = "check";

constexpr std::string_view help = R"(Usage: grafel check [--strict] INPUT...

Loads each plot document ("-" for standard input) and prints "INPUT: ok" for each one that
loads. What the reader refuses is reported on standard error, one line each, as
"INPUT:LINE:COLUMN: message".

Options:
  --strict     also warn, as "INPUT:LINE:COLUMN: warning: ...", about words outside a
               property's known vocabulary (they are kept as given), object types that the
               standard catalogue does not know, and numbers that are not finite
  -h, --help   show this help

Exit status: 0 all loaded (and, with --strict, no warning), 1 any did not load or any
warning was given, 2 wrong command line.
)";

constexpr OptionSpec optionSpecs[] = {{"strict", 0, false}};

} // namespace

int runCheck(Words args) {
    ParsedArguments parsed;
    if (auto end = startCommand(command, help, args, optionSpecs, parsed)) return *end;
    const bool strict = parsed.has("strict");
    Grafel::LoadOptions options;
    options.recordPositions = strict;
    if (auto end = checkInputs(command, parsed, true)) return *end;

    int status = ExitOk;
    for (const std::string& input : parsed.operands) {
        ReportScope reports(displayName(input), std::cerr);
        Grafel::PlotDocument document;
        Grafel::LoadResult loaded;
        if (!loadDocument(document, input, options, reports, &loaded)) {
            status = ExitFailed;
            continue;
        }
        std::cout << reports.input() << ": ok\n";
        if (strict && (strictCheck(document, loaded, reports) > 0 || !loaded.diagnostics.empty()))
            status = ExitFailed;
    }
    std::cout.flush();
    return status;
}

} // namespace GrafelTool
