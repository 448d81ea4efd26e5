#include <grafel/document/ZpxParserHandler.h>

#include <grafel/arbor/DomException.h>
#include <grafel/arbor/Text.h>
#include <grafel/document/P2List.h>
#include <grafel/document/P3List.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/properties/PlotElement.h>
#include <grafel/tessel/FlexBuff.h>
#include <grafel/tessel/Utf.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <clocale>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <utility>

namespace Grafel {

using Arbor::DomException;
using Arbor::Token;

namespace {

// What the reader does with an element, by its tag.
enum class Group : unsigned char {
    Plain,        // appended to the open element
    Point2,       // one point of a P2List, no node
    Point3,       // one point of a P3List, no node
    SingleText,   // replaces its namesake, keeps its text
    Single,       // replaces its namesake
    Array,        // appended, its text is split into words
    Option,       // appended once its Opt holds a token
    OptionText,   // the same, keeps its text
    Typed,        // appended once its Type holds a token
    TextObject,   // appended, keeps its text
    SequenceItem, // takes the place of the child at childIndex, keeps its text
    Prop,         // appended once Opt holds a token and Val a string
    Category,     // appended once Name holds a non-empty string
    Info,         // appended once Dom holds a token
    Root,         // replaces the document element
};

struct GroupTags {
    Group group;
    std::span<const TokenId> tags;
};

// clang-format off
constexpr TokenId plainTags[] = {
    id_AmbientLight, id_Arc2d, id_Arrow2d, id_Arrow3d, id_Box, id_Camera, id_Circle3d,
    id_ClippingBox, id_Cone, id_CoordinateSystem2d, id_CoordinateSystem3d, id_DistantLight,
    id_Ellipsoid, id_Field2d, id_Field3d, id_Group2d, id_Group3d, id_Img2d, id_Img3d, id_Line2d,
    id_Line3d, id_Mesh3d, id_Plane, id_Point2d, id_Point3d, id_PointLight, id_Poly2d, id_Poly3d,
    id_Pt2d, id_Pts2d, id_Pts3d, id_Scene2d, id_Scene3d, id_Sphere, id_SpotLight, id_TickPos,
    id_Tr2d, id_Tr3d, id_VerticalAsymptote
};
constexpr TokenId singleTextTags[] = {
    id_AxesOriginX, id_AxesOriginY, id_AxesOriginZ, id_Footer, id_Header, id_LegendText,
    id_ParameterBegin, id_ParameterEnd, id_ParameterName, id_Title, id_TitlePositionX,
    id_TitlePositionY, id_TitlePositionZ, id_ViewingBoxXMax, id_ViewingBoxXMin, id_ViewingBoxYMax,
    id_ViewingBoxYMin, id_ViewingBoxZMax, id_ViewingBoxZMin, id_XAxisTitle, id_XTicksAnchor,
    id_XTicksDistance, id_YAxisTitle, id_YTicksAnchor, id_YTicksDistance, id_ZAxisTitle,
    id_ZTicksAnchor, id_ZTicksDistance
};
constexpr TokenId singleTags[] = {
    id_CoordinateSystem2dStyle, id_CoordinateSystem3dStyle, id_Hints, id_Matrix2d, id_Matrix3d,
    id_Points2d, id_Points3d, id_Scene2dStyle, id_Scene3dStyle, id_TextOrientation, id_TimeRange,
    id_View2d, id_View3d, id_XTicksAt, id_YTicksAt, id_ZTicksAt
};
constexpr TokenId arrayTags[] = {id_ColorArray2d, id_DensityArray2d};
constexpr TokenId optionTags[] = {id_ColorFunc, id_ExprSeq};
constexpr TokenId optionTextTags[] = {id_Expr};
constexpr TokenId typedTags[] = {
    id_Lines3d, id_Obj2d, id_Obj3d, id_ObjStyle, id_ObjType, id_Surf3d, id_Transform2d,
    id_Transform3d
};
constexpr TokenId textObjectTags[] = {id_Text2d, id_Text3d};
constexpr TokenId sequenceItemTags[] = {id_IExpr, id_VExpr};
constexpr TokenId propTags[] = {id_Prop};
constexpr TokenId categoryTags[] = {id_PropCat};
constexpr TokenId infoTags[] = {id_PropInfo};
constexpr TokenId rootTags[] = {id_Canvas};
constexpr TokenId point2Tags[] = {id_P2};
constexpr TokenId point3Tags[] = {id_P3};
// clang-format on

constexpr GroupTags groupTable[] = {
    {Group::Plain, plainTags},
    {Group::SingleText, singleTextTags},
    {Group::Single, singleTags},
    {Group::Array, arrayTags},
    {Group::Option, optionTags},
    {Group::OptionText, optionTextTags},
    {Group::Typed, typedTags},
    {Group::TextObject, textObjectTags},
    {Group::SequenceItem, sequenceItemTags},
    {Group::Prop, propTags},
    {Group::Category, categoryTags},
    {Group::Info, infoTags},
    {Group::Root, rootTags},
    {Group::Point2, point2Tags},
    {Group::Point3, point3Tags},
};

// The attribute names, in token order.
// clang-format off
constexpr int attributeTable[] = {
    id_AdaptiveMesh, id_AffectViewingBox, id_Anchor, id_AnimationStyle, id_AntiAliased,
    id_ArrowLength, id_AutoPlay, id_AutoViewingBox, id_Axes, id_AxesInFront, id_AxesLineColor,
    id_AxesLineWidth, id_AxesTips, id_AxesTitleFont, id_BackgroundColor, id_BackgroundColor2,
    id_BackgroundStyle, id_BackgroundTransparent, id_Base, id_BaseDir, id_BaseRadius,
    id_Billboarding, id_BorderColor, id_BorderWidth, id_Bottom, id_BottomMargin,
    id_CameraCoordinates, id_Center, id_Closed, id_Columns, id_Consistent, id_CoordinateType,
    id_CurrentTime, id_Delta, id_DiscontinuitySearch, id_Dom, id_EndAngle, id_Enum, id_Extension,
    id_FaceDir, id_FillColor, id_FillColor2, id_FillColorDirectionX, id_FillColorDirectionY,
    id_FillColorDirectionZ, id_FillColorType, id_FillPattern, id_FillStyle, id_Filled,
    id_FocalPoint, id_FooterAlignment, id_FooterFont, id_Frames, id_From, id_GridInFront,
    id_GridLineColor, id_GridLineStyle, id_GridLineWidth, id_HasLineColors, id_HeaderAlignment,
    id_HeaderFont, id_Height, id_HorizontalAlignment, id_Info, id_InitialTime, id_KeepUpVector,
    id_Layout, id_Left, id_LeftMargin, id_LegendAlignment, id_LegendColor, id_LegendEntry,
    id_LegendFont, id_LegendPlacement, id_LegendVisible, id_LightColor, id_LightIntensity,
    id_Lighting, id_LineColor, id_LineColor2, id_LineColorDirectionX, id_LineColorDirectionY,
    id_LineColorDirectionZ, id_LineColorType, id_LineStyle, id_LineWidth, id_LinesVisible,
    id_MeshVisible, id_Name, id_Normal, id_Opt, id_OrthogonalProjection, id_OutputUnits, id_Param,
    id_Point1, id_Point2, id_PointColor, id_PointSize, id_PointStyle, id_PointsVisible,
    id_Position, id_Radius, id_Recalc, id_RightMargin, id_Row1, id_Row2, id_Row3, id_Rows,
    id_Scaling, id_SemiAxisX, id_SemiAxisY, id_SemiAxisZ, id_Shading, id_Shift, id_Spacing,
    id_SpotAngle, id_StartAngle, id_SubgridLineColor, id_SubgridLineStyle, id_SubgridLineWidth,
    id_Target, id_TextFont, id_TextRotation, id_TicksLabelFont, id_TicksLength, id_TimeBegin,
    id_TimeEnd, id_TipAngle, id_TipLength, id_TipStyle, id_TitleAlignment, id_TitleFont,
    id_TitlePositionX, id_TitlePositionY, id_TitlePositionZ, id_To, id_Top, id_TopMargin,
    id_TopRadius, id_TubeDiameter, id_Tubular, id_Type, id_ULinesVisible, id_UMesh, id_USubmesh,
    id_UpVector, id_UseXYLinesVisible, id_VLinesVisible, id_VMesh, id_VSubmesh, id_Val,
    id_VerticalAlignment, id_VerticalAsymptotesColor, id_VerticalAsymptotesStyle,
    id_VerticalAsymptotesVisible, id_VerticalAsymptotesWidth, id_ViewDirectional,
    id_ViewFocalPointX, id_ViewFocalPointY, id_ViewFocalPointZ, id_ViewKeepUpVector,
    id_ViewOrthogonalProjection, id_ViewPositionX, id_ViewPositionY, id_ViewPositionZ,
    id_ViewTranslationX, id_ViewTranslationY, id_ViewTranslationZ, id_ViewUpVectorX,
    id_ViewUpVectorY, id_ViewUpVectorZ, id_ViewViewingAngle, id_ViewXMax, id_ViewXMin, id_ViewYMax,
    id_ViewYMin, id_ViewingAngle, id_Visible, id_VisibleAfterEnd, id_VisibleBeforeBegin, id_Width,
    id_XAxisTitleAlignment, id_XAxisVisible, id_XGridVisible, id_XLinesVisible, id_XMax, id_XMesh,
    id_XMin, id_XSubgridVisible, id_XSubmesh, id_XTicksBetween, id_XTicksLabelStyle,
    id_XTicksLabelsVisible, id_XTicksNumber, id_XTicksVisible, id_YAxisTitleAlignment,
    id_YAxisTitleOrientation, id_YAxisVisible, id_YGridVisible, id_YLinesVisible, id_YMax,
    id_YMesh, id_YMin, id_YSubgridVisible, id_YSubmesh, id_YTicksBetween, id_YTicksLabelStyle,
    id_YTicksLabelsVisible, id_YTicksNumber, id_YTicksVisible, id_YXRatio, id_ZAxisTitleAlignment,
    id_ZAxisVisible, id_ZGridVisible, id_ZMax, id_ZMesh, id_ZMin, id_ZSubgridVisible,
    id_ZTicksBetween, id_ZTicksLabelStyle, id_ZTicksLabelsVisible, id_ZTicksNumber,
    id_ZTicksVisible, id_ZXRatio, id_id, id_version
};
// clang-format on

constexpr std::size_t countTags() {
    std::size_t n = 0;
    for (const GroupTags& row : groupTable) n += row.tags.size();
    return n;
}

// The group of each token id; ids that are no tag read as Plain, but never get past
// elementName() in a file.
struct TagInfo {
    std::array<Group, tokenCount + 1> group{};
    std::array<bool, tokenCount + 1> isElement{};
    std::array<int, countTags()> elements{};
};

constexpr TagInfo makeTagInfo() {
    TagInfo info;
    for (Group& g : info.group) g = Group::Plain;
    for (const GroupTags& row : groupTable) {
        for (TokenId id : row.tags) {
            info.group[id] = row.group;
            info.isElement[id] = true;
        }
    }
    std::size_t n = 0;
    for (int id = 1; id <= tokenCount; ++id)
        if (info.isElement[id]) info.elements[n++] = id;
    return info;
}

constexpr TagInfo tagInfo = makeTagInfo();

constexpr std::array<bool, tokenCount + 1> makeAttributeSet() {
    std::array<bool, tokenCount + 1> set{};
    for (int id : attributeTable) set[id] = true;
    return set;
}

constexpr std::array<bool, tokenCount + 1> isAttribute = makeAttributeSet();

static_assert(std::size(tagInfo.elements) == 106, "the dialect has 106 tags");
static_assert(std::size(attributeTable) == 226, "the dialect has 226 attribute names");
static_assert(std::is_sorted(std::begin(attributeTable), std::end(attributeTable)) &&
                  std::adjacent_find(std::begin(attributeTable), std::end(attributeTable)) ==
                      std::end(attributeTable),
              "attribute names are listed once each, in token order");

Group groupOf(int id) {
    return id > 0 && id <= tokenCount ? tagInfo.group[id] : Group::Plain;
}

bool wantsText(Group g) {
    return g == Group::SingleText || g == Group::Array || g == Group::OptionText ||
           g == Group::TextObject || g == Group::SequenceItem;
}

inline bool isXmlSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

const char* skipXmlSpace(const char* p, const char* end) {
    while (p != end && isXmlSpace(*p)) ++p;
    return p;
}

inline bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

inline bool endsNumber(const char* p, const char* end) {
    return p == end || isXmlSpace(*p) || *p == '#';
}

// The common case of the plain form: at most 19 significant digits that make an integer
// below 2^53, scaled by a power of ten up to 10^22. Both are exact doubles, so one
// multiplication or division gives the correctly rounded value, the one strtod gives. Anything
// else answers false and leaves `p` alone.
bool shortNumber(const char*& p, const char* end, double& value) {
    static constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const char* q = p;
    const bool negative = *q == '-';
    if (negative) ++q;
    const char* start = q;
    while (q != end && *q == '0') ++q; // leading zeros are not significant
    std::uint64_t mantissa = 0;
    const char* significant = q;
    for (; q != end && isDigit(*q); ++q) mantissa = mantissa * 10 + unsigned(*q - '0');
    long digits = q - significant;
    long exponent = 0;
    bool any = q != start;
    if (q != end && *q == '.') {
        const char* fraction = ++q;
        if (mantissa == 0)
            while (q != end && *q == '0') ++q; // nor are zeros right behind the point
        const char* rest = q;
        for (; q != end && isDigit(*q); ++q) mantissa = mantissa * 10 + unsigned(*q - '0');
        digits += q - rest;
        exponent = -(q - fraction);
        any = any || q != fraction;
    }
    // Beyond 19 digits the mantissa may have wrapped; such numbers take the long way.
    if (!any || digits > 19) return false;
    if (q != end && (*q == 'e' || *q == 'E')) {
        ++q;
        const bool down = q != end && *q == '-';
        if (q != end && (*q == '-' || *q == '+')) ++q;
        if (q == end || !isDigit(*q)) return false;
        long e = 0;
        for (; q != end && isDigit(*q); ++q) {
            if (e > 100000) return false;
            e = e * 10 + (*q - '0');
        }
        exponent += down ? -e : e;
    }
    if (!endsNumber(q, end)) return false;
    double v = 0.0;
    if (mantissa != 0) {
        if (mantissa > (std::uint64_t(1) << 53) || exponent < -22 || exponent > 22) return false;
        v = static_cast<double>(mantissa);
        v = exponent >= 0 ? v * powers[exponent] : v / powers[-exponent];
    }
    value = negative ? -v : v;
    p = q;
    return true;
}

// One number as " %lf" reads it, when it has a plain decimal form whose end is beyond doubt:
// an optional minus, digits with at most one point and an exponent, followed by white space,
// a '#' or the end. Anything else (a plus, inf, nan, hexadecimal, a value out of range, a
// character that sscanf might still take) answers false, and the caller asks sscanf.
bool plainNumber(const char*& p, const char* end, double& value) {
    const char* q = p;
    if (q != end && *q == '-') ++q;
    if (q == end || !((*q >= '0' && *q <= '9') || *q == '.')) return false;
    if (shortNumber(p, end, value)) return true;
    const auto [next, ec] = std::from_chars(p, end, value);
    if (ec != std::errc() || (next != end && !isXmlSpace(*next) && *next != '#')) return false;
    p = next;
    return true;
}

// The whole field list as scanFields describes it, when every field is plain; false hands the
// text to sscanf.
bool plainFields(const std::string& text, int numbers, int colors, double* values,
                 char (*words)[11]) {
    const char* p = text.data();
    const char* end = p + text.size();
    for (int i = 0; i < numbers; ++i) {
        p = skipXmlSpace(p, end);
        if (!plainNumber(p, end, values[i])) return false;
    }
    for (int i = 0; i < colors; ++i) {
        p = skipXmlSpace(p, end);
        if (p == end || *p != '#') return false;
        p = skipXmlSpace(p + 1, end); // %s skips white space of its own
        const char* start = p;
        while (p != end && p - start < 10 && !isXmlSpace(*p)) {
            // Characters that sscanf might see as white space, or as the end of the text.
            const unsigned char c = static_cast<unsigned char>(*p);
            if (c >= 0x80 || c == '\v' || c == '\f' || c == 0) return false;
            ++p;
        }
        if (p == start) return false;
        std::memcpy(words[i], start, static_cast<std::size_t>(p - start));
        words[i][p - start] = '\0';
    }
    return true;
}

// sscanf with the numbers first and then the words, as the formats have them; pointers beyond
// the format's conversions are not touched.
template <std::size_t... I>
int sscanfFields(const char* text, const char* format, double* values, char (*words)[11],
                 std::index_sequence<I...>) {
    return std::sscanf(text, format, &values[I]..., words[0], words[1]);
}

bool pointIsDot() {
    const char* point = std::localeconv()->decimal_point;
    return point[0] == '.' && point[1] == '\0';
}

// The common shape of a point's text, read in one pass: up to six plain numbers, then up to
// two colour words of at most ten characters behind their '#', each word set off by white
// space. In that shape the words are what the point pattern counts, each field is what the
// sscanf format of that pattern converts, and no "inf" can occur. Anything else answers false
// and is left to the general path.
bool plainPoint(const std::string& text, double* values, int& numbers, char (*words)[11],
                int& colors) {
    const char* p = text.data();
    const char* end = p + text.size();
    numbers = colors = 0;
    for (;;) {
        p = skipXmlSpace(p, end);
        if (p == end) return numbers > 0;
        if (*p == '#') break;
        if (numbers == 6 || !plainNumber(p, end, values[numbers]) || (p != end && *p == '#'))
            return false;
        ++numbers;
    }
    for (;;) {
        if (colors == 2 || *p != '#') return false;
        const char* start = ++p;
        for (; p != end && !isXmlSpace(*p); ++p) {
            const unsigned char c = static_cast<unsigned char>(*p);
            if (c >= 0x80 || c == '\v' || c == '\f' || c == 0 || c == 'i' || p - start == 10)
                return false;
        }
        if (p == start) return false;
        std::memcpy(words[colors], start, static_cast<std::size_t>(p - start));
        words[colors++][p - start] = '\0';
        p = skipXmlSpace(p, end);
        if (p == end) return true;
    }
}

// The sscanf format of `numbers` numbers (1 to 6) and `colors` colour words (0 to 2).
const char* formatFor(int numbers, int colors) {
    static const char* const formats[6][3] = {
        {" %lf ", " %lf #%10s ", " %lf #%10s #%10s "},
        {" %lf %lf ", " %lf %lf #%10s ", " %lf %lf #%10s #%10s "},
        {" %lf %lf %lf ", " %lf %lf %lf #%10s ", " %lf %lf %lf #%10s #%10s "},
        {" %lf %lf %lf %lf ", " %lf %lf %lf %lf #%10s ", " %lf %lf %lf %lf #%10s #%10s "},
        {" %lf %lf %lf %lf %lf ", " %lf %lf %lf %lf %lf #%10s ",
         " %lf %lf %lf %lf %lf #%10s #%10s "},
        {" %lf %lf %lf %lf %lf %lf ", " %lf %lf %lf %lf %lf %lf #%10s ",
         " %lf %lf %lf %lf %lf %lf #%10s #%10s "},
    };
    return formats[numbers - 1][colors];
}

// scanFields, with the plain reading allowed or not.
int scan(const std::string& text, int numbers, int colors, double* values, char (*words)[11],
         bool plain) {
    if (plain && plainFields(text, numbers, colors, values, words)) return numbers + colors;
    // The text is an element's own or a single word, never the parser's buffer, so sscanf
    // measures no more than that.
    const char* format = formatFor(numbers, colors);
    const char* c = text.c_str();
    switch (numbers) {
    case 1:
        return sscanfFields(c, format, values, words, std::make_index_sequence<1>());
    case 2:
        return sscanfFields(c, format, values, words, std::make_index_sequence<2>());
    case 3:
        return sscanfFields(c, format, values, words, std::make_index_sequence<3>());
    case 4:
        return sscanfFields(c, format, values, words, std::make_index_sequence<4>());
    case 5:
        return sscanfFields(c, format, values, words, std::make_index_sequence<5>());
    default:
        return sscanfFields(c, format, values, words, std::make_index_sequence<6>());
    }
}

// Words and how many of them start with '#', as the P3 pattern counts them.
void countWords(const std::string& text, int& numbers, int& colors) {
    numbers = colors = 0;
    const char* p = text.data();
    const char* end = p + text.size();
    for (;;) {
        p = skipXmlSpace(p, end);
        if (p == end) return;
        ++(*p == '#' ? colors : numbers);
        while (p != end && !isXmlSpace(*p)) ++p;
    }
}

// The checks ask hasAttribute first: reading an unset value would make a report of its own.
bool holdsToken(PlotElement* element, Token name) {
    if (!element->hasAttribute(name)) return false;
    const Arbor::Variant v = element->getAttribute(name);
    const auto* token = v.as<Arbor::TokenVariant>();
    return token && !token->val().isNull() && token->val().c_str()[0] != '\0';
}

bool holdsString(PlotElement* element, Token name, bool nonEmpty) {
    if (!element->hasAttribute(name)) return false;
    const Arbor::Variant v = element->getAttribute(name);
    const auto* text = v.as<Arbor::FixedUStringVariant>();
    return text && (!nonEmpty || !text->val().empty());
}

// The capacity to grow a point list to when it is full: doubling while small, then by half,
// so that the storage of a large list, and the copy when it is trimmed, stay close to its size.
std::size_t grownCapacity(std::size_t size) {
    return size < 65536 ? std::max<std::size_t>(64, 2 * size) : size + size / 2;
}

constexpr double p3Limit = 3e30;

double clampP3(double v) {
    if (v > p3Limit) return p3Limit;
    if (v < -p3Limit) return -p3Limit;
    return v;
}

} // namespace

std::span<const int> ZpxParserHandler::elementNames() {
    return tagInfo.elements;
}

std::span<const int> ZpxParserHandler::attributeNames() {
    return attributeTable;
}

int ZpxParserHandler::scanFields(const std::string& text, int numbers, int colors, double* values,
                                 char (*words)[11]) {
    return scan(text, numbers, colors, values, words, pointIsDot());
}

ZpxParserHandler::ZpxParserHandler(PlotDocument* document, bool dropIds,
                                   ElementDocument::ErrorHandler errorHandler)
    : document_(document), errorHandler_(errorHandler), keepIds_(!dropIds),
      plainNumbers_(pointIsDot()) {
    document_->beginBatchChanges();
    batchOpen_ = true;
    if (!document_->documentElement()) {
        Arbor::Ref<Arbor::Element> canvas(document_->createElement(tok_Canvas));
        if (canvas) document_->appendChild(canvas.get());
    }
}

ZpxParserHandler::~ZpxParserHandler() = default;

void ZpxParserHandler::error(const char* format, ...) const {
    if (!errorHandler_) return;
    va_list args;
    va_start(args, format);
    va_list prefixArgs;
    va_copy(prefixArgs, args);
    errorHandler_("ZPX error: ", prefixArgs);
    va_end(prefixArgs);
    errorHandler_(format, args);
    va_end(args);
}

void ZpxParserHandler::illegalChild(const char* name, const PlotElement* parent) const {
    error("illegal %s [parent %s]\n", name, parent ? parent->tagName().c_str() : "");
    throw DomException(DomException::InvalidAccessErr);
}

void ZpxParserHandler::illegalData(const char* name, const char* text) const {
    error("%s data corrupted: '%s'\n", name, text);
    throw DomException(DomException::InvalidAccessErr);
}

bool ZpxParserHandler::elementName(const char* namespaceUri, const char* name, int& namespaceId,
                                   int& nameId) {
    if (namespaceUri && *namespaceUri && std::strcmp(namespaceUri, zpxNamespaceUri) != 0) {
        error("unknown namespace '%s'\n", namespaceUri);
        return false;
    }
    const int id = getTokenId(name);
    if (id == 0) {
        error("unknown element '%s'\n", name);
        return false;
    }
    if (!tagInfo.isElement[id]) {
        error("not an element '%s'\n", name);
        return false;
    }
    namespaceId = 0;
    nameId = id;
    return true;
}

bool ZpxParserHandler::attributeName(const char* namespaceUri, const char* name, int& namespaceId,
                                     int& nameId) {
    if (namespaceUri && *namespaceUri && std::strcmp(namespaceUri, zpxNamespaceUri) != 0) {
        error("unknown namespace '%s'\n", namespaceUri);
        return false;
    }
    const int id = getTokenId(name);
    if (id == 0) {
        error("unknown attribute '%s'\n", name);
        return false;
    }
    if (!isAttribute[id]) {
        error("not an attribute '%s'\n", name);
        return false;
    }
    namespaceId = 0;
    nameId = id;
    return true;
}

void ZpxParserHandler::startElement(int, int nameId,
                                    const std::vector<Tessel::Xml::Attribute>& attributes) {
    if (++depth_ > maxDepth) {
        error("elements nested deeper than %d levels\n", maxDepth);
        throw DomException(DomException::HierarchyRequestErr);
    }
    const Token tag = getToken(nameId);
    const Group group = groupOf(nameId);
    if (!current_ && group != Group::Root) {
        error("document element '%s' is no Canvas\n", tag.c_str());
        throw DomException(DomException::HierarchyRequestErr);
    }
    if (group == Group::Point2 || group == Group::Point3) {
        wantData();
        childIndex_ = 0;
        return;
    }
    if (group == Group::Root && current_) illegalChild(tag.c_str(), current_.get());

    Arbor::Ref<PlotElement> element(document_->createPlotElement(tag));
    if (!element) {
        error("element '%s' is not supported\n", tag.c_str());
        throw DomException(DomException::HierarchyRequestErr);
    }
    for (const Tessel::Xml::Attribute& attribute : attributes) {
        const Token name = getToken(attribute.nameId);
        if (!keepIds_ && name == tok_id) continue;
        element->setAttributeString(name, attribute.value);
    }

    // The checks refuse without a report of their own: a missing mandatory value.
    auto require = [](bool ok) {
        if (!ok) throw DomException(DomException::HierarchyRequestErr);
    };
    switch (group) {
    case Group::Option:
    case Group::OptionText:
        require(holdsToken(element.get(), tok_Opt));
        break;
    case Group::Typed:
        require(holdsToken(element.get(), tok_Type));
        break;
    case Group::Prop:
        require(holdsToken(element.get(), tok_Opt) && holdsString(element.get(), tok_Val, false));
        break;
    case Group::Category:
        require(holdsString(element.get(), tok_Name, true));
        break;
    case Group::Info:
        require(holdsToken(element.get(), tok_Dom));
        break;
    default:
        break;
    }

    switch (group) {
    case Group::SingleText:
    case Group::Single:
        current_->replaceChildByName(element.get());
        break;
    case Group::SequenceItem:
        if (Arbor::Node* old = current_->findChild(childIndex_))
            current_->replaceChild(element.get(), old);
        else
            current_->appendChild(element.get());
        ++childIndex_;
        break;
    case Group::Root: {
        const Arbor::Variant version = element->getProperty(tok_version);
        if (const auto* v = version.as<Arbor::LongVariant>(); v && v->val() > 1)
            error("unknown version '%d'\n", static_cast<int>(std::min<long>(v->val(), INT_MAX)));
        if (Arbor::Element* old = document_->documentElement())
            document_->replaceChild(element.get(), old);
        else
            document_->appendChild(element.get());
        element->afterParentChanged();
        break;
    }
    default:
        current_->appendChild(element.get());
        break;
    }
    if (group != Group::SequenceItem) childIndex_ = 0;

    enter(element.get());
    if (group == Group::Array) {
        const bool ready =
            nameId == id_ColorArray2d ? colorArray_ != nullptr : densityArray_ != nullptr;
        if (!ready) {
            error("element '%s' keeps no array\n", tag.c_str());
            throw DomException(DomException::InvalidAccessErr);
        }
        wordBuffer_.clear();
    }
    if (wantsText(group)) wantData();
}

void ZpxParserHandler::endElement(int namespaceId, int nameId) {
    --depth_;
    switch (groupOf(nameId)) {
    case Group::Point2:
        endPoint2();
        break;
    case Group::Point3:
        endPoint3();
        break;
    case Group::Root:
        enter(nullptr);
        if (batchOpen_) {
            batchOpen_ = false;
            document_->endBatchChanges();
        }
        break;
    case Group::SingleText:
    case Group::OptionText:
    case Group::TextObject:
    case Group::SequenceItem:
        endText();
        break;
    default:
        if (arrayKind_ != ArrayKind::None) endArray();
        goUp();
        break;
    }
    SimpleDataHandler::endElement(namespaceId, nameId);
}

void ZpxParserHandler::enter(PlotElement* element) {
    current_ = element;
    currentP2_ = dynamic_cast<P2List*>(element);
    currentP3_ = dynamic_cast<P3List*>(element);
    colorArray_ = dynamic_cast<ColorArrayInput*>(element);
    densityArray_ = dynamic_cast<DensityArrayInput*>(element);
    arrayKind_ = colorArray_     ? ArrayKind::Color
                 : densityArray_ ? ArrayKind::Density
                                 : ArrayKind::None;
}

void ZpxParserHandler::goUp() {
    if (currentP2_) currentP2_->shrinkToFit();
    if (currentP3_) currentP3_->shrinkToFit();
    enter(current_ ? PlotElement::from(current_->parentNode()) : nullptr);
}

void ZpxParserHandler::endText() {
    trimTextData();
    Tessel::FlexBuff<wchar_t> wide;
    Tessel::utf8ToUtf16(data().data(), static_cast<long>(data().size()), wide);
    Arbor::Ref<Arbor::Text> text(document_->createTextNode(wide.data()));
    current_->appendChild(text.get());
    goUp();
}

void ZpxParserHandler::endPoint2() {
    P2List* list = currentP2_;
    if (!list) illegalChild("P2", current_.get());
    const std::string& text = data();
    double v[6];
    char words[2][11];
    int numbers = 0;
    int colors = 0;
    if (plainNumbers_ && plainPoint(text, v, numbers, words, colors) && numbers == 2 &&
        colors <= 1) {
        if (colors == 0) {
            if (list->colored()) illegalChild("P2", current_.get());
            if (list->size() == list->capacity()) list->reserve(grownCapacity(list->size()));
            list->push_back(P2(v[0], v[1]));
            return;
        }
        if (list->size() > 0 && !list->colored()) illegalChild("P2", current_.get());
        RGBA color;
        if (color.parse(words[0])) {
            if (list->size() == list->capacity()) list->reserve(grownCapacity(list->size()), true);
            list->push_back(P2(v[0], v[1]), color);
            return;
        }
    }
    if (text.find("inf") != std::string::npos) return;
    if (text.find('#') == std::string::npos) {
        if (list->colored()) illegalChild("P2", current_.get());
        if (scan(text, 2, 0, v, words, plainNumbers_) != 2) illegalData("P2", text.c_str());
        if (list->size() == list->capacity()) list->reserve(grownCapacity(list->size()));
        list->push_back(P2(v[0], v[1]));
    } else {
        if (list->size() > 0 && !list->colored()) illegalChild("P2", current_.get());
        RGBA color;
        if (scan(text, 2, 1, v, words, plainNumbers_) != 3 || !color.parse(words[0]))
            illegalData("P2", text.c_str());
        if (list->size() == list->capacity()) list->reserve(grownCapacity(list->size()), true);
        list->push_back(P2(v[0], v[1]), color);
    }
}

void ZpxParserHandler::endPoint3() {
    P3List* list = currentP3_;
    if (!list) illegalChild("P3", current_.get());
    const std::string& text = data();
    double v[6];
    char words[2][11];
    RGBA first;
    RGBA second;
    int numbers = 0;
    int colors = 0;
    const bool plain = plainNumbers_ && plainPoint(text, v, numbers, words, colors) &&
                       (numbers == 3 || numbers == 6) && (colors < 1 || first.parse(words[0])) &&
                       (colors < 2 || second.parse(words[1]));
    if (!plain) {
        countWords(text, numbers, colors);
        if (text.empty() || colors > 2 || (numbers != 3 && numbers != 6))
            illegalData("P3", text.c_str());
    }
    const bool withNormal = numbers == 6;
    if (list->size() > 0 && (withNormal != list->hasNormals() || colors != list->numColors()))
        illegalData("P3", text.c_str());
    if (!plain) {
        if (text.find("inf") != std::string::npos) return;
        first = second = RGBA();
        if (scan(text, numbers, colors, v, words, plainNumbers_) != numbers + colors ||
            (colors >= 1 && !first.parse(words[0])) || (colors >= 2 && !second.parse(words[1])))
            illegalData("P3", text.c_str());
    }
    for (int i = 0; i < numbers; ++i) v[i] = clampP3(v[i]);

    if (list->size() == list->capacity())
        list->reserve(grownCapacity(list->size()), withNormal, colors);
    const P3 point(v[0], v[1], v[2]);
    if (withNormal) {
        const P3 normal(v[3], v[4], v[5]);
        switch (colors) {
        case 0:
            list->push_back(point, normal);
            break;
        case 1:
            list->push_back(point, normal, first);
            break;
        default:
            list->push_back(point, normal, first, second);
            break;
        }
    } else {
        switch (colors) {
        case 0:
            list->push_back(point);
            break;
        case 1:
            list->push_back(point, first);
            break;
        default:
            list->push_back(point, first, second);
            break;
        }
    }
}

void ZpxParserHandler::onCharacterData(const char* text, int length) {
    if (length <= 0) return;
    if (arrayKind_ == ArrayKind::None)
        SimpleDataHandler::onCharacterData(text, length);
    else
        splitWords(text, static_cast<std::size_t>(length));
}

void ZpxParserHandler::splitWords(const char* text, std::size_t length) {
    const char* p = text;
    const char* end = text + length;
    while (p != end) {
        const char* start = p;
        while (p != end && !isXmlSpace(*p)) ++p;
        wordBuffer_.append(start, p);
        if (p == end) break;
        storeWord(); // a white-space character ends the word, if there is one
        ++p;
    }
}

void ZpxParserHandler::storeWord() {
    if (arrayKind_ == ArrayKind::Color)
        storeColor();
    else
        storeDensity();
}

void ZpxParserHandler::storeColor() {
    if (wordBuffer_.empty()) return;
    RGBA color;
    if (!color.parse(wordBuffer_.c_str())) illegalData("ColorArray2d", wordBuffer_.c_str());
    colorArray_->push_back(color);
    wordBuffer_.clear();
}

void ZpxParserHandler::storeDensity() {
    if (wordBuffer_.empty()) return;
    double value[6];
    char words[2][11];
    if (scan(wordBuffer_, 1, 0, value, words, plainNumbers_) != 1)
        illegalData("DensityArray2d", wordBuffer_.c_str());
    densityArray_->push_back(value[0]);
    wordBuffer_.clear();
}

void ZpxParserHandler::endArray() {
    storeWord(); // the last word needs no white space behind it
    long cells = 1;
    for (Token mesh : {tok_XMesh, tok_YMesh}) {
        const Arbor::Variant v = current_->getProperty(mesh);
        const auto* n = v.as<Arbor::LongVariant>();
        cells *= n ? n->val() : 0;
    }
    const bool colors = arrayKind_ == ArrayKind::Color;
    const std::size_t have = colors ? colorArray_->size() : densityArray_->size();
    if (cells > 0 && have < static_cast<std::size_t>(cells))
        illegalData(current_->tagName().c_str(), colors ? "colors missing" : "values missing");
}

void ZpxParserHandler::cleanup() {
    if (cleanedUp_) return;
    cleanedUp_ = true;
    enter(nullptr);
    wordBuffer_.clear();
    if (Arbor::Ref<Arbor::Element> old = document_->documentElement())
        document_->removeChild(old.get());
    Arbor::Ref<Arbor::Element> canvas(document_->createElement(tok_Canvas));
    if (canvas) document_->appendChild(canvas.get());
    if (batchOpen_) {
        batchOpen_ = false;
        document_->endBatchChanges();
    }
}

} // namespace Grafel
