// A run of short pieces of output (fixed text, numbers, colours) that writers put out in bulk,
// such as the points of a list.
#pragma once

#include <grafel/foundation/NumberFormat.h>
#include <grafel/foundation/Rgba.h>

#include <cstring>
#include <ostream>
#include <string_view>

namespace Grafel {

/// Writes pieces of text, numbers and colours to a stream in the order given. When the stream
/// is in its default state for numbers (NumberFormat::direct) the pieces are collected in a
/// buffer and handed over in large blocks; otherwise each piece goes through the stream's own
/// operator<<. Either way the bytes are those of the same pieces written with <<, in every
/// stream state. Call flush() at the end; the destructor writes what is left, but cannot report
/// a stream that throws.
class TextRun {
public:
    explicit TextRun(std::ostream& out) : out_(out), format_(out) {}
    TextRun(const TextRun&) = delete;
    TextRun& operator=(const TextRun&) = delete;
    ~TextRun() {
        try {
            flush();
        } catch (...) {
            // The stream keeps its error state.
        }
    }

    TextRun& operator<<(std::string_view text) {
        if (!format_.direct()) {
            out_ << text;
        } else if (text.size() <= room()) {
            std::memcpy(end_, text.data(), text.size());
            end_ += text.size();
        } else {
            flush();
            out_.write(text.data(), static_cast<std::streamsize>(text.size()));
        }
        return *this;
    }
    TextRun& operator<<(char c) {
        if (!format_.direct()) {
            out_ << c;
        } else {
            if (room() < 1) flush();
            *end_++ = c;
        }
        return *this;
    }
    TextRun& operator<<(double value) {
        if (!format_.direct()) {
            format_.put(out_, value);
        } else {
            if (room() < maxNumberChars) flush();
            end_ = format_.format(end_, value);
        }
        return *this;
    }
    TextRun& operator<<(RGBA colour) {
        if (!format_.direct()) {
            out_ << colour;
        } else {
            if (room() < maxColourChars) flush();
            end_ = formatColour(end_, colour);
        }
        return *this;
    }

    /// Hands what has been collected to the stream.
    void flush();

    const NumberFormat& format() const { return format_; }

private:
    static constexpr std::size_t capacity = 4096;
    static constexpr std::size_t maxColourChars = 9;

    std::size_t room() const { return static_cast<std::size_t>(buffer_ + capacity - end_); }

    std::ostream& out_;
    NumberFormat format_;
    char* end_ = buffer_;
    char buffer_[capacity];
};

} // namespace Grafel
