// How every writer turns a double into text: the stream's own format, made without the stream
// where its state allows, and an opt-in exact mode in which each number reads back to itself.
#pragma once

#include <cstddef>
#include <iosfwd>

namespace Grafel {

/// Room that NumberFormat::format needs at its target.
inline constexpr std::size_t maxNumberChars = 32;

/// Turns on exact numbers for a stream: each number is written as "%g" with the smallest
/// precision, at least the stream's own, whose text reads back to the same double. Where the
/// stream's format already reads back exactly, the text is the same as without the mode.
/// `out << Grafel::exactNumbers`.
std::ostream& exactNumbers(std::ostream& out);
/// Turns exact numbers off again: numbers are written in the stream's own format.
std::ostream& streamNumbers(std::ostream& out);
/// Whether exactNumbers is in force for `stream`.
bool hasExactNumbers(const std::ios_base& stream);

/// The way one stream wants its numbers, read once from the stream's state and then applied to
/// any number of values. In the stream's default state for numbers (no floatfield, showpos,
/// showpoint, uppercase or unitbuf flag, width 0, the classic locale) the text is made by
/// std::to_chars into a buffer, which gives the bytes of operator<< at a fraction of its cost;
/// in any other state it is left to operator<<.
class NumberFormat {
public:
    explicit NumberFormat(const std::ios_base& stream);

    /// Whether format() gives the stream's text; otherwise only put() does.
    bool direct() const noexcept { return direct_; }
    bool exact() const noexcept { return exact_; }

    /// Writes the text of `value` at `first`, which has room for maxNumberChars, and answers
    /// its end. Only when direct().
    char* format(char* first, double value) const noexcept;
    /// Writes `value` to `out`, the stream this format was read from.
    void put(std::ostream& out, double value) const;

    /// printf's "%.*g" of `value` in the C locale; a negative precision stands for 6. The
    /// precision must be at most maxDirectPrecision.
    static char* formatGeneral(char* first, double value, int precision) noexcept;
    /// formatGeneral with the smallest precision, at least `minimum`, whose text reads back to
    /// `value`; infinities and NaNs as formatGeneral writes them.
    static char* formatExact(char* first, double value, int minimum) noexcept;
    /// The precision formatExact chooses.
    static int exactPrecision(double value, int minimum) noexcept;

    /// The largest precision whose text always fits into maxNumberChars.
    static constexpr int maxDirectPrecision = 24;

private:
    int precision_;
    bool exact_;
    bool direct_;
};

/// Writes `value` as `out << value` does, or exactly under exactNumbers.
std::ostream& putNumber(std::ostream& out, double value);

} // namespace Grafel
