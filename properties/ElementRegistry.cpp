#include <grafel/properties/ElementRegistry.h>

namespace Grafel {
namespace {
// Constant-initialised, so that registrations from any static initialiser find it ready.
constinit ElementMaker makers[tokenCount + 1] = {};
} // namespace

void registerElementClass(int tokenId, ElementMaker maker) noexcept {
    if (tokenId > 0 && tokenId <= tokenCount) makers[tokenId] = maker;
}

ElementMaker elementMaker(int tokenId) noexcept {
    return tokenId > 0 && tokenId <= tokenCount ? makers[tokenId] : nullptr;
}

} // namespace Grafel
