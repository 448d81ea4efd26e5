// Points of two, three and four coordinates, and the text forms of the first two: the XML
// attribute form "x y" and the command form "[x,y]".
#pragma once

#include <iosfwd>

namespace Grafel {

/// A point or vector in the plane. Trivially copyable, so that point lists can be plain arrays;
/// the default constructor leaves both fields unset.
struct P2 {
    double x;
    double y;

    P2() noexcept = default;
    constexpr P2(double x_, double y_) noexcept : x(x_), y(y_) {}
};

/// A point or vector in space; the default constructor leaves the fields unset.
struct P3 {
    double x;
    double y;
    double z;

    P3() noexcept = default;
    constexpr P3(double x_, double y_, double z_) noexcept : x(x_), y(y_), z(z_) {}
};

/// Four coordinates, as of a homogeneous point or a plane; no text form.
struct P4 {
    double x;
    double y;
    double z;
    double w;

    P4() noexcept = default;
    constexpr P4(double x_, double y_, double z_, double w_) noexcept
        : x(x_), y(y_), z(z_), w(w_) {}
};

// Equality is plain == on each field, so a point that holds a NaN equals nothing, not even
// itself. The order is lexicographic, and a later field only counts when the earlier ones are
// equal by ==, which leaves a pair with a NaN in a deciding field unordered both ways.

constexpr bool operator==(const P2& a, const P2& b) noexcept {
    return a.x == b.x && a.y == b.y;
}
constexpr bool operator!=(const P2& a, const P2& b) noexcept {
    return !(a == b);
}
constexpr bool operator<(const P2& a, const P2& b) noexcept {
    if (a.x != b.x) return a.x < b.x;
    return a.y < b.y;
}

constexpr bool operator==(const P3& a, const P3& b) noexcept {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}
constexpr bool operator!=(const P3& a, const P3& b) noexcept {
    return !(a == b);
}
constexpr bool operator<(const P3& a, const P3& b) noexcept {
    if (a.x != b.x) return a.x < b.x;
    if (a.y != b.y) return a.y < b.y;
    return a.z < b.z;
}

constexpr bool operator==(const P4& a, const P4& b) noexcept {
    return a.x == b.x && a.y == b.y && a.z == b.z && a.w == b.w;
}
constexpr bool operator!=(const P4& a, const P4& b) noexcept {
    return !(a == b);
}
constexpr bool operator<(const P4& a, const P4& b) noexcept {
    if (a.x != b.x) return a.x < b.x;
    if (a.y != b.y) return a.y < b.y;
    if (a.z != b.z) return a.z < b.z;
    return a.w < b.w;
}

/// The XML form "x y", each number in the stream's default format.
std::ostream& operator<<(std::ostream& out, const P2& p);
/// The XML form "x y z".
std::ostream& operator<<(std::ostream& out, const P3& p);

/// Writes the XML attribute form, as operator<<.
std::ostream& putXmlValue(std::ostream& out, const P2& p);
std::ostream& putXmlValue(std::ostream& out, const P3& p);
/// Writes the command form "[x,y]".
std::ostream& putCmdValue(std::ostream& out, const P2& p);
/// Writes the command form "[x,y,z]".
std::ostream& putCmdValue(std::ostream& out, const P3& p);

/// Reads two numbers as sscanf " %lf %lf " does; what follows them is ignored. Writes `out` only
/// when both were found. A null text fails.
bool parseValue(const char* text, P2& out);
/// Reads three numbers as sscanf " %lf %lf %lf " does; writes `out` only when all were found.
bool parseValue(const char* text, P3& out);

} // namespace Grafel
