#include <grafel/arbor/DomException.h>

namespace Arbor {

const char* DomException::what() const noexcept {
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

} // namespace Arbor
