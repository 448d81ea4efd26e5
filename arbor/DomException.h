// The one exception of the document kernel, carrying a DOM error code.
#pragma once

#include <exception>
#include <memory>
#include <string>
#include <string_view>

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
    /// With the message that was reported when the operation was refused (no line end).
    DomException(long code, std::string_view message);
    long code() const noexcept { return code_; }
    /// For logs: "DOM exception N: MEANING", and ": MESSAGE" after it when one was given, as
    /// in "DOM exception 15: invalid access: unknown property 'Foo' [node 'Obj2d']". The code
    /// is what callers test.
    const char* what() const noexcept override;
    /// The message given at construction, or empty.
    std::string_view message() const noexcept;
    /// The meaning of a code, as in what(): "not found" for NotFoundErr.
    static const char* meaning(long code) noexcept;

private:
    long code_;
    // Shared, so that copying the exception never throws.
    std::shared_ptr<const std::string> what_;
    std::size_t messageStart_ = 0;
};

} // namespace Arbor
