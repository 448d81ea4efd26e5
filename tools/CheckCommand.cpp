// grafel check: loads each document and tells which ones load.
#include "Arguments.h"
#include "Commands.h"
#include "Load.h"

#include <grafel/document/PlotDocument.h>

#include <iostream>

namespace GrafelTool {

namespace {

constexpr std::string_view command = "check";

constexpr std::string_view help = R"(Usage: grafel check INPUT...

Loads each plot document ("-" for standard input) and prints "INPUT: ok" for each one that
loads. What the reader refuses is reported on standard error, one line each.

Options:
  -h, --help   show this help

Exit status: 0 all loaded, 1 any did not load, 2 wrong command line.
)";

} // namespace

int runCheck(Words args) {
    ParsedArguments parsed;
    try {
        parsed = parseArguments(args, {});
    } catch (const UsageError& e) {
        return usageError(command, e.what());
    }
    if (parsed.help) {
        std::cout << help;
        return ExitOk;
    }
    if (parsed.operands.empty()) return usageError(command, "missing INPUT");

    int status = ExitOk;
    for (const std::string& input : parsed.operands) {
        ReportScope reports(displayName(input), std::cerr);
        Grafel::PlotDocument document;
        if (loadDocument(document, input, {}, reports))
            std::cout << reports.input() << ": ok\n";
        else
            status = ExitFailed;
    }
    std::cout.flush();
    return status;
}

} // namespace GrafelTool
