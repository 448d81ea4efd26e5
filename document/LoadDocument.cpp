#include <grafel/document/LoadDocument.h>

#include <grafel/document/PlotDocument.h>
#include <grafel/document/ZpaParser.h>
#include <grafel/document/ZpxParser.h>
#include <grafel/document/ZpxParserHandler.h>
#include <grafel/properties/PlotElement.h>
#include <grafel/properties/ReportSink.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <exception>
#include <fstream>
#include <istream>
#include <memory>
#include <string>
#include <string_view>

namespace Grafel {

namespace {

/// The test the Zpa reader makes of its first line: the magic word, 14 characters of it.
InputFormat detectFormat(std::string_view head) {
    constexpr std::string_view magic = "Zeph-Ascii-Data";
    return head.substr(0, 14) == magic.substr(0, 14) ? InputFormat::Zpa : InputFormat::Zpx;
}

/// An input handed out in pieces.
class Input {
public:
    virtual ~Input() = default;
    /// The next piece; empty at the end or after a failed read.
    virtual std::string_view next() = 0;
    /// Whether nothing follows the last piece.
    bool atEnd() const { return atEnd_; }
    /// The reason of a failed read, or 0.
    int readError() const { return readError_; }

protected:
    bool atEnd_ = false;
    int readError_ = 0;
};

/// Bytes in memory, in pieces the XML parser's int length can hold.
class MemoryInput : public Input {
public:
    MemoryInput(const char* data, std::size_t size) : data_(data), size_(data ? size : 0) {}
    std::string_view next() override {
        constexpr std::size_t maxPiece = std::size_t(1) << 30;
        const std::size_t n = std::min(size_ - done_, maxPiece);
        const std::string_view piece(data_ + done_, n);
        done_ += n;
        atEnd_ = done_ == size_;
        return piece;
    }

private:
    const char* data_;
    std::size_t size_;
    std::size_t done_ = 0;
};

/// A stream, read into one buffer piece by piece.
class StreamInput : public Input {
public:
    explicit StreamInput(std::istream& in) : in_(in), buffer_(new char[pieceSize]) {}
    std::string_view next() override {
        if (atEnd_) return {};
        errno = 0;
        in_.read(buffer_.get(), pieceSize);
        const auto n = static_cast<std::size_t>(in_.gcount());
        if (in_.bad()) readError_ = errno ? errno : EIO;
        atEnd_ = n < pieceSize || readError_ != 0;
        return {buffer_.get(), n};
    }

private:
    static constexpr std::size_t pieceSize = 64 * 1024;
    std::istream& in_;
    std::unique_ptr<char[]> buffer_;
};

/// Collects the reports of a load as Diagnostics, placed where the reader is at the time.
/// Installed on the document for its own life, putting back the sink that was there.
class Collector : public ReportSink {
public:
    Collector(PlotDocument& document, LoadResult& result)
        : document_(document), result_(result), outer_(document.reportSink()) {
        document_.setReportSink(this);
    }
    ~Collector() { document_.setReportSink(outer_); }
    Collector(const Collector&) = delete;
    Collector& operator=(const Collector&) = delete;

    void report(const Report& report) override {
        // A note without a prefix is the reader's, for a failure it has no text of its own for.
        Diagnostic& d = add(report.prefix.empty() ? "error: " : std::string(report.prefix),
                            std::string(report.message));
        d.element = report.element;
        d.attribute = report.attribute;
        d.value = report.value;
    }
    /// A diagnostic at the reader's position.
    Diagnostic& add(std::string prefix, std::string message) {
        Diagnostic& d = result_.diagnostics.emplace_back();
        d.prefix = std::move(prefix);
        d.message = std::move(message);
        const SourcePosition at = position();
        d.line = at.line;
        d.column = at.column;
        return d;
    }
    /// A diagnostic of the loader itself, with no position.
    void addUnplaced(std::string message) {
        Diagnostic& d = result_.diagnostics.emplace_back();
        d.prefix = "error: ";
        d.message = std::move(message);
    }
    SourcePosition position() const {
        if (xml) return {xml->currentLine(), xml->currentColumn()};
        if (zpa) return {zpa->lineNumber(), 0};
        return {};
    }

