// A run of sibling elements that the parser hands to a handler in one call instead of an event
// per element: bulk data written as thousands of short, identical elements.
#pragma once

#include <cstddef>
#include <string_view>

namespace Tessel::Xml {

class Parser;

/// The elements that follow, in the text, the end of an element whose name the handler takes in
/// runs (Handler::takesElementRun). Each one is written `<name>text</name>` with the same name,
/// unprefixed and without attributes, and a text of printable ASCII, tabs and line feeds, but
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

} // namespace Tessel::Xml
