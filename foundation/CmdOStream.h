// The stream that command text of the host's plot language is written to: it knows the output
// unit of sizes and lays out the nested, comma-separated items.
#pragma once

#include <grafel/arbor/Token.h>
#include <grafel/foundation/NumberFormat.h>

#include <ostream>
#include <type_traits>

namespace Grafel {

/// A stream, the unit of sizes, a pending separator and the nesting depth. Each item is
/// written between beginItem() and endItem(); items of one level are separated by "," and a
/// line break, and indented by two blanks per level.
class CmdOStream {
public:
    CmdOStream(std::ostream& out, Arbor::Token units) : out_(out), units_(units) {}

    std::ostream& stream() const { return out_; }
    operator std::ostream&() const { return out_; }
    Arbor::Token units() const { return units_; }
    int depth() const { return depth_; }
    bool separatorPending() const { return separator_; }

    /// Writes the separator if one is pending, goes one level deeper and indents.
    void beginItem();
    /// Goes one level up; the next item will be separated from this one.
    void endItem() {
        --depth_;
        separator_ = true;
    }
    /// A carriage return and line feed.
    void putNl() { out_ << "\r\n"; }
    /// A size held in millimetres, in the output unit.
    void putSize(double mm);

    /// Numbers go through putNumber, like every other writer's.
    template <class T> CmdOStream& operator<<(const T& value) {
        if constexpr (std::is_floating_point_v<T>)
            putNumber(out_, static_cast<double>(value));
        else
            out_ << value;
        return *this;
    }

private:
    std::ostream& out_;
    Arbor::Token units_;
    bool separator_ = false;
    int depth_ = 0;
};

} // namespace Grafel
