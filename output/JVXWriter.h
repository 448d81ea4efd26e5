// The JavaView model writer: the geometry of one coordinate system at one time, as a JVX file,
// and an animation as a series of numbered JVX files.
#pragma once

#include <grafel/foundation/Points.h>
#include <grafel/foundation/Rgba.h>
#include <grafel/output/JavaViewWriter.h>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace Grafel {

class FontStyle;
class TextRun;
class Arc2d;
class Arrow2d;
class Arrow3d;
class Box;
class Circle3d;
class ColorArray2d;
class Cone;
class DensityArray2d;
class Ellipsoid;
class Field2d;
class Field3d;
class Line2d;
class Line3d;
class Lines3d;
class Mesh3d;
class Poly2d;
class Poly3d;
class Pt2d;
class Pts2d;
class Pts3d;
class Sphere;
class Surf3d;
class Text2d;
class Text3d;
class Tr2d;
class Tr3d;
class VerticalAsymptote;

namespace detail {
class ColorListWriter;
}

/// Writes a document's one scene as a JavaView model: one geometry or more for each primitive,
/// in document order, in final coordinates (transforms are applied here), with the shapes
/// JavaView has no notion of (arcs, circles, cones, ellipsoids) tessellated.
class JVXWriter : public JavaViewWriter {
public:
    /// A 4x4 matrix, row after row.
    using Matrix = std::array<double, 16>;
    /// Whether a segment is an arrow, and then whether its tip shows.
    enum class SegmentTip { none, hidden, shown };

    explicit JVXWriter(PlotDocument* doc);
    JVXWriter(const JVXWriter&) = default;
    JVXWriter& operator=(const JVXWriter&) = default;
    ~JVXWriter() override;

    void write(std::ostream* out, double time) override;
    /// Writes the whole animation, `framesPerUnit` files a time unit, named after `fileName`
    /// with the frame number before its last dot.
    void writeFrames(int framesPerUnit, const char* fileName);
    /// Asked before an existing frame file is replaced; false ends the export. The default
    /// replaces this and every later file.
    virtual bool overwriteFrameFile(const char* fileName, bool& overwriteAll);

protected:
    // The walk over the tree.
    void putGeometries(Arbor::Node* node);
    void putObject2d(Arbor::Node* object);
    void putObject3d(Arbor::Node* object);
    bool objVisible(Arbor::Node* object) const;

    // The transform stack; every point written goes through its top.
    void pushTransform2d(const Tr2d& tr);
    void pushTransform3d(const Tr3d& tr);
    void pushMatrix(const Matrix& m);
    void popTransform();
    P2 transformed(P2 p) const;
    P3 transformed(P3 p) const;

    // Building blocks.
    void putP(P2 p);
    void putP(P3 p);
    void putPoints(const P2* points, std::size_t n, RGBA color, double size);
    void putPoints(const P3* points, std::size_t n, RGBA color, double size);
    void putScaledThickness(double width);
    /// The thickness of points of `size`, half of it scaled, nothing for NaN.
    void putPointThickness(double size);
    /// "<tag>a b c</tag>" of `count` indices.
    void putIndices(const char* tag, const std::int64_t* indices, int count);
    void putVectors(const P2* vectors, std::size_t n, RGBA color, double length, double width);
    void putVectors(const P3* vectors, std::size_t n, RGBA color, double length, double width);
    void putStyle(RGBA color, double width);
    void putEdgeStyle(RGBA color, double width);
    void putMaterial(unsigned long alpha, bool smooth);
    void putLabelAtt(const FontStyle& font, Arbor::Token horizontal, Arbor::Token vertical);
    /// "<c>r g b</c>" lines of `writer` for the given index pairs, quads and so on.
    void putColorAt(detail::ColorListWriter& writer, std::int64_t i);
    void putColorAt(detail::ColorListWriter& writer, std::int64_t i, std::int64_t j);
    void putColorAt(detail::ColorListWriter& writer, const std::int64_t* corners, int count);
    void putColors(detail::ColorListWriter& writer);
    /// "<c>r g b</c>" of one colour.
    void putC(RGBA c);
    /// "<f>first first+1 ... last</f>" or "<l>...</l>" with `close` adding the first again.
    void putIndexRun(const char* tag, std::int64_t first, std::int64_t last, bool close);
    /// "<tag num="count">" and its line end.
    void openCounted(const char* tag, std::int64_t count);
    /// The head of a line set of `count` lines that may take its colours from the points;
    /// without `smooth` the set says nothing about smooth colouring.
    void openLineSet(std::int64_t count, bool colored, std::optional<bool> smooth);
    /// The "<l>" pairs of a chain through `n` points, back to the first when `closed`.
    void putChainLines(std::int64_t n, bool closed);
    /// The colour list of those pairs.
    void putChainColors(detail::ColorListWriter& writer, std::int64_t n, bool closed);
    /// Ends a "<lines>" list with its thickness and colour.
    void endLines(RGBA c, double width);
    /// Ends a geometry of one line set: its style, its material, its closing tags.
    void endLineGeometry(RGBA c, double width);
    /// Ends a geometry of one face without neighbours, drawn in `shown`.
    void endFaceGeometry(RGBA shown, unsigned long alpha);
    void putCirclePoints(P3 center, P3 normal, double radius);
    void putEllipsoid(P3 center, double a, double b, double c, RGBA color, bool smooth);

