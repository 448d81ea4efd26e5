// The grafel command-line tool: loads plot documents, checks them, summarises them and writes
// them out again in another form.
#include "Arguments.h"
#include "Commands.h"

#include <exception>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#ifndef GRAFEL_VERSION
#define GRAFEL_VERSION "unknown"
#endif

namespace {

using namespace GrafelTool;

struct Command {
    std::string_view name;
    std::string_view summary;
    int (*run)(Words args);
};

constexpr Command commands[] = {
    {"convert", "load a document and write it as ZPX or command text", &runConvert},
    {"check", "load documents and tell whether they load", &runCheck},
    {"info", "summarise what a document holds", &runInfo},
    {"props", "show the properties an inspector lists for a type", &runProps},
    {"times", "list the moments at which an animation changes", &runTimes},
    {"classes", "list the element classes and their properties", &runClasses},
};

void printHelp() {
    std::cout << "Usage: grafel COMMAND [OPTIONS] ARGUMENTS\n"
                 "       grafel COMMAND --help\n"
                 "       grafel --help COMMAND\n"
                 "\n"
                 "Works on plot documents in the XML form ZPX.\n"
                 "\n"
                 "Commands:\n";
    for (const Command& c : commands)
        std::cout << "  " << c.name << std::string(10 - c.name.size(), ' ') << c.summary << '\n';
    std::cout << "\n"
                 "Options:\n"
                 "  -h, --help   show this help\n"
                 "  --version    show the version\n"
                 "\n"
                 "Reports of the library go to standard error, one line each, as\n"
                 "\"INPUT:LINE:COLUMN: message\". Exit status: 0 success, 1 a document did\n"
                 "not load or could not be written, 2 wrong command line.\n";
}

int run(const std::vector<std::string_view>& args) {
    if (args.empty()) return usageError({}, "missing COMMAND");
    const std::string_view first = args.front();
    if (first == "--help" || first == "-h" || first == "help") {
        if (args.size() == 1) {
            printHelp();
            return ExitOk;
        }
        // "grafel --help COMMAND" is "grafel COMMAND --help".
        if (args.size() > 2) return usageError({}, "--help takes one COMMAND");
        for (const Command& c : commands) {
            static constexpr std::string_view help[] = {"--help"};
            if (c.name == args[1]) return c.run(Words(help));
        }
        return usageError({}, "unknown command '" + std::string(args[1]) + "'");
    }
    if (first == "--version") {
        std::cout << "grafel " GRAFEL_VERSION "\n";
        return ExitOk;
    }
    for (const Command& c : commands)
        if (c.name == first) return c.run(Words(args).subspan(1));
    if (first.starts_with("-"))
        return usageError({}, "unknown option '" + std::string(first) + "'");
    return usageError({}, "unknown command '" + std::string(first) + "'");
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(std::vector<std::string_view>(argv + 1, argv + argc));
    } catch (const std::exception& e) {
        std::cerr << "grafel: error: " << e.what() << '\n';
        return ExitFailed;
    }
}
