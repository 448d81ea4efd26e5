// Ready-made sources of Zpa text: a standard stream and a block of memory, both read through
// the parser's buffered path rather than one virtual call per character.
#pragma once

#include <grafel/document/ZpaParser.h>

#include <cstddef>
#include <iosfwd>
#include <memory>

namespace Grafel {

/// Reads Zpa from a std::istream, in blocks. The stream must outlive the parser; what parse()
/// leaves of it unread after a failure is unspecified.
class ZpaStreamParser : public ZpaParser {
public:
    ZpaStreamParser(PlotDocument* document, std::istream& in);
    ZpaStreamParser(const ZpaStreamParser&) = delete;
    ZpaStreamParser& operator=(const ZpaStreamParser&) = delete;
    ~ZpaStreamParser() override;

    /// Reads the next block and hands out its first byte; the rest follows through the
    /// buffered path.
    bool readChar(int& c) override;

private:
    static constexpr std::size_t blockSize = 64 * 1024;
    std::istream& in_;
    std::unique_ptr<char[]> block_;
};

/// Reads Zpa from `length` bytes at `data`, which must stay valid while parse() runs. The
/// whole block is handed to the buffered path at once.
class ZpaMemoryParser : public ZpaParser {
public:
    ZpaMemoryParser(PlotDocument* document, const char* data, std::size_t length);
    ZpaMemoryParser(const ZpaMemoryParser& other);
    ZpaMemoryParser& operator=(const ZpaMemoryParser&) = delete;
    ~ZpaMemoryParser() override;

    /// The end of the input: the block was handed out whole.
    bool readChar(int& c) override;

private:
    const char* data_;
    std::size_t length_;
};

} // namespace Grafel
