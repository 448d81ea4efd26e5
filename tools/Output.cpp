#include "Output.h"

#include "Arguments.h"
#include "Load.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <sstream>

namespace GrafelTool {

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

int writeMadeOutput(ReportScope& reports, const char* doing,
                    const std::function<void(std::ostream&)>& make, const std::string& path) {
    std::ostringstream text;
    try {
        make(text);
    } catch (const std::exception& e) {
        reports.emit(std::string("error: cannot ") + doing + ": " + e.what());
        return ExitFailed;
    }
    return writeOutput(text.str(), path) ? ExitOk : ExitFailed;
}

} // namespace GrafelTool
