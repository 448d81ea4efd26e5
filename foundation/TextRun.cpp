#include <grafel/foundation/TextRun.h>

namespace Grafel {

void TextRun::flush() {
    if (end_ == buffer_) return;
    const std::streamsize size = end_ - buffer_;
    end_ = buffer_;
    out_.write(buffer_, size);
}

} // namespace Grafel
