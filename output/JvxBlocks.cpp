// The pieces every geometry of the model writer is made of: points through the transform
// stack, thicknesses, styles, materials, labels and colour lists.
#include <grafel/output/JVXWriter.h>

#include <grafel/foundation/FontStyle.h>
#include <grafel/foundation/TextRun.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/foundation/WideText.h>
#include <grafel/output/detail/JvxColors.h>
#include <grafel/output/detail/JvxLine.h>
#include <grafel/structure/TransformFrames.h>

#include <algorithm>
#include <charconv>
#include <ostream>

namespace Grafel {

namespace {
/// Millimetres to the viewer's thickness unit of 1/90 inch.
constexpr double thicknessFactor = 3.5433070866141736;

JVXWriter::Matrix product(const JVXWriter::Matrix& a, const JVXWriter::Matrix& b) {
    JVXWriter::Matrix m{};
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            double s = 0;
            for (int k = 0; k < 4; ++k) s += a[r * 4 + k] * b[k * 4 + c];
            m[r * 4 + c] = s;
        }
    return m;
}
} // namespace

void JVXWriter::pushMatrix(const Matrix& m) {
    transformStack.push_back(transformStack.empty() ? m : product(transformStack.back(), m));
}

void JVXWriter::pushTransform2d(const Tr2d& tr) {
    const P2 r1 = tr.getRow1(), r2 = tr.getRow2(), s = tr.getShift();
    pushMatrix({r1.x, r1.y, 0, s.x, r2.x, r2.y, 0, s.y, 0, 0, 1, 0, 0, 0, 0, 1});
}

void JVXWriter::pushTransform3d(const Tr3d& tr) {
    const P3 r1 = tr.getRow1(), r2 = tr.getRow2(), r3 = tr.getRow3(), s = tr.getShift();
    pushMatrix({r1.x, r1.y, r1.z, s.x, r2.x, r2.y, r2.z, s.y, r3.x, r3.y, r3.z, s.z, 0, 0, 0, 1});
}

void JVXWriter::popTransform() {
    transformStack.pop_back();
}

P2 JVXWriter::transformed(P2 p) const {
    if (transformStack.empty()) return p;
    const Matrix& m = transformStack.back();
    return {(m[0] * p.x + m[1] * p.y + m[3]) / m[15], (m[4] * p.x + m[5] * p.y + m[7]) / m[15]};
}

P3 JVXWriter::transformed(P3 p) const {
    if (transformStack.empty()) return p;
    const Matrix& m = transformStack.back();
    return {(m[0] * p.x + m[1] * p.y + m[2] * p.z + m[3]) / m[15],
            (m[4] * p.x + m[5] * p.y + m[6] * p.z + m[7]) / m[15],
            (m[8] * p.x + m[9] * p.y + m[10] * p.z + m[11]) / m[15]};
}

void JVXWriter::integer(std::int64_t value) {
    char buffer[24];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    out() << std::string_view(buffer, std::size_t(end - buffer));
}

void JVXWriter::color(RGBA c) {
    out().flush();
    putColor(c);
}

void JVXWriter::showAttr(const char* name, bool show) {
    out().flush();
    putShowAttr(name, show);
}

namespace {
/// The coordinates of a point, blank between them.
template <class Sink> void putCoords(Sink& sink, P2 p) {
    sink << p.x << ' ' << p.y;
}

template <class Sink> void putCoords(Sink& sink, P3 p) {
    sink << p.x << ' ' << p.y << ' ' << p.z;
}
} // namespace

template <class Point> void JVXWriter::putPointOf(Point p) {
    p = transformed(p);
    if (out().format().direct()) {
        detail::JvxLine line(out().format());
        line << "<p>";
        putCoords(line, p);
        line << "</p>\n";
        out() << line.view();
    } else {
        out() << "<p>";
        putCoords(out(), p);
        out() << "</p>\n";
    }
}

void JVXWriter::putP(P2 p) {
    putPointOf(p);
}

