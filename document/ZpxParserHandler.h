// The builder behind the ZPX reader: turns the events of the XML parser into the element tree of
// a PlotDocument, decoding point lists, colour and density arrays and texts on the way.
#pragma once

#include <grafel/document/ZpxDialect.h>
#include <grafel/foundation/Rgba.h>
#include <grafel/properties/ElementDocument.h>
#include <grafel/tessel/xml/ElementRun.h>
#include <grafel/tessel/xml/PlainText.h>
#include <grafel/tessel/xml/SimpleDataHandler.h>

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace Grafel {

class P2List;
class P3List;
class PlotDocument;
class PlotElement;

/// What the reader needs of an element that keeps a raster of colours beside the tree
/// (ColorArray2d): the words of the element's text go straight into it, one colour each.
class ColorArrayInput {
public:
    /// Appends one cell.
    virtual void push_back(RGBA color) = 0;
    /// Appends `count` cells at once, as push_back one after the other would.
    virtual void append(const RGBA* colors, std::size_t count) = 0;
    /// Room for `count` more cells behind the last, which a reader fills in place and then
    /// adds with grown(); valid until the next call that changes the cells.
    virtual RGBA* spare(std::size_t count) = 0;
    /// Adds the first `count` cells of the room spare() gave.
    virtual void grown(std::size_t count) = 0;
    /// The number of cells held.
    virtual std::size_t size() const = 0;
    /// Gives back the storage beyond the cells held, once the element's text has been read.
    virtual void shrinkToFit() = 0;

protected:
    ~ColorArrayInput() = default;
};

/// The same for a raster of numbers (DensityArray2d).
class DensityArrayInput {
public:
    virtual void push_back(double value) = 0;
    /// Appends `count` cells at once, as push_back one after the other would.
    virtual void append(const double* values, std::size_t count) = 0;
    /// As ColorArrayInput::spare and grown.
    virtual double* spare(std::size_t count) = 0;
    virtual void grown(std::size_t count) = 0;
    virtual std::size_t size() const = 0;
    virtual void shrinkToFit() = 0;

protected:
    ~DensityArrayInput() = default;
};

/// Builds the tree of a PlotDocument from the events of a ZpxParser. It opens a batch on the
/// document when it is made; the end of the Canvas, or cleanup() after a failure, closes it.
/// After any failure the document holds a fresh, empty Canvas.
///
/// Element names are the 106 tags of the dialect and attribute names the 226 property names;
/// which element takes which child or attribute is left to the element classes. A tag whose
/// class this build lacks fails the load with a report, and so does a document element other
/// than Canvas. P2 and P3 points go into the open element when it is a P2List or P3List, array
/// words when it implements ColorArrayInput or DensityArrayInput. Nesting is limited to
/// maxDepth levels, so that whatever is read can be written again (writing recurses). Runs of
/// plain P2 or P3 elements in a point list are taken in one call each, with the result that
/// reading them one by one would have, and the words of an array are read where they stand in
/// the input.
class ZpxParserHandler : public Tessel::Xml::SimpleDataHandler,
                         public Tessel::Xml::ElementRunReader,
                         public Tessel::Xml::PlainTextReader {
public:
    /// Deepest nesting of elements that a document may have.
    static constexpr int maxDepth = 4096;

    /// With `dropIds` the attribute `id` is ignored everywhere. Reports of the reader go to
    /// `errorHandler` (may be null) as two calls: "ZPX error: ", then the message.
    ZpxParserHandler(PlotDocument* document, bool dropIds,
                     ElementDocument::ErrorHandler errorHandler);
    ZpxParserHandler(const ZpxParserHandler&) = delete;
    ZpxParserHandler& operator=(const ZpxParserHandler&) = delete;
    /// Releases what it holds; does not close the batch.
    ~ZpxParserHandler() override;

    void startElement(int namespaceId, int nameId,
                      const std::vector<Tessel::Xml::Attribute>& attributes) override;
    void endElement(int namespaceId, int nameId) override;
    /// Accepts a dialect tag (in the dialect's namespace or none); the id is its token id.
    bool elementName(const char* namespaceUri, const char* name, int& namespaceId,
                     int& nameId) override;
    /// Accepts a dialect attribute name, as elementName.
    bool attributeName(const char* namespaceUri, const char* name, int& namespaceId,
                       int& nameId) override;
    /// Leaves a fresh, empty Canvas as the document element and closes the batch, if that has
    /// not happened yet. Does the work once: later calls do nothing.
    void cleanup() override;
    /// In an array element the text is split into words as it comes; elsewhere it is kept.
    void onCharacterData(const char* text, int length) override;
    /// P2 and P3.
    std::vector<std::string> elementRunNames() const override;
    /// Points of the open point list, one after the other, when the run is of its kind.
    bool takesElementRun(int namespaceId, int nameId) override;
    void elementRun(int namespaceId, int nameId, Tessel::Xml::ElementRun& run) override;
    /// ColorArray2d and DensityArray2d.
    std::vector<std::string> plainTextNames() const override;
    /// When the element just started keeps an array.
    bool takesPlainText(int namespaceId, int nameId) override;

    PlotDocument* document() const { return document_; }
    /// Reports a load stopped by an exception the reader did not throw itself: "out of memory"
    /// for a failed allocation, anything else as "load failed: WHAT".
    void reportFailure(const std::exception& e) const;

protected:
    /// Called for each element made from a start tag once its attributes are set and it is
    /// linked in; the parser's position is still that of the tag. Does nothing here.
    virtual void elementRead(PlotElement* /*element*/) {}
    /// Reports as described for the constructor; nothing without a handler. A report sink
    /// on the document receives the same report.
    void error(const char* format, ...) const __attribute__((format(printf, 2, 3)));
    /// Reports "illegal %s [parent %s]" and throws DomException 15.
    [[noreturn]] void illegalChild(const char* name, const PlotElement* parent) const;
    /// Reports "%s data corrupted: '%s'" and throws DomException 15.
    [[noreturn]] void illegalData(const char* name, const char* text) const;

    /// Parses the collected word as a colour and appends it to the array element; nothing
    /// for an empty word.
    void storeColor();
    /// Parses the collected word as a number and appends it to the array element.
    void storeDensity();

    /// The word being collected in an array element; it outlives a character callback, since
    /// the parser may split a word anywhere.
    std::string wordBuffer_;

private:
    enum class ArrayKind { None, Color, Density };

    /// A name of the dialect: in its namespace or none, a known token, and one that
    /// `inDialect` admits; else reports "unknown namespace", "unknown WHAT" or "not an WHAT".
    bool dialectName(const char* namespaceUri, const char* name, const char* what,
                     bool (*inDialect)(int), int& namespaceId, int& nameId);

    /// Makes `element` the open element and caches what the data events need of it.
    void enter(PlotElement* element);
    /// The parent of the open element becomes the open element; a point list or array that is
    /// left is trimmed to its size.
    void goUp();
    /// One point from its text, which is data() or is made data() before it is needed as a
    /// string.
    void point2(std::string_view text);
    void point3(std::string_view text);
    /// data(), holding `text`.
    const std::string& heldText(std::string_view text);
    void endArray();
    void endText();
    /// Splits array text into words, storing each completed one.
    void splitWords(const char* text, std::size_t length);
    /// Reads the colour words from `p` that end in [p, end); answers where it stopped.
    const char* splitColors(const char* p, const char* end);
    void storeWord();

    PlotDocument* document_;
    ElementDocument::ErrorHandler errorHandler_;
    Arbor::Ref<PlotElement> current_;
    // What the open element is, looked up once when it is entered.
    P2List* currentP2_ = nullptr;
    P3List* currentP3_ = nullptr;
    ColorArrayInput* colorArray_ = nullptr;
    DensityArrayInput* densityArray_ = nullptr;
    ArrayKind arrayKind_ = ArrayKind::None;
    unsigned childIndex_ = 0;
    int depth_ = 0;
    bool keepIds_;
    bool batchOpen_ = false;
    bool cleanedUp_ = false;
    /// Whether numbers may be read without the C library: only while its decimal point is
    /// '.', since sscanf follows the locale.
    bool plainNumbers_;
};

} // namespace Grafel
