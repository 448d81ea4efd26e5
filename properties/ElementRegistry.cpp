#include <grafel/properties/ElementRegistry.h>

namespace Grafel {
namespace {
// Constant-initialised, so that registrations from any static initialiser find it ready.
constinit ElementMaker makers[tokenCount + 1] = {};
constinit const std::type_info* bases[tokenCount + 1] = {};
} // namespace

void registerElementClass(int tokenId, ElementMaker maker) noexcept {
    if (tokenId > 0 && tokenId <= tokenCount) makers[tokenId] = maker;
}

ElementMaker elementMaker(int tokenId) noexcept {
    return tokenId > 0 && tokenId <= tokenCount ? makers[tokenId] : nullptr;
}

void registerElementBase(int tokenId, const std::type_info& base) noexcept {
    if (tokenId > 0 && tokenId <= tokenCount) bases[tokenId] = &base;
}

const std::type_info* elementBase(int tokenId) noexcept {
    return tokenId > 0 && tokenId <= tokenCount ? bases[tokenId] : nullptr;
}

} // namespace Grafel