void JVXWriter::putP(P3 p) {
    putPointOf(p);
}

template <class Point>
void JVXWriter::putPointsOf(const Point* points, std::size_t n, RGBA c, double size) {
    openCounted("points", std::int64_t(n));
    for (std::size_t i = 0; i < n; ++i) putP(points[i]);
    putPointThickness(size);
    color(c);
    out() << "</points>\n";
}

void JVXWriter::putPoints(const P2* points, std::size_t n, RGBA c, double size) {
    putPointsOf(points, n, c, size);
}

void JVXWriter::putPoints(const P3* points, std::size_t n, RGBA c, double size) {
    putPointsOf(points, n, c, size);
}

void JVXWriter::putPointThickness(double size) {
    if (std::isnan(size)) return;
    out() << "<thickness>" << std::max(1.0, size * 0.5 * thicknessFactor) << "</thickness>\n";
}

void JVXWriter::putScaledThickness(double width) {
    if (std::isnan(width)) return;
    out() << "<thickness>" << std::max(1.0, width * thicknessFactor) << "</thickness>\n";
}

template <class Point>
void JVXWriter::putVectorsOf(const Point* v, std::size_t n, RGBA c, double length, double width) {
    openCounted("vectors", std::int64_t(n));
    for (std::size_t i = 0; i < n; ++i) {
        out() << "<v>";
        putCoords(out(), transformed(v[i]));
        out() << "</v>\n";
    }
    putScaledThickness(width);
    out() << "<length>" << length << "</length>\n";
    color(c);
    out() << "</vectors>\n";
}

void JVXWriter::putVectors(const P2* v, std::size_t n, RGBA c, double length, double width) {
    putVectorsOf(v, n, c, length, width);
}

void JVXWriter::putVectors(const P3* v, std::size_t n, RGBA c, double length, double width) {
    putVectorsOf(v, n, c, length, width);
}

void JVXWriter::putStyle(RGBA c, double width) {
    out().flush();
    putThickness(width);
    putColor(c);
}

void JVXWriter::putEdgeStyle(RGBA c, double width) {
    if (c.alpha() < 255) {
        // A translucent edge is drawn lighter, since the format has no alpha for it.
        const unsigned long raise = (255 - c.alpha()) / 3;
        c = RGBA(std::min(255ul, c.red() + raise), std::min(255ul, c.green() + raise),
                 std::min(255ul, c.blue() + raise), c.alpha());
    }
    out() << "<edges>\n";
    putScaledThickness(width);
    color(c);
    out() << "</edges>\n";
}

void JVXWriter::putMaterial(unsigned long alpha, bool smooth) {
    out() << "<material";
    if (smooth) out() << " shading=\"gouraud\"";
    out() << ">\n<ambientIntensity>0.2</ambientIntensity>\n<diffuse><color>128 128 "
             "128</color></diffuse>\n<emissive><color>0 0 0</color></emissive>\n"
             "<shininess>0.9</shininess>\n<specular><color>128 128 128</color></specular>\n";
    if (alpha >= 255)
        out() << "<transparency visible=\"hide\">0</transparency>\n";
    else
        out() << "<transparency visible=\"show\">" << 1.0 - double(alpha) / 255.0
              << "</transparency>\n";
    out() << "</material>\n";
}

void JVXWriter::putLabelAtt(const FontStyle& font, Arbor::Token horizontal, Arbor::Token vertical) {
    const char* hor = horizontal == getToken(id_Center) ? "center"
                      : horizontal == getToken(id_End)  ? "tail"
                                                        : "head";
    const char* ver = vertical == getToken(id_Top)      ? "top"
                      : vertical == getToken(id_Bottom) ? "bottom"
                                                        : "middle";
    const char* style = font.bold() ? "bold" : font.italic() ? "italic" : "plain";
    out() << "<labelAtt visible=\"show\" horAlign=\"" << hor << "\" verAlign=\"" << ver
          << "\" style=\"" << style << "\" name=\"";
    out().flush();
    putCData(*stream, font.family().text());
    out() << "\">\n";
    color(font.color());
    out() << "<size>";
    integer(font.size());
    out() << "</size>\n</labelAtt>\n";
}

