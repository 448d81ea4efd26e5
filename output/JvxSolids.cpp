// The model writer's bodies: boxes, and the circles, cones, ellipsoids and spheres that the
// viewer has no notion of and that are written as point grids.
#include <grafel/output/JVXWriter.h>

#include <grafel/foundation/TextRun.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/primitives/Box.h>
#include <grafel/primitives/Circle3d.h>
#include <grafel/primitives/Cone.h>
#include <grafel/primitives/Ellipsoid.h>
#include <grafel/primitives/Sphere.h>

#include <cmath>

namespace Grafel {

namespace {
constexpr double eps = 2.220446049250313e-16;
constexpr int circlePoints = 38;

P3 normalised(P3 v) {
    const double length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    if (length < eps) return P3(0, 0, 0);
    return P3(v.x / length, v.y / length, v.z / length);
}

P3 cross(P3 a, P3 b) {
    return P3(a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x);
}
} // namespace

void JVXWriter::putBox(Box& e) {
    if (!e.getFilled() && !e.getLinesVisible()) return;
    const double x0 = e.getXMin(), x1 = e.getXMax(), y0 = e.getYMin(), y1 = e.getYMax(),
                 z0 = e.getZMin(), z1 = e.getZMax();
    const P3 corners[8] = {P3(x0, y0, z0), P3(x1, y0, z0), P3(x1, y0, z1), P3(x0, y0, z1),
                           P3(x0, y1, z0), P3(x1, y1, z0), P3(x1, y1, z1), P3(x0, y1, z1)};
    out() << "<geometry>\n<pointSet dim=\"3\" point=\"hide\">\n";
    putPoints(corners, 8, e.getLineColor(), noThickness);
    out() << "</pointSet>\n<faceSet";
    showAttr("face", e.getFilled());
    showAttr("edge", e.getLinesVisible());
    out() << ">\n<faces num=\"6\">\n<f>0 1 2 3</f>\n<f>7 6 5 4</f>\n<f>0 4 5 1</f>\n<f>2 6 7 "
             "3</f>\n<f>1 5 6 2</f>\n<f>0 3 7 4</f>\n";
    color(e.getFillColor());
    out() << "</faces>\n<neighbours num=\"6\">\n<nb>4 3 5 2</nb>\n<nb>4 2 5 3</nb>\n<nb>1 4 0 "
             "5</nb>\n<nb>1 5 0 4</nb>\n<nb>1 3 0 2</nb>\n<nb>3 1 2 0</nb>\n</neighbours>\n";
    if (e.getLinesVisible()) putEdgeStyle(e.getLineColor(), e.getLineWidth());
    out() << "</faceSet>\n";
    putMaterial(e.getFillColor().alpha(), false);
    out() << "</geometry>\n";
}

void JVXWriter::putCirclePoints(P3 center, P3 normal, double radius) {
    const P3 n = normalised(normal);
    // The axis with the smallest component is replaced, so that h is never parallel to n.
    P3 h = n;
    const double ax = std::fabs(n.x), ay = std::fabs(n.y), az = std::fabs(n.z);
    if (ax <= ay && ax <= az)
        h.x = 1.0;
    else if (ay <= az)
        h.y = 1.0;
    else
        h.z = 1.0;
    const P3 u = normalised(cross(h, n));
    const P3 w = cross(u, n);
    pushMatrix(
        {u.x, w.x, n.x, center.x, u.y, w.y, n.y, center.y, u.z, w.z, n.z, center.z, 0, 0, 0, 1});
    double t = 0;
    for (int i = 0; i < circlePoints; ++i, t += 0.16534698176788384)
        putP(P3(radius * std::cos(t), radius * std::sin(t), 0));
    popTransform();
}

void JVXWriter::putCircle3d(Circle3d& e) {
    const double radius = e.getRadius();
    if (radius < 0) return;
    auto head = [&] {
        out() << "<geometry>\n<pointSet dim=\"3\" point=\"hide\">\n<points num=\"38\">\n";
        putCirclePoints(e.getCenter(), e.getNormal(), radius);
        out() << "</points>\n</pointSet>\n";
    };
    if (e.getLinesVisible()) {
        head();
        out() << "<lineSet>\n<lines num=\"1\">\n";
        putIndexRun("l", 0, circlePoints - 1, true);
        endLineGeometry(e.getLineColor(), e.getLineWidth());
    }
    if (e.getFilled()) {
        head();
        out() << "<faceSet face=\"show\" edge=\"hide\">\n<faces num=\"1\">\n";
        putIndexRun("f", 0, circlePoints - 1, false);
        endFaceGeometry(e.getFillColor(), e.getFillColor().alpha());
    }
}

void JVXWriter::putCone(Cone& e) {
    const double topRadius = e.getTopRadius(), baseRadius = e.getBaseRadius();
    if (topRadius < 0 || baseRadius < 0) return;
    const P3 top = e.getTop(), base = e.getBase();
    P3 d(top.x - base.x, top.y - base.y, top.z - base.z);
    if (std::sqrt(d.x * d.x + d.y * d.y + d.z * d.z) < eps) d = P3(0, 1, 0);
    auto head = [&] {
        out() << "<geometry>\n<pointSet dim=\"3\" point=\"hide\">\n<points num=\"76\">\n";
        putCirclePoints(top, d, topRadius);
        putCirclePoints(base, d, baseRadius);
        out() << "</points>\n</pointSet>\n";
    };
    if (e.getLinesVisible()) {
        head();
        out() << "<lineSet>\n<lines num=\"2\">\n";
        putIndexRun("l", 0, circlePoints - 1, true);
        putIndexRun("l", circlePoints, 2 * circlePoints - 1, true);
        endLineGeometry(e.getLineColor(), e.getLineWidth());
    }
    if (e.getFilled()) {
        head();
        out() << "<faceSet face=\"show\" edge=\"hide\">\n<faces num=\"38\">\n";
        for (std::int64_t i = 0; i < circlePoints - 1; ++i) {
            out() << "<f>";
            integer(i);
            out() << ' ';
            integer(i + 1);
            out() << ' ';
            integer(i + 39);
            out() << ' ';
            integer(i + 38);
            out() << "</f>\n";
        }
        out() << "<f>37 0 38 75</f>\n";
        color(e.getFillColor());
        out() << "</faces>\n<neighbours num=\"38\">\n<nb>1 -1 37 -1</nb>\n";
        for (std::int64_t i = 2; i < circlePoints; ++i) {
            out() << "<nb>";
            integer(i);
            out() << " -1 ";
            integer(i - 2);
            out() << " -1</nb>\n";
        }
        out() << "<nb>0 -1 36 -1</nb>\n</neighbours>\n</faceSet>\n";
        // The mantle is always shaded smoothly; the caps stay open.
        putMaterial(e.getFillColor().alpha(), true);
        out() << "</geometry>\n";
    }
}

void JVXWriter::putEllipsoid(P3 center, double a, double b, double c, RGBA fill, bool smooth) {
    if (a < 0 || b < 0 || c < 0) return;
    constexpr int ring = 29;
    out() << "<geometry>\n<pointSet dim=\"3\" point=\"hide\">\n<points num=\"841\">\n";
    const double top = std::asin(1.0), fall = (std::asin(1.0) - std::asin(-1.0)) / 28;
    double phi = top;
    for (int r = 0; r < ring; ++r, phi -= fall) {
        const double s = std::sin(phi), radius = std::sqrt(1 - s * s), y = s * b + center.y;
        double t = 0;
        for (int k = 0; k < ring; ++k, t += 0.2243994752564138)
            putP(P3(std::cos(t) * a * radius + center.x, y, std::sin(t) * c * radius + center.z));
    }
    out() << "</points>\n</pointSet>\n<faceSet edge=\"hide\"";
    showAttr("colorSmooth", smooth);
    out() << ">\n<faces num=\"784\">\n";
    for (std::int64_t r = 0; r < 28; ++r)
        for (std::int64_t k = 0; k < 28; ++k) {
            const std::int64_t i = 29 * r + k;
            out() << "<f>";
            integer(i);
            out() << ' ';
            integer(i + 1);
            out() << ' ';
            integer(i + 30);
            out() << ' ';
            integer(i + 29);
            out() << "</f>\n";
        }
    color(fill);
    out() << "</faces>\n<neighbours num=\"784\">\n";
    for (std::int64_t r = 0; r < 28; ++r)
        for (std::int64_t k = 0; k < 28; ++k) {
            const std::int64_t nb[4] = {k < 27 ? k + 1 + 28 * r : -1, r < 27 ? k + 28 + 28 * r : -1,
                                        k > 0 ? k - 1 + 28 * r : -1, r > 0 ? k - 28 + 28 * r : -1};
            out() << "<nb>";
            for (int j = 0; j < 4; ++j) {
                if (j) out() << ' ';
                integer(nb[j]);
            }
            out() << "</nb>\n";
        }
    out() << "</neighbours>\n</faceSet>\n";
    putMaterial(fill.alpha(), smooth);
    out() << "</geometry>\n";
}

void JVXWriter::putEllipsoidElement(Ellipsoid& e) {
    putEllipsoid(e.getCenter(), e.getSemiAxisX(), e.getSemiAxisY(), e.getSemiAxisZ(),
                 e.getFillColor(), e.getShading() == getToken(id_Smooth));
}

void JVXWriter::putSphere(Sphere& e) {
    const double r = e.getRadius();
    putEllipsoid(e.getCenter(), r, r, r, e.getFillColor(), e.getShading() == getToken(id_Smooth));
}

} // namespace Grafel
