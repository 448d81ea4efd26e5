#include <grafel/document/ZpaSources.h>

#include <istream>

namespace Grafel {

ZpaStreamParser::ZpaStreamParser(PlotDocument* document, std::istream& in)
    : ZpaParser(document), in_(in), block_(new char[blockSize]) {}

ZpaStreamParser::~ZpaStreamParser() = default;

bool ZpaStreamParser::readChar(int& c) {
    if (!in_.good()) return false;
    in_.read(block_.get(), static_cast<std::streamsize>(blockSize));
    const std::streamsize n = in_.gcount();
    if (n <= 0) return false;
    c = static_cast<unsigned char>(block_[0]);
    provideBlock(block_.get() + 1, block_.get() + n);
    return true;
}

ZpaMemoryParser::ZpaMemoryParser(PlotDocument* document, const char* data, std::size_t length)
    : ZpaParser(document), data_(data), length_(length) {
    provideBlock(data_, data_ + length_);
}

ZpaMemoryParser::ZpaMemoryParser(const ZpaMemoryParser& other)
    : ZpaParser(other), data_(other.data_), length_(other.length_) {
    provideBlock(data_, data_ + length_);
}

ZpaMemoryParser::~ZpaMemoryParser() = default;

bool ZpaMemoryParser::readChar(int&) {
    return false;
}

} // namespace Grafel