    /// A line or an arrow: two points and the line between them.
    template <class Point>
    void putSegment(Point from, Point to, RGBA c, double width, SegmentTip tip);

    /// A geometry of points only, in their own colour.
    template <class Point>
    void putPointGeometry(const Point* points, std::size_t n, RGBA c, double size);
    /// A colour or density array: its corner grid and one coloured face per cell.
    template <class Array, class CellColor>
    void putRaster(Array& e, CellColor cellColor, unsigned long alpha);
    /// A vector field: its grid nodes, one vector per node, coloured by the nodes' heights
    /// between `bottom` and `top` or from `list`.
    template <class Point, class Field>
    void putField(Field& e, const std::vector<Point>& nodes, double bottom, double top,
                  const RGBA* list, double length, bool arrow);

    // One operation per primitive.
    void putArc2d(Arc2d& e);
    void putLine2d(Line2d& e);
    void putLine3d(Line3d& e);
    void putArrow2d(Arrow2d& e);
    void putArrow3d(Arrow3d& e);
    void putPt2d(Pt2d& e);
    void putPts2d(Pts2d& e);
    void putPts3d(Pts3d& e);
    void putVerticalAsymptote(VerticalAsymptote& e);
    void putText2d(Text2d& e);
    void putText3d(Text3d& e);
    void putPoly2d(Poly2d& e);
    void putBox(Box& e);
    void putCircle3d(Circle3d& e);
    void putCone(Cone& e);
    void putEllipsoidElement(Ellipsoid& e);
    void putSphere(Sphere& e);
    void putPoly3d(Poly3d& e);
    void putLines3d(Lines3d& e);
    void putSurf3d(Surf3d& e);
    void putMesh3d(Mesh3d& e);
    void putColorArray2d(ColorArray2d& e);
    void putDensityArray2d(DensityArray2d& e);
    void putField2d(Field2d& e);
    void putField3d(Field3d& e);

    /// The bulk output of the current write; base operations that write to `stream` are
    /// called only through color(), showAttr() and thickness(), which hand it over first.
    TextRun& out() { return *run_; }
    void color(RGBA c);
    void showAttr(const char* name, bool show);
    void integer(std::int64_t value);

    std::vector<Matrix> transformStack;
    double colorRangeMin = 0;
    double colorRangeMax = 0;

private:
    // The 2D and 3D forms of the building blocks above.
    template <class Point> void putPointOf(Point p);
    template <class Point>
    void putPointsOf(const Point* points, std::size_t n, RGBA color, double size);
    template <class Point>
    void putVectorsOf(const Point* vectors, std::size_t n, RGBA color, double length, double width);

    TextRun* run_ = nullptr;
};

} // namespace Grafel