    /// The reader whose position places a report; at most one is set.
    const Tessel::Xml::Parser* xml = nullptr;
    const ZpaParser* zpa = nullptr;

private:
    PlotDocument& document_;
    LoadResult& result_;
    ReportSink* outer_;
};

/// The ZPX builder, noting where each element starts when asked to.
class PlacingHandler : public ZpxParserHandler {
public:
    PlacingHandler(PlotDocument& document, const LoadOptions& options, LoadResult& result)
        : ZpxParserHandler(&document, options.dropIds, document.errorHandler()),
          record_(options.recordPositions), result_(result) {}
    const Tessel::Xml::Parser* parser = nullptr;

protected:
    void elementRead(PlotElement* element) override {
        if (record_ && parser)
            result_.positions[static_cast<const Arbor::Node*>(element)] = {parser->currentLine(),
                                                                           parser->currentColumn()};
    }

private:
    bool record_;
    LoadResult& result_;
};

/// What a failed load leaves when no reader got to run: a fresh, empty Canvas.
void leaveFreshCanvas(PlotDocument& document) {
    ZpxParserHandler handler(&document, false, nullptr);
    handler.cleanup();
}

std::string readFailure(int error) {
    return std::string("read failed: ") + std::strerror(error);
}

void loadZpx(PlotDocument& document, Input& input, std::string_view piece,
             const LoadOptions& options, LoadResult& result, Collector& reports) {
    PlacingHandler handler(document, options, result);
    ZpxParser parser(&handler, true, nullptr);
    handler.parser = &parser;
    reports.xml = &parser;
    bool loaded = false;
    try {
        for (;;) {
            loaded = parser.parseSave(piece.data(), static_cast<int>(piece.size()), input.atEnd());
            if (!loaded || input.atEnd()) break;
            piece = input.next();
            if (input.readError()) {
                reports.xml = nullptr;
                reports.addUnplaced(readFailure(input.readError()));
                handler.cleanup();
                loaded = false;
                break;
            }
        }
        if (!loaded && !input.readError()) {
            // The builder reports what it refuses; what the XML syntax refuses, only the parser
            // tells.
            const char* why = parser.errorText();
            if (why && *why && std::strcmp(why, "stopped by handler") != 0)
                reports.add("XML error: ", why);
        }
    } catch (const std::exception& e) {
        // The parser has let the builder clean up before passing the exception on.
        reports.add("error: ", e.what());
        loaded = false;
    }
    reports.xml = nullptr;
    result.loaded = loaded;
}

/// The Zpa reader on an Input, handed one piece at a time to its buffered path.
class ZpaInputParser : public ZpaParser {
public:
    ZpaInputParser(PlotDocument& document, Input& input, std::string_view first)
        : ZpaParser(&document), input_(input) {
        provideBlock(first.data(), first.data() + first.size());
    }
    bool readChar(int& c) override {
        if (input_.atEnd()) return false;
        const std::string_view piece = input_.next();
        if (piece.empty()) return false;
        c = static_cast<unsigned char>(piece.front());
        provideBlock(piece.data() + 1, piece.data() + piece.size());
        return true;
    }

private:
    Input& input_;
};

void loadZpa(PlotDocument& document, Input& input, std::string_view piece, LoadResult& result,
             Collector& reports) {
    ZpaInputParser parser(document, input, piece);
    reports.zpa = &parser;
    try {
        result.loaded = parser.parse();
        if (!result.loaded) {
            if (input.readError())
                reports.addUnplaced(readFailure(input.readError()));
            else
                reports.add("Zpa error: ", "cause " + std::to_string(parser.errorCause()));
        }
    } catch (const std::exception& e) {
        reports.add("error: ", e.what());
        result.loaded = false;
    }
    reports.zpa = nullptr;
}

LoadResult load(PlotDocument& document, Input& input, const LoadOptions& options) {
    LoadResult result;
    Collector reports(document, result);
    const std::string_view first = input.next();
    if (input.readError()) {
        reports.addUnplaced(readFailure(input.readError()));
        leaveFreshCanvas(document);
        return result;
    }
    result.format = detectFormat(first);
    if (result.format == InputFormat::Zpa)
        loadZpa(document, input, first, result, reports);
    else
        loadZpx(document, input, first, options, result, reports);
    if (!result.loaded && result.diagnostics.empty())
        reports.addUnplaced("the document did not load");
    for (Diagnostic& d : result.diagnostics)
        d.severity = result.loaded ? Diagnostic::Severity::Warning : Diagnostic::Severity::Error;
    return result;
}

} // namespace

SourcePosition LoadResult::positionOf(const Arbor::Node* node) const {
    const auto found = positions.find(node);
    return found == positions.end() ? SourcePosition{} : found->second;
}

LoadResult loadDocument(PlotDocument& document, const std::filesystem::path& file,
                        const LoadOptions& options) {
    errno = 0;
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        const int error = errno ? errno : ENOENT;
        LoadResult result;
        Diagnostic& d = result.diagnostics.emplace_back();
        d.prefix = "error: ";
        d.message = std::string("cannot open: ") + std::strerror(error);
        leaveFreshCanvas(document);
        return result;
    }
    return loadDocument(document, in, options);
}

LoadResult loadDocument(PlotDocument& document, std::istream& in, const LoadOptions& options) {
    StreamInput input(in);
    return load(document, input, options);
}

LoadResult loadDocument(PlotDocument& document, const char* data, std::size_t size,
                        const LoadOptions& options) {
    MemoryInput input(data, size);
    return load(document, input, options);
}

} // namespace Grafel
