// The C library's own reading of the point formats, as the reference that the fast number
// scanner and the reader are compared with.
#pragma once

#include <cstdio>
#include <cstring>
#include <iterator>
#include <random>
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

/// A number word of the kinds that make a reader of numbers go wrong: long mantissas, leading
/// zeros, exponents near the limits, subnormals, halfway cases, signs, and the short forms that
/// streams write. Not every word is a number.
inline std::string trickyNumberWord(std::mt19937_64& random) {
    static const char* const fixed[] = {
        "0",
        "-0",
        "-0.0",
        "000.000",
        "9007199254740993",
        "9007199254740992.5",
        "4.9e-324",
        "2.4703282292062328e-324",
        "2.2250738585072011e-308",
        "1.7976931348623157e308",
        "1.7976931348623159e308",
        "1e400",
        "1e-400",
        "0.1",
        "+5",
        "0x1p4",
        "inf",
        "-nan",
        "1.5.5",
        ".",
        "-",
        "1e",
        "5e-324x",
        "12345678.1234567",
        "1234567.1234567",
        "0.00000001",
        "99999999",
        "9999999.9999999",
        "-.5",
        "7.",
        "12345678.12345678",
        "-1234567.12345678",
        "00000000.00000001",
        "0000000000000000000000000000000000000000000000000000000000000000"
        "000000000001.25",
        "1..2",
        "-1-2",
        "--1",
        "1.2\xc3\xa9",
        "12e1"};
    std::string w;
    switch (random() % 4) {
    case 0:
        return fixed[random() % std::size(fixed)];
    case 1: { // as printf writes a random double
        double d;
        const unsigned long long bits = random();
        std::memcpy(&d, &bits, sizeof d);
        if (d != d) d = 1.5;
        const char* forms[] = {"%.17g", "%.6g", "%.15g", "%g", "%.3f"};
        char text[400];
        std::snprintf(text, sizeof text, forms[random() % std::size(forms)], d);
        return text;
    }
    case 2: { // short words as a raster holds them
        char text[40];
        std::uniform_real_distribution<double> value(-1000, 1000);
        std::snprintf(text, sizeof text, "%.*g", 1 + int(random() % 8), value(random));
        return text;
    }
    default: // digits with a point and an exponent anywhere
        if (random() % 2) w += '-';
        for (int k = 0, n = int(random() % 24); k < n; ++k) w += char('0' + random() % 10);
        if (random() % 2) w.insert(random() % (w.size() + 1), ".");
        if (random() % 4 == 0) {
            const char* signs[] = {"", "-", "+"};
            w += random() % 2 ? "e" : "E";
            w += signs[random() % 3] + std::to_string(random() % 400);
        }
        return w;
    }
}

} // namespace TestSupport
