// One short line of model output (a point, a face, a colour) assembled in place and handed to
// the run in one piece.
#pragma once

#include <grafel/foundation/NumberFormat.h>
#include <grafel/foundation/TextRun.h>

#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace Grafel::detail {

/// Collects text, integers and numbers of one line; numbers take the run's format, so the
/// bytes are those of the pieces written one by one. Only for runs whose format is direct;
/// `room` bounds what a caller may add: a few tags and up to eight numbers.
class JvxLine {
public:
    explicit JvxLine(const NumberFormat& format) : format_(format) {}

    JvxLine& operator<<(std::string_view text) {
        std::memcpy(end_, text.data(), text.size());
        end_ += text.size();
        return *this;
    }
    JvxLine& operator<<(char c) {
        *end_++ = c;
        return *this;
    }
    JvxLine& operator<<(std::int64_t value) {
        end_ = std::to_chars(end_, buffer_ + sizeof buffer_, value).ptr;
        return *this;
    }
    JvxLine& operator<<(double value) {
        end_ = format_.format(end_, value);
        return *this;
    }
    std::string_view view() const { return {buffer_, std::size_t(end_ - buffer_)}; }

private:
    const NumberFormat& format_;
    char buffer_[8 * maxNumberChars + 64];
    char* end_ = buffer_;
};

} // namespace Grafel::detail
