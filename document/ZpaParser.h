// The reader of Zpa, the line-oriented ASCII data that a computing program writes: a few curves,
// surfaces and point primitives with their sampled points, built into an ordinary plot tree.
#pragma once

#include <cstddef>
#include <grafel/foundation/Points.h>
#include <grafel/foundation/Rgba.h>
#include <string>

namespace Grafel {

class PlotDocument;

/// Reads one Zpa input into a PlotDocument: one Canvas (with its standard style library), one
/// scene and one coordinate system, and an object for each record. The host derives from it
/// and supplies the characters through readChar(); ZpaStreamParser and ZpaMemoryParser are
/// ready-made sources.
///
/// A failure has no message, only a number, errorCause(): 2 the input ended inside or before a
/// line that was needed, 3 a line without the form asked for (a wrong first line, a character
/// -1 included), 4 a value out of range, an unsupported record, a tree that refused a
/// change, or a failed allocation. The document then holds a fresh, empty Canvas. parse() never
/// resets the cause, so a parser that failed once still shows it after a later success.
///
/// The document belongs to the host and must outlive the parser, as with the ZPX reader. A
/// copy shares the document and has its own line and cause.
class ZpaParser {
public:
    explicit ZpaParser(PlotDocument* document);
    ZpaParser(const ZpaParser& other);
    ZpaParser& operator=(const ZpaParser& other);
    virtual ~ZpaParser();

    /// Delivers the next character in `c`, or answers false at the end of the input.
    virtual bool readChar(int& c) = 0;

    /// Reads the whole input in one batch of changes, replacing the document element; the undo
    /// stack is cleared. False on failure, with errorCause() telling why.
    bool parse();
    /// 0 while no load has failed, else the cause of the last failure.
    int errorCause() const noexcept { return errorCause_; }
    /// The number of the line read last (1 for the first), which is the line a failure was
    /// found in; 0 before parse().
    long lineNumber() const noexcept { return lineNumber_; }

protected:
    /// The fast way in for a source that holds its characters in memory: the bytes in
    /// [begin, end) are taken as the next characters before readChar() is asked again. A
    /// subclass hands out a block from its constructor, or from readChar() together with the
    /// character it delivers. The bytes must stay valid until they are used up or parse()
    /// returns; they are never the value -1.
    void provideBlock(const char* begin, const char* end) noexcept {
        next_ = begin;
        end_ = end;
    }
    /// The number of bytes of the current block not yet taken.
    std::size_t blockLeft() const noexcept { return static_cast<std::size_t>(end_ - next_); }

private:
    class Loader;
    friend class Loader;

    /// The failure that ends a load from inside; it never leaves parse().
    struct ParseErr {
        int cause;
    };

    /// The next line into line_, without its line feed and carriage returns.
    void readln();
    /// The next line as a plane point, "x y" or "x y r g b" with `colored`.
    void readP2(bool colored, P2& point, RGBA& color);
    /// The next line as a point in space, "x y z" or "x y z r g b" with `colored`.
    void readP3(bool colored, P3& point, RGBA& color);
    /// The first `n` numbers of line_ as " %lf" reads them; the count that sscanf answers.
    int scanNumbers(int n, double* values) const;
    void appendWithoutReturns(const char* begin, const char* end);

    PlotDocument* document_;
    std::string line_;
    int errorCause_ = 0;
    long lineNumber_ = 0;
    bool plainNumbers_ = true;
    const char* next_ = nullptr;
    const char* end_ = nullptr;
};

} // namespace Grafel
