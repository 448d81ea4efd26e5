// Command-line parsing for the grafel tool: long and short options, with or without a value,
// and operands; anything it cannot make sense of is a usage error.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace GrafelTool {

/// Exit statuses of every command.
enum ExitStatus : int {
    ExitOk = 0,
    /// A document did not load, or the output could not be written.
    ExitFailed = 1,
    /// The command line was wrong; nothing was read or written.
    ExitUsage = 2,
};

/// One option a command accepts. `shortName` 0 means there is no short form.
struct OptionSpec {
    std::string_view longName;
    char shortName;
    bool takesValue;
};

/// A command line that did not parse; what() is the one-line reason.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The options and operands of one command line.
struct ParsedArguments {
    /// Options given, by long name; a flag maps to the empty text.
    std::map<std::string, std::string, std::less<>> options;
    std::vector<std::string> operands;
    /// -h or --help was given (every command accepts it).
    bool help = false;

    bool has(std::string_view name) const { return options.find(name) != options.end(); }
    /// The option's value, or `fallback` when it was not given.
    std::string value(std::string_view name, std::string_view fallback) const;
};

/// Parses `args` (the words after the command name). Options may stand before and after the
/// operands; "--" ends the options; "-" alone is an operand (standard input). A value follows
/// its option as the next word, or as "--name=value" and "-nvalue". An unknown option, a missing
/// value, a value given to a flag and an option given twice throw UsageError.
ParsedArguments parseArguments(std::span<const std::string_view> args,
                               std::span<const OptionSpec> specs);

/// Prints "grafel COMMAND: MESSAGE" and the hint to ask for help on standard error, and answers
/// ExitUsage. `command` empty speaks of the tool as a whole.
int usageError(std::string_view command, std::string_view message);

/// The start every command shares: parses `args` and answers --help with `help`. Gives the
/// exit status to end with (help shown, or a usage error), or nothing when the command goes on
/// with `parsed`.
std::optional<int> startCommand(std::string_view command, std::string_view help,
                                std::span<const std::string_view> args,
                                std::span<const OptionSpec> specs, ParsedArguments& parsed);

/// Checks that there is an INPUT, and only one unless `many`: the usage error's status, or
/// nothing.
std::optional<int> checkInputs(std::string_view command, const ParsedArguments& parsed, bool many);

} // namespace GrafelTool
