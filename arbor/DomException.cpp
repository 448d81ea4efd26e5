#include <grafel/arbor/DomException.h>

namespace Arbor {

DomException::DomException(long code, std::string_view message) : code_(code) {
    if (message.empty()) return;
    std::string text = "DOM exception " + std::to_string(code) + ": " + meaning(code) + ": ";
    messageStart_ = text.size();
    text += message;
    what_ = std::make_shared<const std::string>(std::move(text));
}

const char* DomException::meaning(long code) noexcept {
    switch (code) {
    case IndexSizeErr:
        return "index out of range";
    case HierarchyRequestErr:
        return "hierarchy request error";
    case WrongDocumentErr:
        return "wrong document";
    case NoModificationAllowedErr:
        return "no modification allowed";
    case NotFoundErr:
        return "not found";
    case SyntaxErr:
        return "syntax error";
    case InvalidAccessErr:
        return "invalid access";
    default:
        return "unknown code";
    }
}

const char* DomException::what() const noexcept {
    if (what_) return what_->c_str();
    switch (code_) {
    case IndexSizeErr:
        return "DOM exception 1: index out of range";
    case HierarchyRequestErr:
        return "DOM exception 3: hierarchy request error";
    case WrongDocumentErr:
        return "DOM exception 4: wrong document";
    case NoModificationAllowedErr:
        return "DOM exception 7: no modification allowed";
    case NotFoundErr:
        return "DOM exception 8: not found";
    case NotSupportedErr:
        return "DOM exception 9: not supported";
    case SyntaxErr:
        return "DOM exception 12: syntax error";
    case InvalidAccessErr:
        return "DOM exception 15: invalid access";
    default:
        return "DOM exception";
    }
}

std::string_view DomException::message() const noexcept {
    if (!what_) return {};
    return std::string_view(*what_).substr(messageStart_);
}

} // namespace Arbor
