#include "Load.h"

#include <grafel/document/PlotDocument.h>
#include <grafel/document/ZpaParser.h>
#include <grafel/document/ZpxParser.h>
#include <grafel/document/ZpxParserHandler.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <ostream>
#include <utility>
#include <vector>

namespace GrafelTool {

namespace {

/// The scope that receives the reports now; the library's report function is a plain function
/// and has no other way to find it.
ReportScope* activeScope = nullptr;

std::string vformat(const char* format, va_list args) {
    char small[512];
    va_list copy;
    va_copy(copy, args);
    const int length = std::vsnprintf(small, sizeof small, format, copy);
    va_end(copy);
    if (length < 0) return format;
    if (static_cast<std::size_t>(length) < sizeof small) return std::string(small, length);
    std::string text(static_cast<std::size_t>(length), '\0');
    va_copy(copy, args);
    std::vsnprintf(text.data(), text.size() + 1, format, copy);
    va_end(copy);
    return text;
}

/// The message without its line end, with any inner line break turned into a blank, so that
/// one report stays one line.
std::string oneLine(std::string text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    for (char& c : text)
        if (c == '\n' || c == '\r') c = ' ';
    return text;
}

enum class InputForm { Zpx, Zpa };

/// The ASCII form is known by its first line; this is the test its reader makes (the magic in
/// the first 14 characters).
InputForm detectForm(std::string_view head) {
    constexpr std::string_view magic = "Zeph-Ascii-Data";
    return head.substr(0, 14) == magic.substr(0, 14) ? InputForm::Zpa : InputForm::Zpx;
}

/// A file, or standard input, read in pieces.
class Input {
public:
    explicit Input(const std::string& path)
        : file_(path == "-" ? stdin : std::fopen(path.c_str(), "rb")), owned_(path != "-") {
        if (!file_) openError_ = errno;
    }
    ~Input() {
        if (file_ && owned_) std::fclose(file_);
    }
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    bool isOpen() const { return file_ != nullptr; }
    int openError() const { return openError_; }
    /// Fills `buffer` as far as the input goes; `atEnd` tells whether nothing follows.
    std::size_t read(std::vector<char>& buffer, bool& atEnd) {
        const std::size_t n = std::fread(buffer.data(), 1, buffer.size(), file_);
        atEnd = n < buffer.size();
        return n;
    }
    bool failed() const { return std::ferror(file_) != 0; }

private:
    std::FILE* file_;
    bool owned_;
    int openError_ = 0;
};

constexpr std::size_t pieceSize = 64 * 1024;

/// Feeds the input to the ZPX reader piece by piece, `buffer` holding the first piece already.
bool loadZpx(Grafel::PlotDocument& document, Input& input, std::vector<char>& buffer,
             std::size_t length, bool atEnd, const LoadOptions& options, ReportScope& reports) {
    const std::size_t linesBefore = reports.lines();
    Grafel::ZpxParserHandler handler(&document, options.dropIds, ReportScope::errorHandler);
    Grafel::ZpxParser parser(&handler, true, nullptr);
    // The lines of the reports come from the parser for as long as it lives.
    struct LineSource {
        ReportScope& reports;
        ~LineSource() { reports.setParser(nullptr); }
    } lineSource{reports};
    reports.setParser(&parser);
    bool loaded = false;
    try {
        for (;;) {
            loaded = parser.parseSave(buffer.data(), static_cast<int>(length), atEnd);
            if (!loaded || atEnd) break;
            length = input.read(buffer, atEnd);
            if (input.failed()) {
                reports.emit(std::string("error: read failed: ") + std::strerror(errno));
                handler.cleanup();
                loaded = false;
                break;
            }
        }
        if (!loaded && !input.failed()) {
            // The reader reports what it refused; what the XML parser refused, it does not.
            const char* why = parser.errorText();
            if (why && *why && std::strcmp(why, "stopped by handler") != 0)
                reports.emit(std::string("XML error: ") + why);
            else if (reports.lines() == linesBefore)
                reports.emit("error: the document did not load");
        }
    } catch (const std::exception& e) {
        // The parser has let the reader clean up before passing the exception on.
        reports.emit(std::string("error: ") + e.what());
        loaded = false;
    }
    return loaded;
}

/// Zpa from the tool's input, handed to the reader's buffered path one piece at a time.
class ZpaInput : public Grafel::ZpaParser {
public:
    ZpaInput(Grafel::PlotDocument* document, Input& input, std::vector<char>& buffer,
             std::size_t length, bool atEnd)
        : ZpaParser(document), input_(input), buffer_(buffer), atEnd_(atEnd) {
        provideBlock(buffer_.data(), buffer_.data() + length);
    }
    bool readChar(int& c) override {
        if (atEnd_) return false;
        const std::size_t n = input_.read(buffer_, atEnd_);
        if (input_.failed()) {
            readFailed_ = true;
            atEnd_ = true;
        }
        if (n == 0) return false;
        c = static_cast<unsigned char>(buffer_[0]);
        provideBlock(buffer_.data() + 1, buffer_.data() + n);
        return true;
    }
    bool readFailed() const { return readFailed_; }

private:
    Input& input_;
    std::vector<char>& buffer_;
    bool atEnd_;
    bool readFailed_ = false;
};

/// The Zpa reader has no messages, only a cause: it becomes one line at the line being read.
bool loadZpa(Grafel::PlotDocument& document, Input& input, std::vector<char>& buffer,
             std::size_t length, bool atEnd, ReportScope& reports) {
    ZpaInput parser(&document, input, buffer, length, atEnd);
    try {
        if (parser.parse()) return true;
    } catch (const std::exception& e) {
        reports.emitAt(parser.lineNumber(), std::string("error: ") + e.what());
        return false;
    }
    if (parser.readFailed())
        reports.emit(std::string("error: read failed: ") + std::strerror(errno));
    else
        reports.emitAt(parser.lineNumber(),
                       "Zpa error: cause " + std::to_string(parser.errorCause()));
    return false;
}

} // namespace

ReportScope::ReportScope(std::string input, std::ostream& out)
    : input_(std::move(input)), out_(out), outer_(activeScope) {
    activeScope = this;
}

ReportScope::~ReportScope() {
    flush();
    activeScope = outer_;
}

void ReportScope::handler(const char* format, va_list args) {
    if (activeScope) {
        activeScope->receive(format, args);
    } else {
        // Not expected: every document of the tool lives inside a scope.
        std::fputs(vformat(format, args).c_str(), stderr);
    }
}

void ReportScope::setParser(const Tessel::Xml::Parser* parser) {
    flush();
    parser_ = parser;
}

void ReportScope::receive(const char* format, va_list args) {
    std::string text = vformat(format, args);
    // A prefix has no line end; a message has one. A second text without one while a prefix
    // waits is taken as its message all the same.
    if (!prefixPending_ && (text.empty() || text.back() != '\n')) {
        prefix_ = std::move(text);
        prefixPending_ = true;
        return;
    }
    writeLine(prefix_ + oneLine(std::move(text)));
    prefix_.clear();
    prefixPending_ = false;
}

void ReportScope::emit(std::string_view message) {
    flush();
    writeLine(oneLine(std::string(message)));
}

void ReportScope::emitAt(long line, std::string_view message) {
    flush();
    writeLine(oneLine(std::string(message)), line);
}

void ReportScope::flush() {
    if (!prefixPending_) return;
    prefixPending_ = false;
    writeLine(oneLine(std::exchange(prefix_, {})));
}

void ReportScope::writeLine(std::string_view text, long line) {
    out_ << input_;
    if (parser_)
        out_ << ':' << parser_->currentLine();
    else if (line > 0)
        out_ << ':' << line;
    out_ << ": " << text << '\n' << std::flush;
    ++lines_;
}

std::string displayName(const std::string& path) {
    return path == "-" ? "<stdin>" : path;
}

bool loadDocument(Grafel::PlotDocument& document, const std::string& path,
                  const LoadOptions& options, ReportScope& reports) {
    document.domErrorHdl(ReportScope::errorHandler);

    Input input(path);
    if (!input.isOpen()) {
        reports.emit(std::string("error: cannot open: ") + std::strerror(input.openError()));
        return false;
    }
    std::vector<char> buffer(pieceSize);
    bool atEnd = false;
    const std::size_t length = input.read(buffer, atEnd);
    if (input.failed()) {
        reports.emit(std::string("error: read failed: ") + std::strerror(errno));
        return false;
    }

    switch (detectForm(std::string_view(buffer.data(), length))) {
    case InputForm::Zpx:
        return loadZpx(document, input, buffer, length, atEnd, options, reports);
    case InputForm::Zpa:
        return loadZpa(document, input, buffer, length, atEnd, reports);
    }
    return false;
}

} // namespace GrafelTool
