// The model writer's flat shapes and single items: arcs, segments and arrows, points,
// asymptotes, text labels and plane polygons.
#include <grafel/output/JVXWriter.h>

#include <grafel/arbor/Text.h>
#include <grafel/foundation/TextRun.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/foundation/WideText.h>
#include <grafel/output/detail/JvxColors.h>
#include <grafel/primitives/Arc2d.h>
#include <grafel/primitives/Arrow2d.h>
#include <grafel/primitives/Arrow3d.h>
#include <grafel/primitives/Line2d.h>
#include <grafel/primitives/Line3d.h>
#include <grafel/primitives/Poly2d.h>
#include <grafel/primitives/Pt2d.h>
#include <grafel/primitives/Pts2d.h>
#include <grafel/primitives/Pts3d.h>
#include <grafel/primitives/Text2d.h>
#include <grafel/primitives/Text3d.h>
#include <grafel/primitives/VerticalAsymptote.h>

#include <cmath>
#include <ostream>

namespace Grafel {

namespace {
constexpr double eps = 2.220446049250313e-16;
/// Steps of an arc beyond which it is not written: ten million, some hundred thousand turns.
constexpr double maxArcSteps = 1e7;

const char* pointHead(int dim) {
    return dim == 2 ? "<geometry>\n<pointSet dim=\"2\" point=\"hide\">\n"
                    : "<geometry>\n<pointSet dim=\"3\" point=\"hide\">\n";
}

/// The fill colour of a plane shape: a pattern other than Solid is drawn lighter.
RGBA patternColor(RGBA fill, Arbor::Token pattern) {
    if (pattern == getToken(id_Solid)) return fill;
    return RGBA(fill.red() / 2 + 128, fill.green() / 2 + 128, fill.blue() / 2 + 128, fill.alpha());
}

} // namespace

template <class Point>
void JVXWriter::putSegment(Point from, Point to, RGBA c, double width, SegmentTip tip) {
    const Point ends[2] = {from, to};
    out() << pointHead(sizeof(Point) == sizeof(P2) ? 2 : 3);
    putPoints(ends, 2, c, noThickness);
    out() << "</pointSet>\n<lineSet";
    if (tip != SegmentTip::none) showAttr("arrow", tip == SegmentTip::shown);
    out() << ">\n<lines num=\"1\">\n<l>0 1</l>\n";
    endLineGeometry(c, width);
}

namespace {
JVXWriter::SegmentTip tipOf(double angle, double length) {
    // A NaN angle counts as an angle.
    return angle != 0 && length > 0 ? JVXWriter::SegmentTip::shown : JVXWriter::SegmentTip::hidden;
}
} // namespace

void JVXWriter::putLine2d(Line2d& e) {
    putSegment(e.getFrom(), e.getTo(), e.getLineColor(), e.getLineWidth(), SegmentTip::none);
}

void JVXWriter::putLine3d(Line3d& e) {
    putSegment(e.getFrom(), e.getTo(), e.getLineColor(), e.getLineWidth(), SegmentTip::none);
}

void JVXWriter::putArrow2d(Arrow2d& e) {
    putSegment(e.getFrom(), e.getTo(), e.getLineColor(), e.getLineWidth(),
               tipOf(e.getTipAngle(), e.getTipLength()));
}

void JVXWriter::putArrow3d(Arrow3d& e) {
    putSegment(e.getFrom(), e.getTo(), e.getLineColor(), e.getLineWidth(),
               tipOf(e.getTipAngle(), e.getTipLength()));
}

void JVXWriter::putArc2d(Arc2d& e) {
    const double a = e.getSemiAxisX(), b = e.getSemiAxisY();
    if ((!e.getLinesVisible() && !e.getFilled()) || a < 0 || b < 0) return;
    constexpr double step = 0.06283185307179587;
    const double start = e.getStartAngle(), end = e.getEndAngle();
    const bool whole = std::fabs(end - start - 6.283185307179586) <= eps;
    const double steps = (end - start) / step;
    // An arc of no finite length, or of more turns than any drawing needs, is not written.
    if (!whole && !(steps < maxArcSteps)) return;
    const std::int64_t m = whole ? 99 : std::int64_t(steps) + 2;
    const P2 c = e.getCenter();

    auto putArcPoints = [&] {
        out() << "<geometry>\n<pointSet dim=\"2\" point=\"hide\">\n";
        openCounted("points", m + 1);
        if (!whole) putP(c);
        // The angles are multiples of the step, not a running sum, so that a whole turn ends
        // after exactly 100 points.
        for (std::int64_t i = 0;; ++i) {
            const double t = start + double(i) * step;
            if (!(t < end)) break;
            putP(P2(c.x + a * std::cos(t), c.y + b * std::sin(t)));
        }
        if (!whole) putP(P2(c.x + a * std::cos(end), c.y + b * std::sin(end)));
        out() << "</points>\n</pointSet>\n";
    };
    if (e.getFilled()) {
        putArcPoints();
        out() << "<faceSet edge=\"hide\">\n<faces num=\"1\">\n";
        putIndexRun("f", 0, m, false);
        endFaceGeometry(patternColor(e.getFillColor(), e.getFillPattern()),
                        e.getFillColor().alpha());
    }
    if (e.getLinesVisible()) {
        putArcPoints();
        out() << "<lineSet>\n<lines num=\"1\">\n";
        if (whole || e.getClosed())
            putIndexRun("l", 0, m, true);
        else
            putIndexRun("l", 1, m, false);
        endLineGeometry(e.getLineColor(), e.getLineWidth());
    }
}

template <class Point>
void JVXWriter::putPointGeometry(const Point* points, std::size_t n, RGBA c, double size) {
    out() << "<geometry>\n<pointSet dim=\"" << (sizeof(Point) == sizeof(P2) ? '2' : '3')
          << "\" pointOutline=\"hide\">\n";
    putPoints(points, n, c, size);
    out() << "</pointSet>\n";
    putMaterial(c.alpha(), false);
    out() << "</geometry>\n";
}

void JVXWriter::putPt2d(Pt2d& e) {
    const P2 p = e.getPosition();
    putPointGeometry(&p, 1, e.getPointColor(), e.getPointSize());
}

void JVXWriter::putPts2d(Pts2d& e) {
    if (!e.getPointsVisible() || e.size() == 0) return;
    putPointGeometry(e.points(), e.size(), e.getPointColor(), e.getPointSize());
}

void JVXWriter::putPts3d(Pts3d& e) {
    if (!e.getPointsVisible() || e.size() == 0) return;
    putPointGeometry(e.points(), e.size(), e.getPointColor(), e.getPointSize());
}

void JVXWriter::putVerticalAsymptote(VerticalAsymptote& e) {
    if (!e.getVerticalAsymptotesVisible()) return;
    const double d = std::fabs(colorRangeMax - colorRangeMin) * 0.1;
    const P2 ends[2] = {P2(e.getPosition(), colorRangeMin - d),
                        P2(e.getPosition(), colorRangeMax + d)};
    const RGBA c = e.getVerticalAsymptotesColor();
    out() << pointHead(2);
    putPoints(ends, 2, c, noThickness);
    out() << "</pointSet>\n<lineSet>\n<lines num=\"1\">\n<l>0 1</l>\n";
    putStyle(c, e.getVerticalAsymptotesWidth());
    out() << "</lines>\n</lineSet>\n";
    putMaterial(c.alpha(), false);
    out() << "</geometry>\n";
}

namespace {
/// The text of all text children, escaped.
void putLabelText(std::ostream& stream, Arbor::Node& element) {
    for (Arbor::Node* n = element.firstChild(); n; n = n->nextSibling())
        if (auto* text = dynamic_cast<Arbor::Text*>(n)) putCData(stream, text->data());
}
} // namespace

void JVXWriter::putText2d(Text2d& e) {
    const P2 p = e.getPosition();
    out() << "<geometry>\n<pointSet dim=\"2\" point=\"show\">\n<points num=\"1\">\n<p name=\"";
    out().flush();
    putLabelText(*stream, e);
    // Labels stay where they were placed: no transform.
    out() << "\">" << p.x << ' ' << p.y << "</p>\n<thickness>0</thickness>\n";
    color(e.getTextFont().color());
    putLabelAtt(e.getTextFont(), e.getHorizontalAlignment(), e.getVerticalAlignment());
    out() << "</points>\n</pointSet>\n</geometry>\n";
}

void JVXWriter::putText3d(Text3d& e) {
    const P3 p = e.getPosition();
    out() << "<geometry>\n<pointSet dim=\"2\" point=\"show\">\n<points num=\"1\">\n<p name=\"";
    out().flush();
    putLabelText(*stream, e);
    out() << "\">" << p.x << ' ' << p.y << ' ' << p.z << "</p>\n<thickness>0</thickness>\n";
    color(e.getTextFont().color());
    putLabelAtt(e.getTextFont(), e.getHorizontalAlignment(), e.getVerticalAlignment());
    out() << "</points>\n</pointSet>\n</geometry>\n";
}

void JVXWriter::putPoly2d(Poly2d& e) {
    const std::size_t n = e.size();
    if (n == 0) return;
    const Arbor::Token type = e.getLineColorType();
    const bool colored = detail::isColored(type, e.colors());
    const P2* points = e.points();
    if (e.getFilled() && n >= 3) {
        out() << pointHead(2);
        putPoints(points, n, e.getLineColor(), e.getPointSize());
        out() << "</pointSet>\n<faceSet edge=\"hide\">\n<faces num=\"1\">\n";
        putIndexRun("f", 0, std::int64_t(n) - 1, false);
        endFaceGeometry(patternColor(e.getFillColor(), e.getFillPattern()),
                        e.getFillColor().alpha());
    }
    if (!e.getLinesVisible() && !e.getPointsVisible()) return;
    out() << "<geometry>\n<pointSet dim=\"2\" pointOutline=\"hide\"";
    showAttr("color", colored);
    showAttr("point", e.getPointsVisible());
    out() << ">\n";
    putPoints(points, n, e.getLineColor(), e.getPointSize());
    detail::ColorWriter2D colors(type, e.getLineColor(), e.getLineColor2(), colorRangeMin,
                                 colorRangeMax, detail::functionalList(type, e.colors()), points,
                                 n);
    if (colored) putColors(colors);
    out() << "</pointSet>\n";
    const bool closed = e.getClosed();
    const std::int64_t m = closed ? std::int64_t(n) : std::int64_t(n) - 1;
    if (m < 1 || !e.getLinesVisible()) {
        out() << "</geometry>\n";
        return;
    }
    openLineSet(m, colored, std::nullopt);
    putChainLines(std::int64_t(n), closed);
    endLines(e.getLineColor(), e.getLineWidth());
    if (colored) putChainColors(colors, std::int64_t(n), closed);
    out() << "</lineSet>\n";
    putMaterial(e.getLineColor().alpha(), false);
    out() << "</geometry>\n";
}

} // namespace Grafel
