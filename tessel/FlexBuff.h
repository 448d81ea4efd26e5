// A scratch buffer that lives inside its owner for small sizes and moves to the heap for large
// ones, so that the common case of a short text needs no allocation.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>

namespace Tessel {

/// Growable buffer with room for 256 elements inside the object. reserve() does not keep the
/// contents: the buffer is a place to write into, not a container.
template <class C> class FlexBuff {
public:
    static constexpr size_t inlineCapacity = 256;

    FlexBuff() noexcept : capacity_(inlineCapacity), data_(inline_) {}
    FlexBuff(const FlexBuff&) = delete;
    FlexBuff& operator=(const FlexBuff&) = delete;
    ~FlexBuff() { release(); }

    /// Makes room for n elements. A request within the capacity does nothing; otherwise the old
    /// heap storage is freed, up to 256 elements use the inline storage, and more allocate
    /// exactly n with malloc (std::bad_alloc on failure).
    void reserve(size_t n) {
        if (n <= capacity_) return;
        release();
        if (n <= inlineCapacity) {
            data_ = inline_;
            capacity_ = inlineCapacity;
            return;
        }
        void* block = std::malloc(n * sizeof(C));
        if (!block) throw std::bad_alloc();
        data_ = static_cast<C*>(block);
        capacity_ = n;
    }

    size_t capacity() const noexcept { return capacity_; }
    C* data() noexcept { return data_; }
    const C* data() const noexcept { return data_; }
    C& operator[](size_t i) noexcept { return data_[i]; }
    const C& operator[](size_t i) const noexcept { return data_[i]; }
    /// Whether the inline storage is in use.
    bool isInline() const noexcept { return data_ == inline_; }

private:
    void release() noexcept {
        if (data_ != inline_) std::free(data_);
        data_ = inline_;
        capacity_ = inlineCapacity;
    }

    size_t capacity_;
    C* data_;
    C inline_[inlineCapacity];
};

} // namespace Tessel
