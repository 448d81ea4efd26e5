// The stream that command text of the host's plot language is written to: it knows the output
// unit of sizes and lays out the nested, comma-separated items.
#pragma once

#include <grafel/arbor/Token.h>
#include <grafel/foundation/TextRun.h>

#include <ostream>
#include <string_view>
#include <type_traits>

namespace Grafel {

/// A stream, the unit of sizes, a pending separator and the nesting depth. Each item is
/// written between beginItem() and endItem(); items of one level are separated by "," and a
/// line break, and indented by two blanks per level.
///
/// While an item is open, text, characters, tokens and numbers written through it are collected
/// and handed to the stream in blocks (see TextRun); they reach the stream at the latest when
/// the outermost item ends, when stream() is asked for, or when the CmdOStream goes. Whatever
/// is written through stream() therefore lands in order, as long as that reference is not kept
/// across writes through the CmdOStream. The stream's number format is read once, when the
/// CmdOStream is made.
class CmdOStream {
public:
    CmdOStream(std::ostream& out, Arbor::Token units) : out_(out), units_(units), run_(out) {}
    CmdOStream(const CmdOStream&) = delete;
    CmdOStream& operator=(const CmdOStream&) = delete;

    /// The stream, with everything written so far handed to it.
    std::ostream& stream() const {
        run_.flush();
        return out_;
    }
    operator std::ostream&() const { return stream(); }
    Arbor::Token units() const { return units_; }
    int depth() const { return depth_; }
    bool separatorPending() const { return separator_; }

    /// Writes the separator if one is pending, goes one level deeper and indents.
    void beginItem();
    /// Goes one level up; the next item will be separated from this one.
    void endItem() {
        --depth_;
        separator_ = true;
        if (depth_ <= 0) run_.flush();
    }
    /// A carriage return and line feed.
    void putNl() { *this << "\r\n"; }
    /// A size held in millimetres, in the output unit.
    void putSize(double mm);
    /// Hands what has been collected to the stream.
    void flush() { run_.flush(); }

    /// Numbers as putNumber writes them; texts, characters and tokens as they stand; anything
    /// else through the stream's operator<<.
    template <class T> CmdOStream& operator<<(const T& value) {
        if constexpr (std::is_floating_point_v<T>) {
            run_ << static_cast<double>(value);
        } else if constexpr (std::is_same_v<T, char>) {
            run_ << value;
        } else if constexpr (std::is_same_v<T, Arbor::Token>) {
            if (!value.isNull()) run_ << std::string_view(value.c_str());
        } else if constexpr (std::is_convertible_v<const T&, std::string_view>) {
            run_ << std::string_view(value);
        } else {
            run_.flush();
            out_ << value;
        }
        if (depth_ <= 0) run_.flush();
        return *this;
    }

private:
    std::ostream& out_;
    Arbor::Token units_;
    bool separator_ = false;
    int depth_ = 0;
    mutable TextRun run_;
};

} // namespace Grafel
