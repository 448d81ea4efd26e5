#include <grafel/document/ZpaParser.h>

#include <grafel/arbor/DomException.h>
#include <grafel/arbor/Text.h>
#include <grafel/arbor/Variant.h>
#include <grafel/document/P2List.h>
#include <grafel/document/P3List.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/NumberScan.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/foundation/ValueVariants.h>
#include <grafel/properties/LibraryElement.h>
#include <grafel/properties/PlotElement.h>
#include <grafel/tessel/Converter.h>

#include <algorithm>
#include <array>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstring>
#include <exception>
#include <langinfo.h>

namespace Grafel {

using Arbor::DomException;
using Arbor::Token;

namespace {

constexpr const char* magic = "Zeph-Ascii-Data";

// Handed out in turn, from entry 0 at each load.
constexpr RGBA palette[16] = {
    {0xff, 0x00, 0x00, 255}, {0xff, 0x99, 0x00, 255}, {0x99, 0xcc, 0x00, 255},
    {0x33, 0x99, 0x66, 255}, {0x33, 0xcc, 0xcc, 255}, {0x33, 0x66, 0xff, 255},
    {0x80, 0x00, 0x80, 255}, {0x96, 0x96, 0x96, 255}, {0x80, 0x00, 0x00, 255},
    {0xff, 0x66, 0x00, 255}, {0x80, 0x80, 0x00, 255}, {0x00, 0x80, 0x00, 255},
    {0x00, 0x80, 0x80, 255}, {0x00, 0x00, 0xff, 255}, {0x66, 0x66, 0x99, 255},
    {0x80, 0x80, 0x80, 255}};

// A colour fraction as a byte: times 255, cut towards zero, and only the low 8 bits kept, so
// that 1.5 wraps to 126 rather than saturating. fmod is exact, so this holds for any finite
// value; what is not finite gives 0.
unsigned long colorByte(double fraction) {
    const double whole = std::trunc(fraction * 255.0);
    if (!std::isfinite(whole)) return 0;
    double low = std::fmod(whole, 256.0);
    if (low < 0) low += 256.0;
    return static_cast<unsigned long>(low);
}

// a * b + c for the line counts of a record, kept at LONG_MAX when it would not fit: a count
// that large cannot be met by any input, which ends first.
long lineCount(long a, long b, long c) {
    long product;
    long sum;
    if (__builtin_mul_overflow(a, b, &product) || __builtin_add_overflow(product, c, &sum))
        return LONG_MAX;
    return sum;
}

} // namespace

/// One load: the tree built so far and the running state of the records.
class ZpaParser::Loader {
public:
    Loader(ZpaParser& parser, PlotDocument& document)
        : parser_(parser), document_(document), narrow_(nl_langinfo(CODESET), true) {}

    void run();

private:
    [[noreturn]] static void fail(int cause) { throw ParseErr{cause}; }
    Tessel::Ref<PlotElement> make(Token tag);
    P2List& p2List(PlotElement& element);
    P3List& p3List(PlotElement& element);
    RGBA nextColor() { return palette[paletteIndex_++ % 16]; }
    /// The next line as `n` integers (" %ld" or " %ld %ld"); cause 3 otherwise.
    void readLongs(int n, long* values);
    void expression(PlotElement& object, Token option);
    void number(PlotElement& object, Token option);
    /// The next line as a mesh and its submesh, at least 2 and 0 (cause 4 otherwise), stated
    /// on `object` as `meshName` and `submeshName`; answers them.
    std::array<long, 2> meshLine(PlotElement& object, Token meshName, Token submeshName);
    /// The parameter's name, then its least and greatest value, stated on `object`.
    void parameter(PlotElement& object, Token name, Token min, Token max);
    /// How many of `count` points to make room for: no more than the current block can hold,
    /// so that a declared count is never allocated before its data are seen.
    std::size_t roomFor(long count, std::size_t bytesPerLine) const;
    /// Reads `count` lines of one uncoloured space point each into `element`'s list.
    void spacePoints(PlotElement& element, long count);
    void curve();
    void primitiveList();
    void primitive(PlotElement& image);
    void surface();
    void skipped();

