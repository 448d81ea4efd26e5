// The colour functions of the JVX writer.
#include <grafel/foundation/Tokens.h>
#include <grafel/output/detail/JvxColors.h>

#include <algorithm>
#include <cmath>

namespace Grafel::detail {

namespace {
constexpr double eps = 2.220446049250313e-16;

// A component outside 0..255 wraps, as the colour arithmetic always has; a value that no long
// holds (a cell that is infinite or not a number, or beyond 2^63) has no such wrap and gives 0.
unsigned long trunc255(double x) {
    if (!(std::fabs(x) < 9.2233720368547758e18)) return 0;
    return static_cast<unsigned long>(static_cast<long>(x));
}
} // namespace

bool isColored(Arbor::Token type, const RGBA* list) {
    if (type == getToken(id_Flat)) return false;
    return type != getToken(id_Functional) || list;
}

const RGBA* functionalList(Arbor::Token type, const RGBA* list) {
    return type == getToken(id_Functional) ? list : nullptr;
}

Hsv rgbToHsv(RGBA c) {
    const double r = double(c.red()), g = double(c.green()), b = double(c.blue());
    Hsv out;
    out.v = std::max({r, g, b});
    const double d = out.v - std::min({r, g, b});
    out.s = out.v == 0 ? 0.0 : d / out.v;
    if (std::fabs(out.s) < eps) return out;
    if (r == out.v)
        out.h = (g - b) / d;
    else if (g == out.v)
        out.h = (b - r) / d + 2;
    else
        out.h = (r - g) / d + 4;
    out.h *= 60;
    if (out.h < 0) out.h += 360;
    return out;
}

ColorWriter::ColorWriter(Arbor::Token type, RGBA color1, RGBA color2, double min, double max)
    : color1_(color1), color2_(color2), min_(min), max_(max), flat_(std::fabs(max - min) < eps) {
    if (type == getToken(id_Monochrome))
        kind_ = Kind::monochrome;
    else if (type == getToken(id_Dichromatic))
        kind_ = Kind::dichromatic;
    else
        kind_ = Kind::rainbow;
    // Only a Rainbow fills the hues; other words that reach the rainbow path run over zeros.
    if (type == getToken(id_Rainbow)) {
        hsv1_ = rgbToHsv(color1);
        hsv2_ = rgbToHsv(color2);
        // The long way round the colour circle; equal hues make a whole turn.
        if (hsv1_.h > hsv2_.h && hsv1_.h - hsv2_.h < 180)
            hsv2_.h += 360;
        else if (hsv2_.h >= hsv1_.h && hsv2_.h - hsv1_.h < 180)
            hsv1_.h += 360;
    }
}

RGBA ColorWriter::colorOf(double v) const {
    if (flat_) return color1_;
    const double t = (v - min_) / (max_ - min_);
    switch (kind_) {
    case Kind::monochrome:
        return RGBA(trunc255(double(color1_.red()) * t + 0.5),
                    trunc255(double(color1_.green()) * t + 0.5),
                    trunc255(double(color1_.blue()) * t + 0.5), 255);
    case Kind::dichromatic: {
        auto mix = [t](unsigned long c1, unsigned long c2) {
            return trunc255(double(c2) * (1 - t) + double(c1) * t + 0.5);
        };
        return RGBA(mix(color1_.red(), color2_.red()), mix(color1_.green(), color2_.green()),
                    mix(color1_.blue(), color2_.blue()), 255);
    }
    case Kind::rainbow:
        break;
    }
    const double h = (hsv1_.h * t + hsv2_.h * (1 - t)) / 60;
    const double s = hsv1_.s * t + hsv2_.s * (1 - t);
    const double w = hsv1_.v * t + hsv2_.v * (1 - t);
    if (std::fabs(s) < eps) return RGBA(trunc255(w), trunc255(w), trunc255(w), 255);
    const double k = std::floor(h);
    const double f = h - k, u = w / 255, p = (1 - s) * u, q = (1 - f * s) * u,
                 r = (1 - (1 - f) * s) * u;
    double c[3];
    if (k == 0)
        c[0] = u, c[1] = r, c[2] = p;
    else if (k == 1)
        c[0] = q, c[1] = u, c[2] = p;
    else if (k == 2)
        c[0] = p, c[1] = u, c[2] = r;
    else if (k == 3)
        c[0] = p, c[1] = q, c[2] = u;
    else if (k == 4)
        c[0] = r, c[1] = p, c[2] = u;
    else
        c[0] = u, c[1] = p, c[2] = q;
    return RGBA(trunc255(c[0] * 255), trunc255(c[1] * 255), trunc255(c[2] * 255), 255);
}

std::size_t ColorListWriter::clamp(std::int64_t i) const {
    if (i < 0) return 0;
    return std::min<std::size_t>(std::size_t(i), count_ - 1);
}

RGBA ColorListWriter::at(std::int64_t i) const {
    if (count_ == 0) return RGBA();
    const std::size_t k = clamp(i);
    return colorList_ ? colorList_[k] : colorOf(valueAt(k));
}

RGBA ColorListWriter::at(std::int64_t i, std::int64_t j) const {
    const std::int64_t c[2] = {i, j};
    return at(c, 2);
}

RGBA ColorListWriter::at(const std::int64_t* corners, int n) const {
    if (count_ == 0) return RGBA();
    if (!colorList_) {
        double sum = 0;
        for (int k = 0; k < n; ++k) sum += valueAt(clamp(corners[k]));
        return colorOf(n == 2 ? sum * 0.5 : n == 3 ? sum / 3.0 : sum * 0.25);
    }
    // Two and four colours are averaged on components shifted down first.
    const int shift = n == 2 ? 1 : n == 4 ? 2 : 0;
    unsigned long sum[4] = {0, 0, 0, 0};
    for (int k = 0; k < n; ++k) {
        const RGBA c = colorList_[clamp(corners[k])];
        const unsigned long parts[4] = {c.red(), c.green(), c.blue(), c.alpha()};
        for (int p = 0; p < 4; ++p) sum[p] += shift ? parts[p] >> shift : parts[p];
    }
    if (!shift)
        for (auto& s : sum) s /= unsigned(n);
    return RGBA(sum[0], sum[1], sum[2], sum[3]);
}

} // namespace Grafel::detail
