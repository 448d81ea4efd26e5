// A run of sibling elements that the parser hands to a handler in one call instead of an event
// per element: bulk data written as thousands of short, identical elements.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Tessel::Xml {

class Parser;

/// The elements that follow, in the text, the end of an element whose name the handler takes in
/// runs (ElementRunReader::takesElementRun). Each one is written `<name>text</name>` with the same
/// name, unprefixed and without attributes, and a text of printable ASCII, tabs and line feeds, but
/// no markup, references, ']' or carriage return: a text that means exactly its bytes. The run
/// ends before the first element that is anything else, which reaches the handler through the
/// ordinary events.
class ElementRun {
public:
    ElementRun(const ElementRun&) = delete;
    ElementRun& operator=(const ElementRun&) = delete;

    /// Moves to the next element of the run, and sets `text` to its text (valid until the
    /// parse() call returns); false at the end of the run.
    bool next(std::string_view& text) noexcept;

private:
    friend class Parser;
    ElementRun(const char* at, const char* end, std::string_view name) noexcept
        : at_(at), end_(end), name_(name) {}

    const char* at_;               // the start tag of the next element
    const char* end_;              // of the text the parser holds
    std::string_view name_;        // as written
    const char* endTag_ = nullptr; // of the element last returned, null before the first
};

/// What a Handler implements as well when it takes runs; the parser looks for it when a
/// document starts.
class ElementRunReader {
public:
    /// Names of elements, as written without a prefix, that the handler may take in runs.
    virtual std::vector<std::string> elementRunNames() const = 0;
    /// Whether the elements that follow the one that just ended, when they have its name, may
    /// come as a run through elementRun(). Asked between events, with nothing skipped.
    virtual bool takesElementRun(int namespaceId, int nameId) = 0;
    /// Siblings of the element that just ended, with its numbers, taken through run.next().
    /// Each element taken must have the effect that its startElement (with no attributes),
    /// characterData (its text, none when empty) and endElement would have, and must not call
    /// ignoreElement(); the elements not taken reach the handler as events. The parser's
    /// position, asked meanwhile, is the end tag of the element taken last.
    virtual void elementRun(int namespaceId, int nameId, ElementRun& run) = 0;

protected:
    ~ElementRunReader() = default;
};

} // namespace Tessel::Xml