    ZpaParser& parser_;
    PlotDocument& document_;
    Tessel::NarrowToWideConverter narrow_;
    Tessel::Ref<PlotElement> system_;
    int dimension_ = 0;
    unsigned paletteIndex_ = 0;
};

Tessel::Ref<PlotElement> ZpaParser::Loader::make(Token tag) {
    Tessel::Ref<PlotElement> element(document_.createPlotElement(tag));
    // A build without the class cannot hold the record.
    if (!element) throw DomException(DomException::InvalidAccessErr);
    return element;
}

P2List& ZpaParser::Loader::p2List(PlotElement& element) {
    auto* list = dynamic_cast<P2List*>(&element);
    if (!list) throw DomException(DomException::InvalidAccessErr);
    return *list;
}

P3List& ZpaParser::Loader::p3List(PlotElement& element) {
    auto* list = dynamic_cast<P3List*>(&element);
    if (!list) throw DomException(DomException::InvalidAccessErr);
    return *list;
}

void ZpaParser::Loader::readLongs(int n, long* values) {
    parser_.readln();
    if (scanLongs(parser_.line_, n, values) != n) fail(3);
}

void ZpaParser::Loader::expression(PlotElement& object, Token option) {
    parser_.readln();
    Tessel::Ref<PlotElement> expr = make(tok_Expr);
    expr->setAttribute(tok_Opt, Arbor::TokenVariant(option));
    const std::wstring wide = narrow_.convert(parser_.line_.data(), parser_.line_.size());
    Tessel::Ref<Arbor::Text> text(document_.createTextNode(wide.c_str()));
    expr->appendChild(text.get());
    object.appendChild(expr.get());
}

void ZpaParser::Loader::number(PlotElement& object, Token option) {
    parser_.readln();
    double value;
    if (parser_.scanNumbers(1, &value) != 1) fail(3);
    // The text stays as it was written; the number only had to be one.
    Tessel::Ref<PlotElement> expr = make(tok_Expr);
    expr->setAttribute(tok_Opt, Arbor::TokenVariant(option));
    const std::wstring wide = narrow_.convert(parser_.line_.data(), parser_.line_.size());
    Tessel::Ref<Arbor::Text> text(document_.createTextNode(wide.c_str()));
    expr->appendChild(text.get());
    object.appendChild(expr.get());
}

std::size_t ZpaParser::Loader::roomFor(long count, std::size_t bytesPerLine) const {
    const std::size_t seen = parser_.blockLeft() / bytesPerLine;
    return std::min(static_cast<std::size_t>(std::max(count, 0L)), seen);
}

void ZpaParser::Loader::run() {
    // The old tree goes at once; the new page starts with the standard style library.
    Tessel::Ref<PlotElement> canvas = make(tok_Canvas);
    if (Arbor::Element* old = document_.documentElement())
        document_.replaceChild(canvas.get(), old);
    else
        document_.appendChild(canvas.get());
    if (auto* page = dynamic_cast<LibraryElement*>(canvas.get())) page->setDefaults();

    parser_.readln();
    if (std::strncmp(parser_.line_.c_str(), magic, 14) != 0) fail(3);
    parser_.readln();
    long header[2];
    readLongs(2, header);
    dimension_ = static_cast<int>(std::clamp(header[0], -1L, 4L));
    const long records = header[1];
    if ((dimension_ != 2 && dimension_ != 3) || records < 1) fail(4);

    Tessel::Ref<PlotElement> scene = make(dimension_ == 2 ? tok_Scene2d : tok_Scene3d);
    if (dimension_ == 3) scene->setAttribute(tok_Lighting, Arbor::TokenVariant(tok_Automatic));
    system_ = make(dimension_ == 2 ? tok_CoordinateSystem2d : tok_CoordinateSystem3d);
    canvas->appendChild(scene.get());
    scene->appendChild(system_.get());

    for (long r = 0; r < records; ++r) {
        long kind;
        readLongs(1, &kind);
        switch (kind) {
        case 0:
            curve();
            break;
        case 1:
            primitiveList();
            break;
        case 2:
            surface();
            break;
        case 4:
            skipped();
            break;
        default: // 3 is reserved
            fail(4);
        }
    }
    canvas->afterParentChanged();
}

std::array<long, 2> ZpaParser::Loader::meshLine(PlotElement& object, Token meshName,
                                                Token submeshName) {
    std::array<long, 2> values;
    readLongs(2, values.data());
    if (values[0] < 2 || values[1] < 0) fail(4);
    object.setAttribute(meshName, Arbor::LongVariant(values[0]));
    object.setAttribute(submeshName, Arbor::LongVariant(values[1]));
    return values;
}

void ZpaParser::Loader::parameter(PlotElement& object, Token name, Token min, Token max) {
    expression(object, name);
    number(object, min);
    number(object, max);
}

void ZpaParser::Loader::curve() {
    const bool plane = dimension_ == 2;
    Tessel::Ref<PlotElement> object = make(plane ? tok_Obj2d : tok_Obj3d);
    object->setAttribute(tok_Type, Arbor::TokenVariant(plane ? tok_Curve2d : tok_Curve3d));
    object->setAttribute(tok_LineColor, RGBAVariant(nextColor()));
    object->setAttribute(tok_Filled, Arbor::BoolVariant(false));
    object->setAttribute(tok_Closed, Arbor::BoolVariant(false));
    system_->appendChild(object.get());
    expression(*object, tok_XFunction);
    expression(*object, tok_YFunction);
    if (!plane) expression(*object, tok_ZFunction);
    const std::array<long, 2> u = meshLine(*object, tok_UMesh, tok_USubmesh);
    parameter(*object, tok_UName, tok_UMin, tok_UMax);

    const long points = lineCount(u[0] - 1, u[1], u[0]);
    Tessel::Ref<PlotElement> image = make(plane ? tok_Img2d : tok_Img3d);
    Tessel::Ref<PlotElement> poly = make(plane ? tok_Poly2d : tok_Poly3d);
    RGBA color;
    if (plane) {
        P2List& list = p2List(*poly);
        list.reserve(roomFor(points, 4));
        P2 point;
        for (long i = 0; i < points; ++i) {
            parser_.readP2(false, point, color);
            list.push_back(point);
        }
    } else {
        spacePoints(*poly, points);
    }
    image->appendChild(poly.get());
    object->appendChild(image.get());
}

void ZpaParser::Loader::spacePoints(PlotElement& element, long count) {
    P3List& list = p3List(element);
    list.reserve(roomFor(count, 6));
    P3 point;
    RGBA color;
    for (long i = 0; i < count; ++i) {
        parser_.readP3(false, point, color);
        list.push_back(point);
    }
}

void ZpaParser::Loader::primitiveList() {
    const bool plane = dimension_ == 2;
    Tessel::Ref<PlotElement> object = make(plane ? tok_Obj2d : tok_Obj3d);
    object->setAttribute(tok_Type,
                         Arbor::TokenVariant(plane ? tok_PrimitiveList2d : tok_PrimitiveList3d));
    Tessel::Ref<PlotElement> image = make(plane ? tok_Img2d : tok_Img3d);
    long count;
    readLongs(1, &count);
    for (long i = 0; i < count; ++i) primitive(*image);
    object->appendChild(image.get());
    system_->appendChild(object.get());
}

void ZpaParser::Loader::primitive(PlotElement& image) {
    const bool plane = dimension_ == 2;
    long head[2];
    readLongs(2, head);
    const long vertices = head[0];
    const bool colored = head[1] != 0;
    RGBA color;
    Tessel::Ref<PlotElement> element;
    if (vertices == 1) {
        if (plane) {
            P2 point;
            parser_.readP2(colored, point, color);
            element = make(tok_Pt2d);
            if (colored) element->setAttribute(tok_PointColor, RGBAVariant(color));
            element->setAttribute(tok_Position, P2Variant(point));
        } else {
            P3 point;
            parser_.readP3(colored, point, color);
            element = make(tok_Pts3d);
            P3List& list = p3List(*element);
            if (colored) {
                // A point cloud has no line colour to carry it: its own colour is PointColor.
                element->setAttribute(tok_PointColor, RGBAVariant(color));
                list.push_back(point, color);
            } else {
                list.push_back(point);
            }
        }
        element->setAttribute(tok_PointsVisible, Arbor::BoolVariant(true));
    } else if (vertices <= 0) {
        fail(4);
    } else {
        long closed = 0;
        long filled = 0;
        if (vertices > 2) {
            long flags[2];
            readLongs(2, flags);
            closed = flags[0];
            filled = flags[1];
        }
        element = make(plane ? tok_Poly2d : tok_Poly3d);
        // A filled polygon in space is always closed; in the plane it stays as given.
        if (!plane && filled != 0) closed = 1;
        if (filled != 0) element->setAttribute(tok_Filled, Arbor::BoolVariant(true));
        element->setAttribute(tok_PointsVisible, Arbor::BoolVariant(false));
        if (filled == 0) element->setAttribute(tok_LinesVisible, Arbor::BoolVariant(true));
        if (closed != 0) element->setAttribute(tok_Closed, Arbor::BoolVariant(true));
        if (plane) {
            P2List& list = p2List(*element);
            list.reserve(roomFor(vertices, colored ? 10 : 4), colored);
            P2 point;
            for (long i = 0; i < vertices; ++i) {
                parser_.readP2(colored, point, color);
                if (colored)
                    list.push_back(point, color);
                else
                    list.push_back(point);
            }
        } else {
            P3List& list = p3List(*element);
            list.reserve(roomFor(vertices, colored ? 12 : 6), false, colored ? 1 : 0);
            P3 point;
            for (long i = 0; i < vertices; ++i) {
                parser_.readP3(colored, point, color);
                if (colored)
                    list.push_back(point, color);
                else
                    list.push_back(point);
            }
        }
    }
    image.appendChild(element.get());
}

void ZpaParser::Loader::surface() {
    if (dimension_ != 3) fail(4);
    Tessel::Ref<PlotElement> object = make(tok_Obj3d);
    object->setAttribute(tok_Type, Arbor::TokenVariant(tok_Surface));
    object->setAttribute(tok_LineColor, RGBAVariant(nextColor()));
    object->setAttribute(tok_Filled, Arbor::BoolVariant(true));
    object->setAttribute(tok_FillColor, RGBAVariant(nextColor()));
    system_->appendChild(object.get());
    expression(*object, tok_XFunction);
    expression(*object, tok_YFunction);
    expression(*object, tok_ZFunction);
    const std::array<long, 2> u = meshLine(*object, tok_UMesh, tok_USubmesh);
    const std::array<long, 2> v = meshLine(*object, tok_VMesh, tok_VSubmesh);
    parameter(*object, tok_UName, tok_UMin, tok_UMax);
    parameter(*object, tok_VName, tok_VMin, tok_VMax);

    const long points =
        lineCount(lineCount(v[0] - 1, v[1], v[0]), lineCount(u[0] - 1, u[1], u[0]), 0);
    Tessel::Ref<PlotElement> image = make(tok_Img3d);
    Tessel::Ref<PlotElement> mesh = make(tok_Mesh3d);
    mesh->setAttribute(tok_UMesh, Arbor::LongVariant(u[0]));
    mesh->setAttribute(tok_VMesh, Arbor::LongVariant(v[0]));
    if (u[1] != 0) mesh->setAttribute(tok_USubmesh, Arbor::LongVariant(u[1]));
    if (v[1] != 0) mesh->setAttribute(tok_VSubmesh, Arbor::LongVariant(v[1]));
    spacePoints(*mesh, points);
    object->appendChild(image.get());
    image->appendChild(mesh.get());
}

void ZpaParser::Loader::skipped() {
    long k;
    readLongs(1, &k);
    if (k < 0) fail(4);
    const long lines = lineCount(3, k, 0);
    for (long i = 0; i < lines; ++i) parser_.readln();
}

ZpaParser::ZpaParser(PlotDocument* document) : document_(document) {}
ZpaParser::ZpaParser(const ZpaParser& other) = default;
ZpaParser& ZpaParser::operator=(const ZpaParser& other) = default;
ZpaParser::~ZpaParser() = default;

bool ZpaParser::parse() {
    PlotDocument& document = *document_;
    document.clearUndoStack();
    document.beginBatchChanges();
    // The batch closes on every way out, a foreign exception's included.
    struct Batch {
        PlotDocument& document;
        ~Batch() { document.endBatchChanges(); }
    } batch{document};
    lineNumber_ = 0;
    plainNumbers_ = decimalPointIsDot();
    try {
        Loader loader(*this, document);
        loader.run();
        return true;
    } catch (const ParseErr& e) {
        errorCause_ = e.cause;
    } catch (const DomException&) {
        errorCause_ = 4;
    } catch (const std::exception&) {
        // A failed allocation: the input cannot be held, which counts as a value out of range.
        errorCause_ = 4;
    }
    // What was read is dropped: an empty page, without the style library.
    Tessel::Ref<Arbor::Element> canvas(document.createElement(tok_Canvas));
    if (Arbor::Element* old = document.documentElement())
        document.replaceChild(canvas.get(), old);
    else
        document.appendChild(canvas.get());
    canvas->afterParentChanged();
    return false;
}

void ZpaParser::appendWithoutReturns(const char* begin, const char* end) {
    while (begin != end) {
        const void* cr = std::memchr(begin, '\r', static_cast<std::size_t>(end - begin));
        const char* stop = cr ? static_cast<const char*>(cr) : end;
        line_.append(begin, stop);
        begin = cr ? stop + 1 : end;
    }
}

void ZpaParser::readln() {
    line_.clear();
    ++lineNumber_;
    for (;;) {
        if (next_ != end_) {
            const void* lf = std::memchr(next_, '\n', static_cast<std::size_t>(end_ - next_));
            const char* stop = lf ? static_cast<const char*>(lf) : end_;
            appendWithoutReturns(next_, stop);
            next_ = lf ? stop + 1 : end_;
            if (lf) return;
        }
        int c;
        if (!readChar(c)) throw ParseErr{2};
        if (c == '\n') return;
        if (c == -1) throw ParseErr{3};
        if (c != '\r') line_.push_back(static_cast<char>(c));
    }
}

int ZpaParser::scanNumbers(int n, double* values) const {
    if (plainNumbers_) {
        const char* p = line_.data();
        const char* end = p + line_.size();
        int i = 0;
        for (; i < n; ++i) {
            while (p != end && (*p == ' ' || *p == '\t')) ++p;
            if (p == end || !scanPlainNumber(p, end, values[i])) break;
        }
        if (i == n) return n;
    }
    return scanFields(line_, n, 0, values, nullptr);
}

void ZpaParser::readP2(bool colored, P2& point, RGBA& color) {
    readln();
    double v[5];
    const int n = colored ? 5 : 2;
    if (scanNumbers(n, v) != n) throw ParseErr{3};
    point = P2(v[0], v[1]);
    color = colored ? RGBA(colorByte(v[2]), colorByte(v[3]), colorByte(v[4]), 255) : RGBA();
}

void ZpaParser::readP3(bool colored, P3& point, RGBA& color) {
    readln();
    double v[6];
    const int n = colored ? 6 : 3;
    if (scanNumbers(n, v) != n) throw ParseErr{3};
    point = P3(v[0], v[1], v[2]);
    color = colored ? RGBA(colorByte(v[3]), colorByte(v[4]), colorByte(v[5]), 255) : RGBA();
}

} // namespace Grafel
