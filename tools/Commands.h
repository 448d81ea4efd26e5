// The commands of the grafel tool. Each takes the words after its name and answers the exit
// status; each prints its own help for -h and --help.
#pragma once

#include <span>
#include <string_view>

namespace GrafelTool {

using Words = std::span<const std::string_view>;

/// grafel convert [--to FORMAT] [-o FILE] [--precision N] [--drop-ids] INPUT
int runConvert(Words args);
/// grafel check INPUT...
int runCheck(Words args);
/// grafel info INPUT
int runInfo(Words args);
/// grafel props [--xml] [TYPE [INPUT]]
int runProps(Words args);
/// grafel times [--from T] [--backward] INPUT
int runTimes(Words args);
/// grafel classes [--markdown] [-o FILE]
int runClasses(Words args);

} // namespace GrafelTool
