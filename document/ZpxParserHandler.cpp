#include <grafel/document/ZpxParserHandler.h>

#include <grafel/arbor/DomException.h>
#include <grafel/arbor/Text.h>
#include <grafel/document/P2List.h>
#include <grafel/document/P3List.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/document/ZpxDialect.h>
#include <grafel/foundation/NumberScan.h>
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
#include <iterator>
#include <new>
#include <string>
#include <utility>

namespace Grafel {

using Arbor::DomException;
using Arbor::Token;

namespace {

bool wantsText(ZpxTagGroup g) {
    return g == ZpxTagGroup::SingleText || g == ZpxTagGroup::Array ||
           g == ZpxTagGroup::OptionText || g == ZpxTagGroup::TextObject ||
           g == ZpxTagGroup::SequenceItem;
}

inline bool isXmlSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

const char* skipXmlSpace(const char* p, const char* end) {
    while (p != end && isXmlSpace(*p)) ++p;
    return p;
}

// The common shape of a point's text, read in one pass: up to six plain numbers, then up to
// two colour words of at most ten characters behind their '#', each word set off by white
// space. In that shape the words are what the point pattern counts, each field is what the
// sscanf format of that pattern converts, and no "inf" can occur. Anything else answers false
// and is left to the general path.
bool plainPoint(std::string_view text, double* values, int& numbers, ScanWord* words, int& colors) {
    const char* p = text.data();
    const char* end = p + text.size();
    numbers = colors = 0;
    for (;;) {
        p = skipXmlSpace(p, end);
        if (p == end) return numbers > 0;
        if (*p == '#') break;
        if (numbers == 6 || !scanPlainNumber(p, end, values[numbers]) || (p != end && *p == '#'))
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

// Words and how many of them start with '#', as the P3 pattern counts them.
void countWords(std::string_view text, int& numbers, int& colors) {
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

constexpr double p3Limit = 3e30;

double clampP3(double v) {
    if (v > p3Limit) return p3Limit;
    if (v < -p3Limit) return -p3Limit;
    return v;
}

/// Sets the document's report context for the life of the scope.
class ReportContextScope {
public:
    ReportContextScope(ElementDocument& document, const ElementDocument::ReportContext& context)
        : document_(document), outer_(document.exchangeReportContext(context)) {}
    ~ReportContextScope() { document_.exchangeReportContext(outer_); }
    ReportContextScope(const ReportContextScope&) = delete;
    ReportContextScope& operator=(const ReportContextScope&) = delete;

private:
    ElementDocument& document_;
    ElementDocument::ReportContext outer_;
};

} // namespace

ZpxParserHandler::ZpxParserHandler(PlotDocument* document, bool dropIds,
                                   ElementDocument::ErrorHandler errorHandler)
    : document_(document), errorHandler_(errorHandler), keepIds_(!dropIds),
      plainNumbers_(decimalPointIsDot()) {
    document_->beginBatchChanges();
    batchOpen_ = true;
    if (!document_->documentElement()) {
        Arbor::Ref<Arbor::Element> canvas(document_->createElement(tok_Canvas));
        if (canvas) document_->appendChild(canvas.get());
    }
}

ZpxParserHandler::~ZpxParserHandler() = default;

void ZpxParserHandler::error(const char* format, ...) const {
    va_list args;
    va_start(args, format);
    if (document_->reportSink()) {
        va_list copy;
        va_copy(copy, args);
        const std::string message = formatReport(format, copy);
        va_end(copy);
        document_->report({"ZPX error: ", message, {}, {}, {}});
    }
    if (!errorHandler_) {
        va_end(args);
        return;
    }
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

bool ZpxParserHandler::dialectName(const char* namespaceUri, const char* name, const char* what,
                                   bool (*inDialect)(int), int& namespaceId, int& nameId) {
    if (namespaceUri && *namespaceUri && std::strcmp(namespaceUri, zpxNamespaceUri) != 0) {
        error("unknown namespace '%s'\n", namespaceUri);
        return false;
    }
    const int id = getTokenId(name);
    if (id == 0) {
        error("unknown %s '%s'\n", what, name);
        return false;
    }
    if (!inDialect(id)) {
        error("not an %s '%s'\n", what, name);
        return false;
    }
    namespaceId = 0;
    nameId = id;
    return true;
}

bool ZpxParserHandler::elementName(const char* namespaceUri, const char* name, int& namespaceId,
                                   int& nameId) {
    return dialectName(namespaceUri, name, "element", isZpxTag, namespaceId, nameId);
}

bool ZpxParserHandler::attributeName(const char* namespaceUri, const char* name, int& namespaceId,
                                     int& nameId) {
    return dialectName(namespaceUri, name, "attribute", isZpxAttribute, namespaceId, nameId);
}

void ZpxParserHandler::startElement(int, int nameId,
                                    const std::vector<Tessel::Xml::Attribute>& attributes) {
    if (++depth_ > maxDepth) {
        error("elements nested deeper than %d levels\n", maxDepth);
        throw DomException(DomException::HierarchyRequestErr);
    }
    const ZpxTagGroup group = zpxTagGroup(nameId);
    if (!current_ && group != ZpxTagGroup::Root) {
        error("document element '%s' is no Canvas\n", getToken(nameId).c_str());
        throw DomException(DomException::HierarchyRequestErr);
    }
    if (group == ZpxTagGroup::Point2 || group == ZpxTagGroup::Point3) {
        wantData();
        childIndex_ = 0;
        return;
    }
    const Token tag = getToken(nameId);
    if (group == ZpxTagGroup::Root && current_) illegalChild(tag.c_str(), current_.get());

    // Reports made while the element is read name it, and the attribute being set.
    ReportContextScope context(*document_, {tag.c_str(), {}, {}});
    Arbor::Ref<PlotElement> element(document_->createPlotElement(tag));
    if (!element) {
        error("element '%s' is not supported\n", tag.c_str());
        throw DomException(DomException::HierarchyRequestErr);
    }
    for (const Tessel::Xml::Attribute& attribute : attributes) {
        const Token name = getToken(attribute.nameId);
        if (!keepIds_ && name == tok_id) continue;
        ReportContextScope attributeContext(*document_,
                                            {tag.c_str(), name.c_str(), attribute.value});
        element->setAttributeString(name, attribute.value);
    }

    // The checks refuse without a report to the error handler: a missing mandatory value. A
    // report sink still learns which attribute it was.
    auto require = [&](bool ok, Token attribute) {
        if (ok) return;
        if (document_->reportSink()) {
            const std::string message = std::string("mandatory attribute '") + attribute.c_str() +
                                        "' missing [element '" + tag.c_str() + "']";
            document_->report({{}, message, tag.c_str(), attribute.c_str(), {}});
        }
        throw DomException(DomException::HierarchyRequestErr);
    };
    switch (group) {
    case ZpxTagGroup::Option:
    case ZpxTagGroup::OptionText:
        require(holdsToken(element.get(), tok_Opt), tok_Opt);
        break;
    case ZpxTagGroup::Typed:
        require(holdsToken(element.get(), tok_Type), tok_Type);
        break;
    case ZpxTagGroup::Prop:
        require(holdsToken(element.get(), tok_Opt), tok_Opt);
        require(holdsString(element.get(), tok_Val, false), tok_Val);
        break;
    case ZpxTagGroup::Category:
        require(holdsString(element.get(), tok_Name, true), tok_Name);
        break;
    case ZpxTagGroup::Info:
        require(holdsToken(element.get(), tok_Dom), tok_Dom);
        break;
    default:
        break;
    }

    switch (group) {
    case ZpxTagGroup::SingleText:
    case ZpxTagGroup::Single:
        current_->replaceChildByName(element.get());
        break;
    case ZpxTagGroup::SequenceItem:
        if (Arbor::Node* old = current_->findChild(childIndex_))
            current_->replaceChild(element.get(), old);
        else
            current_->appendChild(element.get());
        ++childIndex_;
        break;
    case ZpxTagGroup::Root: {
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
    if (group != ZpxTagGroup::SequenceItem) childIndex_ = 0;
    elementRead(element.get());

    enter(element.get());
    if (group == ZpxTagGroup::Array) {
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
    switch (zpxTagGroup(nameId)) {
    case ZpxTagGroup::Point2:
        point2(data());
        break;
    case ZpxTagGroup::Point3:
        point3(data());
        break;
    case ZpxTagGroup::Root:
        enter(nullptr);
        if (batchOpen_) {
            batchOpen_ = false;
            document_->endBatchChanges();
        }
        break;
    case ZpxTagGroup::SingleText:
    case ZpxTagGroup::OptionText:
    case ZpxTagGroup::TextObject:
    case ZpxTagGroup::SequenceItem:
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
    if (colorArray_) colorArray_->shrinkToFit();
    if (densityArray_) densityArray_->shrinkToFit();
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

std::vector<std::string> ZpxParserHandler::elementRunNames() const {
    return {"P2", "P3"};
}

bool ZpxParserHandler::takesElementRun(int, int nameId) {
    return (nameId == id_P2 && currentP2_) || (nameId == id_P3 && currentP3_);
}

void ZpxParserHandler::elementRun(int, int nameId, Tessel::Xml::ElementRun& run) {
    std::string_view text;
    if (!run.next(text)) return;
    childIndex_ = 0;
    std::string_view last;
    do {
        last = text;
        if (nameId == id_P2)
            point2(text);
        else
            point3(text);
    } while (run.next(text));
    // What an element read by itself leaves behind.
    heldText(last);
}

std::vector<std::string> ZpxParserHandler::plainTextNames() const {
    return {"ColorArray2d", "DensityArray2d"};
}

bool ZpxParserHandler::takesPlainText(int, int) {
    return arrayKind_ != ArrayKind::None;
}

const std::string& ZpxParserHandler::heldText(std::string_view text) {
    if (text.data() != data().data() || text.size() != data().size()) replaceTextData(text);
    return data();
}

void ZpxParserHandler::point2(std::string_view view) {
    P2List* list = currentP2_;
    if (!list) illegalChild("P2", current_.get());
    double v[6];
    ScanWord words[2];
    int numbers = 0;
    int colors = 0;
    if (plainNumbers_ && plainPoint(view, v, numbers, words, colors) && numbers == 2 &&
        colors <= 1) {
        if (colors == 0) {
            if (list->colored()) illegalChild("P2", current_.get());
            list->push_back(P2(v[0], v[1]));
            return;
        }
        if (list->size() > 0 && !list->colored()) illegalChild("P2", current_.get());
        RGBA color;
        if (color.parse(words[0])) {
            list->push_back(P2(v[0], v[1]), color);
            return;
        }
    }
    const std::string& text = heldText(view);
    if (text.find("inf") != std::string::npos) return;
    if (text.find('#') == std::string::npos) {
        if (list->colored()) illegalChild("P2", current_.get());
        if (scanFields(text, 2, 0, v, words) != 2) illegalData("P2", text.c_str());
        list->push_back(P2(v[0], v[1]));
    } else {
        if (list->size() > 0 && !list->colored()) illegalChild("P2", current_.get());
        RGBA color;
        if (scanFields(text, 2, 1, v, words) != 3 || !color.parse(words[0]))
            illegalData("P2", text.c_str());
        list->push_back(P2(v[0], v[1]), color);
    }
}

void ZpxParserHandler::point3(std::string_view view) {
    P3List* list = currentP3_;
    if (!list) illegalChild("P3", current_.get());
    double v[6];
    ScanWord words[2];
    RGBA first;
    RGBA second;
    int numbers = 0;
    int colors = 0;
    const bool plain = plainNumbers_ && plainPoint(view, v, numbers, words, colors) &&
                       (numbers == 3 || numbers == 6) && (colors < 1 || first.parse(words[0])) &&
                       (colors < 2 || second.parse(words[1]));
    if (!plain) {
        countWords(view, numbers, colors);
        if (view.empty() || colors > 2 || (numbers != 3 && numbers != 6))
            illegalData("P3", heldText(view).c_str());
    }
    const bool withNormal = numbers == 6;
    if (list->size() > 0 && (withNormal != list->hasNormals() || colors != list->numColors()))
        illegalData("P3", heldText(view).c_str());
    if (!plain) {
        // Only the general reading and the reports need the text as a string.
        const std::string& text = heldText(view);
        if (text.find("inf") != std::string::npos) return;
        first = second = RGBA();
        if (scanFields(text, numbers, colors, v, words) != numbers + colors ||
            (colors >= 1 && !first.parse(words[0])) || (colors >= 2 && !second.parse(words[1])))
            illegalData("P3", text.c_str());
    }
    for (int i = 0; i < numbers; ++i) v[i] = clampP3(v[i]);
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
    const bool direct = arrayKind_ == ArrayKind::Density && plainNumbers_;
    while (p != end) {
        if (direct && wordBuffer_.empty()) {
            // Numbers that end inside this piece are read where they stand, straight into the
            // cells, a bounded block at a time so that the room taken follows the text seen;
            // one at the end of the piece may go on in the next, and an unusual one takes the
            // general way below.
            constexpr std::size_t block = 4096;
            const std::size_t n = scanPlainWords(p, end, densityArray_->spare(block), block);
            densityArray_->grown(n);
            if (n == block) continue;
        } else if (arrayKind_ == ArrayKind::Color && wordBuffer_.empty()) {
            p = splitColors(p, end);
        }
        const char* start = p;
        while (p != end && !isXmlSpace(*p)) ++p;
        wordBuffer_.append(start, p);
        if (p == end) break;
        storeWord(); // a white-space character ends the word, if there is one
        ++p;
    }
}

namespace {

// The value of each hexadecimal digit, -1 for other bytes.
constexpr std::array<signed char, 256> hexDigits = [] {
    std::array<signed char, 256> values{};
    for (int c = 0; c < 256; ++c)
        values[c] = c >= '0' && c <= '9'   ? static_cast<signed char>(c - '0')
                    : c >= 'a' && c <= 'f' ? static_cast<signed char>(c - 'a' + 10)
                    : c >= 'A' && c <= 'F' ? static_cast<signed char>(c - 'A' + 10)
                                           : -1;
    return values;
}();

// The form that writers use, "#rrggbb" and white space, as RGBA::parse reads it; false for
// anything else. `p` has 8 readable bytes.
bool opaqueColor(const char* p, RGBA& color) {
    if (p[0] != '#' || !isXmlSpace(p[7])) return false;
    unsigned long word = 0;
    int bad = 0;
    for (int i = 1; i <= 6; ++i) {
        const int digit = hexDigits[static_cast<unsigned char>(p[i])];
        bad |= digit;
        word = word << 4 | unsigned(digit & 0xF);
    }
    if (bad < 0) return false;
    color = RGBA((word >> 16) & 0xFF, (word >> 8) & 0xFF, word & 0xFF, 255);
    return true;
}

} // namespace

const char* ZpxParserHandler::splitColors(const char* p, const char* end) {
    // A colour is read where it stands when white space behind it lies in this piece: the
    // parse stops at that white space as it would at the end of a copied word. Colours are
    // handed over a block at a time; a bad word, or one that may go on in the next piece, is
    // left to the general way.
    RGBA block[256];
    std::size_t n = 0;
    auto keep = [&](RGBA color) {
        block[n++] = color;
        if (n == std::size(block)) {
            colorArray_->append(block, n);
            n = 0;
        }
    };
    for (;;) {
        p = skipXmlSpace(p, end);
        RGBA color;
        if (end - p >= 8 && opaqueColor(p, color)) {
            keep(color);
            p += 8;
            continue;
        }
        const char* q = p;
        while (q != end && !isXmlSpace(*q)) ++q;
        // Only a word that begins with '#': the parse skips leading white space of its own,
        // which in place could run on into the next word.
        if (q == end || *p != '#' || !color.parse(p)) break;
        keep(color);
        p = q + 1;
    }
    colorArray_->append(block, n);
    return p;
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
    const char* p = wordBuffer_.data();
    const char* end = p + wordBuffer_.size();
    if (!plainNumbers_ || !scanPlainNumber(p, end, value[0]) || p != end) {
        ScanWord words[2];
        if (scanFields(wordBuffer_, 1, 0, value, words) != 1)
            illegalData("DensityArray2d", wordBuffer_.c_str());
    }
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

void ZpxParserHandler::reportFailure(const std::exception& e) const {
    if (dynamic_cast<const std::bad_alloc*>(&e))
        error("out of memory\n");
    else
        error("load failed: %s\n", e.what());
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
