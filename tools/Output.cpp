#include "Output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>

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

} // namespace GrafelTool
