// The XML event parser: reads a document, in one piece or in several, and hands its elements,
// attributes and text to a Handler.
#pragma once

#include <memory>

namespace Tessel::Xml {

class Handler;

/// Event parser over one handler, which it does not own. Names are mapped to numbers by the
/// handler once per distinct name and parser; the answers are kept across reset().
///
/// Failure: a syntax error, or a name refused by the handler, stops the parse; the parser
/// calls handler->cleanup() once and parse() returns false, as does every later parse() until
/// reset(). An exception thrown by the handler never crosses the underlying C parser: the
/// parser stops, calls handler->cleanup() and rethrows the exception from parse(). If
/// cleanup() itself throws, that exception is the one that leaves parse().
///
/// Entities: a document may declare internal entities (expansion is bounded against
/// amplification attacks); a reference to an external entity is an error, nothing is ever
/// loaded from outside the text given.
class Parser {
public:
    /// With `namespaces` set, names reach the mapper as (namespace URI, local name); otherwise as
    /// ("", name as written). `encoding` overrides that of the document; null takes the
    /// document's own (UTF-8 when it states none). A null `handler` ignores all events.
    Parser(Handler* handler, bool namespaces, const char* encoding);
    /// A fresh parser on the same handler with the same settings.
    Parser(const Parser& other);
    /// Becomes a fresh parser on the handler and settings of `other`.
    Parser& operator=(const Parser& other);
    virtual ~Parser();

    /// Parses the next `length` bytes; `isFinal` marks the last piece. False on any failure;
    /// a call after a failure or after the final piece returns false and does nothing.
    bool parse(const char* data, int length, bool isFinal);

    /// Line of the position reached in the input, from 1; usable inside a callback, where it is
    /// the position of the event, and after a failure, where it is that of the error.
    long currentLine() const;
    /// Column of that position in characters, from 1.
    long currentColumn() const;
    /// What went wrong: the parser's message, or "stopped by handler"; "" while all is well.
    const char* errorText() const;
    /// Forgets the document read so far, so that a new one can be parsed. Does nothing when
    /// called from a callback.
    void reset();

    Handler* handler() const;

    /// Whether runs of plain elements go to a handler that takes them in one call
    /// (ElementRunReader) rather than as an event each; on by default, and kept by copies.
    /// The handler sees the same document either way, and the positions are the same. Takes
    /// effect from the next parse() call; does nothing when called from a callback.
    void setElementRuns(bool on);
    bool elementRuns() const;

    /// Whether the text of elements that a handler takes plain (PlainTextReader) goes to it
    /// straight from the input; on by default, and kept by copies. As with runs, the handler
    /// sees the same document either way and the positions are the same. Takes effect from the
    /// next document.
    void setPlainText(bool on);
    bool plainText() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace Tessel::Xml
