// The C library's own reading of the point formats, as the reference that the fast number
// scanner and the reader are compared with.
#pragma once

#include <cstdio>
#include <string>
#include <utility>

namespace TestSupport {

/// " %lf" `numbers` times, " #%10s" `colors` times, then " ".
inline std::string scanFormat(int numbers, int colors) {
    std::string f;
    for (int i = 0; i < numbers; ++i) f += " %lf";
    for (int i = 0; i < colors; ++i) f += " #%10s";
    return f + " ";
}

/// What one scan stored, and its answer.
struct ScannedFields {
    int count = 0;
    double values[6] = {};
    char words[2][11] = {};
};

template <std::size_t... I>
int sscanfInto(const std::string& text, const std::string& format, ScannedFields& r,
               std::index_sequence<I...>) {
    return std::sscanf(text.c_str(), format.c_str(), &r.values[I]..., r.words[0], r.words[1]);
}

/// sscanf itself on `text` with scanFormat(numbers, colors); numbers from 1 to 6.
inline ScannedFields sscanfFields(const std::string& text, int numbers, int colors) {
    ScannedFields r;
    const std::string f = scanFormat(numbers, colors);
    switch (numbers) {
    case 1:
        r.count = sscanfInto(text, f, r, std::make_index_sequence<1>());
        break;
    case 2:
        r.count = sscanfInto(text, f, r, std::make_index_sequence<2>());
        break;
    case 3:
        r.count = sscanfInto(text, f, r, std::make_index_sequence<3>());
        break;
    case 4:
        r.count = sscanfInto(text, f, r, std::make_index_sequence<4>());
        break;
    case 5:
        r.count = sscanfInto(text, f, r, std::make_index_sequence<5>());
        break;
    default:
        r.count = sscanfInto(text, f, r, std::make_index_sequence<6>());
        break;
    }
    return r;
}

} // namespace TestSupport
