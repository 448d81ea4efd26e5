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
    if (auto end = startCommand(command, help, args, {}, parsed)) return *end;
    if (auto end = checkInputs(command, parsed, true)) return *end;

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
