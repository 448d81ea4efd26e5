#include "Arguments.h"

#include <iostream>

namespace GrafelTool {

namespace {

const OptionSpec* findLong(std::span<const OptionSpec> specs, std::string_view name) {
    for (const OptionSpec& option : specs)
        if (option.longName == name) return &option;
    return nullptr;
}

const OptionSpec* findShort(std::span<const OptionSpec> specs, char name) {
    for (const OptionSpec& option : specs)
        if (option.shortName != 0 && option.shortName == name) return &option;
    return nullptr;
}

void store(ParsedArguments& parsed, const OptionSpec& option, std::string value) {
    const std::string name(option.longName);
    if (!parsed.options.emplace(name, std::move(value)).second)
        throw UsageError("option '--" + name + "' given twice");
}

} // namespace

std::string ParsedArguments::value(std::string_view name, std::string_view fallback) const {
    const auto it = options.find(name);
    return it != options.end() ? it->second : std::string(fallback);
}

ParsedArguments parseArguments(std::span<const std::string_view> args,
                               std::span<const OptionSpec> specs) {
    ParsedArguments parsed;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string_view word = args[i];
        if (optionsEnded || word.size() < 2 || word[0] != '-') {
            parsed.operands.emplace_back(word);
            continue;
        }
        if (word == "--") {
            optionsEnded = true;
            continue;
        }
        if (word == "--help" || word == "-h") {
            parsed.help = true;
            continue;
        }

        const OptionSpec* option = nullptr;
        std::string_view inlineValue;
        bool hasInlineValue = false;
        std::string shown; // the option as the user wrote it, for messages
        if (word.starts_with("--")) {
            std::string_view name = word.substr(2);
            if (const auto eq = name.find('='); eq != std::string_view::npos) {
                inlineValue = name.substr(eq + 1);
                hasInlineValue = true;
                name = name.substr(0, eq);
            }
            shown = "--" + std::string(name);
            option = findLong(specs, name);
        } else {
            shown = std::string(word.substr(0, 2));
            option = findShort(specs, word[1]);
            if (word.size() > 2) {
                inlineValue = word.substr(2);
                hasInlineValue = true;
            }
        }
        if (!option) throw UsageError("unknown option '" + shown + "'");

        if (!option->takesValue) {
            if (hasInlineValue) throw UsageError("option '" + shown + "' takes no value");
            store(parsed, *option, {});
        } else if (hasInlineValue) {
            if (inlineValue.empty()) throw UsageError("option '" + shown + "' needs a value");
            store(parsed, *option, std::string(inlineValue));
        } else {
            if (i + 1 >= args.size()) throw UsageError("option '" + shown + "' needs a value");
            store(parsed, *option, std::string(args[++i]));
        }
    }
    return parsed;
}

int usageError(std::string_view command, std::string_view message) {
    const std::string who = command.empty() ? "grafel" : "grafel " + std::string(command);
    std::cerr << who << ": " << message << "\nTry '" << who << " --help' for more information.\n";
    return ExitUsage;
}

std::optional<int> startCommand(std::string_view command, std::string_view help,
                                std::span<const std::string_view> args,
                                std::span<const OptionSpec> specs, ParsedArguments& parsed) {
    try {
        parsed = parseArguments(args, specs);
    } catch (const UsageError& e) {
        return usageError(command, e.what());
    }
    if (parsed.help) {
        std::cout << help;
        return ExitOk;
    }
    return std::nullopt;
}

std::optional<int> checkInputs(std::string_view command, const ParsedArguments& parsed, bool many) {
    if (parsed.operands.empty()) return usageError(command, "missing INPUT");
    if (!many && parsed.operands.size() > 1)
        return usageError(command, "one INPUT only, got '" + parsed.operands[1] + "' as well");
    return std::nullopt;
}

} // namespace GrafelTool