void JVXWriter::putC(RGBA c) {
    detail::JvxLine line(out().format());
    line << "<c>" << std::int64_t(c.red()) << ' ' << std::int64_t(c.green()) << ' '
         << std::int64_t(c.blue()) << "</c>\n";
    out() << line.view();
}

void JVXWriter::putColorAt(detail::ColorListWriter& writer, std::int64_t i) {
    putC(writer.at(i));
}

void JVXWriter::putColorAt(detail::ColorListWriter& writer, std::int64_t i, std::int64_t j) {
    putC(writer.at(i, j));
}

void JVXWriter::putColorAt(detail::ColorListWriter& writer, const std::int64_t* corners,
                           int count) {
    putC(writer.at(corners, count));
}

void JVXWriter::putColors(detail::ColorListWriter& writer) {
    openCounted("colors", std::int64_t(writer.count()));
    for (std::size_t i = 0; i < writer.count(); ++i) putColorAt(writer, std::int64_t(i));
    out() << "</colors>\n";
}

void JVXWriter::putIndices(const char* tag, const std::int64_t* indices, int count) {
    // Integers need no number format: the line is plain text whatever the stream's state.
    detail::JvxLine line(out().format());
    line << '<' << std::string_view(tag) << '>';
    for (int k = 0; k < count; ++k) {
        if (k) line << ' ';
        line << indices[k];
    }
    line << "</" << std::string_view(tag) << ">\n";
    out() << line.view();
}

void JVXWriter::putIndexRun(const char* tag, std::int64_t first, std::int64_t last, bool close) {
    out() << '<' << tag << '>';
    for (std::int64_t i = first; i <= last; ++i) {
        if (i != first) out() << ' ';
        integer(i);
    }
    if (close) {
        out() << ' ';
        integer(first);
    }
    out() << "</" << tag << ">\n";
}

void JVXWriter::openCounted(const char* tag, std::int64_t count) {
    out() << '<' << tag << " num=\"";
    integer(count);
    out() << "\">\n";
}

void JVXWriter::openLineSet(std::int64_t count, bool colored, std::optional<bool> smooth) {
    out() << "<lineSet";
    showAttr("color", colored);
    showAttr("colorFromPoints", colored);
    if (smooth) showAttr("colorSmooth", *smooth);
    out() << ">\n";
    openCounted("lines", count);
}

void JVXWriter::putChainLines(std::int64_t n, bool closed) {
    for (std::int64_t i = 1; i < n; ++i) {
        const std::int64_t pair[2] = {i - 1, i};
        putIndices("l", pair, 2);
    }
    if (closed) {
        const std::int64_t pair[2] = {n - 1, 0};
        putIndices("l", pair, 2);
    }
}

void JVXWriter::putChainColors(detail::ColorListWriter& writer, std::int64_t n, bool closed) {
    openCounted("colors", closed ? n : n - 1);
    for (std::int64_t i = 1; i < n; ++i) putColorAt(writer, i - 1, i);
    if (closed) putColorAt(writer, n - 1, 0);
    out() << "</colors>\n";
}

void JVXWriter::endLines(RGBA c, double width) {
    putScaledThickness(width);
    color(c);
    out() << "</lines>\n";
}

void JVXWriter::endLineGeometry(RGBA c, double width) {
    endLines(c, width);
    out() << "</lineSet>\n";
    putMaterial(c.alpha(), false);
    out() << "</geometry>\n";
}

void JVXWriter::endFaceGeometry(RGBA shown, unsigned long alpha) {
    color(shown);
    out() << "</faces>\n<neighbours num=\"0\"/>\n</faceSet>\n";
    putMaterial(alpha, false);
    out() << "</geometry>\n";
}

} // namespace Grafel
