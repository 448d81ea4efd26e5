// The one exception of the document kernel, carrying a DOM error code.
#pragma once

#include <exception>

namespace Arbor {

/// Thrown by value when a document operation cannot go on. Codes follow the DOM numbering.
class DomException : public std::exception {
public:
    enum Code : long {
        IndexSizeErr = 1,
        HierarchyRequestErr = 3,
        WrongDocumentErr = 4,
        NoModificationAllowedErr = 7,
        NotFoundErr = 8,
        NotSupportedErr = 9,
        SyntaxErr = 12,
        InvalidAccessErr = 15,
    };

    explicit DomException(long code) noexcept : code_(code) {}
    long code() const noexcept { return code_; }
    /// "DOM exception N" with the code, for logs; the code is what callers test.
    const char* what() const noexcept override;

private:
    long code_;
};

} // namespace Arbor
