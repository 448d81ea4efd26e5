#include <grafel/foundation/PointArray.h>

#include <cstdlib>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#include <unistd.h>
#define GRAFEL_POINT_MAPPINGS 1
#endif

namespace Grafel {

namespace {

// From this size on a block is a mapping of its own. Below it, copying on growth costs less
// than a system call.
constexpr std::size_t mappedFrom = std::size_t(1) << 20;

#if GRAFEL_POINT_MAPPINGS
bool isMapped(std::size_t bytes) {
    return bytes >= mappedFrom;
}

std::size_t pageRounded(std::size_t bytes) {
    static const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return (bytes + page - 1) / page * page;
}

void* map(std::size_t bytes) {
    void* block = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (block == MAP_FAILED) throw std::bad_alloc();
    return block;
}
#else
bool isMapped(std::size_t) {
    return false;
}
#endif

void* heapBlock(std::size_t bytes) {
    void* block = std::malloc(bytes);
    if (!block) throw std::bad_alloc();
    return block;
}

} // namespace

void* PointBlock::allocate(std::size_t& bytes) {
#if GRAFEL_POINT_MAPPINGS
    if (isMapped(bytes)) {
        bytes = pageRounded(bytes);
        return map(bytes);
    }
#endif
    return heapBlock(bytes);
}

void* PointBlock::resize(void* block, std::size_t oldBytes, std::size_t& bytes, std::size_t used) {
#if GRAFEL_POINT_MAPPINGS
    if (isMapped(bytes)) {
        const std::size_t rounded = pageRounded(bytes);
        void* moved;
        if (isMapped(oldBytes)) {
            // Pages change owner; nothing is copied.
            moved = mremap(block, oldBytes, rounded, MREMAP_MAYMOVE);
            if (moved == MAP_FAILED) throw std::bad_alloc();
        } else {
            moved = map(rounded);
            std::memcpy(moved, block, used);
            std::free(block);
        }
        bytes = rounded;
        return moved;
    }
    if (isMapped(oldBytes)) {
        void* moved = heapBlock(bytes);
        std::memcpy(moved, block, used);
        munmap(block, oldBytes);
        return moved;
    }
#else
    (void)oldBytes;
    (void)used;
#endif
    void* moved = std::realloc(block, bytes);
    if (!moved) throw std::bad_alloc();
    return moved;
}

void PointBlock::release(void* block, std::size_t bytes) noexcept {
    if (!block) return;
#if GRAFEL_POINT_MAPPINGS
    if (isMapped(bytes)) {
        munmap(block, bytes);
        return;
    }
#endif
    (void)bytes;
    std::free(block);
}

std::size_t PointBlock::grownBytes(std::size_t bytes) noexcept {
    if (bytes < 64) return 64;
    return bytes < mappedFrom ? 2 * bytes : bytes + bytes / 2;
}

} // namespace Grafel
