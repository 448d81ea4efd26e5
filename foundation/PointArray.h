// A contiguous array of plain values (points, colours) that grows without copying what it holds,
// for the point lists of large primitives, which are filled one point at a time by a reader
// that does not know their count.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace Grafel {

/// The memory behind PointArray, in bytes. Small blocks come from the heap; from a threshold
/// on a block is a mapping of its own that the system resizes by moving pages, so that growing
/// an array of millions of points neither copies it nor needs the old and the new block at the
/// same time. Every call that fails throws std::bad_alloc and leaves the block as it was.
class PointBlock {
public:
    /// A block of at least `bytes` bytes (not 0); `bytes` is set to what it holds.
    static void* allocate(std::size_t& bytes);
    /// Resizes `block`, of `oldBytes`, to at least `bytes` (not 0), keeping its first `used`
    /// bytes; `bytes` is set to what the new block holds. The block may move.
    static void* resize(void* block, std::size_t oldBytes, std::size_t& bytes, std::size_t used);
    /// Gives back `block` (null is allowed) of `bytes`.
    static void release(void* block, std::size_t bytes) noexcept;
    /// The capacity in bytes to grow a full block of `bytes` to: doubling while small, then by
    /// half, which the system does in place.
    static std::size_t grownBytes(std::size_t bytes) noexcept;
};

/// A vector of trivially copyable values in one block from PointBlock. It offers what the point
/// lists need: appending, reserving, trimming, clearing, indexed access; copies are deep.
template <class T> class PointArray {
    static_assert(std::is_trivially_copyable_v<T>, "the values are moved as bytes");

public:
    PointArray() noexcept = default;
    PointArray(const PointArray& other) { assign(other); }
    PointArray(PointArray&& other) noexcept
        : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)),
          bytes_(std::exchange(other.bytes_, 0)) {}
    PointArray& operator=(const PointArray& other) {
        if (this != &other) {
            PointArray copy(other);
            swap(copy);
        }
        return *this;
    }
    PointArray& operator=(PointArray&& other) noexcept {
        PointArray gone(std::move(other));
        swap(gone);
        return *this;
    }
    ~PointArray() { PointBlock::release(data_, bytes_); }

    std::size_t size() const noexcept { return size_; }
    std::size_t capacity() const noexcept { return bytes_ / sizeof(T); }
    bool empty() const noexcept { return size_ == 0; }
    /// The first value; null while nothing was ever stored.
    T* data() noexcept { return data_; }
    const T* data() const noexcept { return data_; }
    const T& operator[](std::size_t i) const noexcept { return data_[i]; }
    /// Value `i`; std::out_of_range unless `i < size()`.
    const T& at(std::size_t i) const {
        if (i >= size_) throw std::out_of_range("PointArray::at");
        return data_[i];
    }

    /// Makes sure that one more value fits, growing if the array is full; throws
    /// std::bad_alloc and leaves the array as it was when that fails.
    void makeRoom() {
        if (size_ == capacity())
            grow(std::max(PointBlock::grownBytes(bytes_), (size_ + 1) * sizeof(T)));
    }
    /// Appends after makeRoom(); nothing here can fail.
    void appendInRoom(T value) noexcept { data_[size_++] = value; }
    void push_back(T value) {
        makeRoom();
        appendInRoom(value);
    }

    /// Appends `n` values, growing as push_back would for each.
    void append(const T* values, std::size_t n) {
        if (n == 0) return;
        if (n > capacity() - size_)
            grow(std::max(PointBlock::grownBytes(bytes_), bytesFor(size_ + n)));
        std::memcpy(static_cast<void*>(data_ + size_), values, n * sizeof(T));
        size_ += n;
    }
    /// Room for `n` more values behind the last, growing as append would; the values written
    /// there belong to the array once grown() is told how many they are.
    T* spare(std::size_t n) {
        if (n > capacity() - size_)
            grow(std::max(PointBlock::grownBytes(bytes_), bytesFor(size_ + n)));
        return data_ + size_;
    }
    /// Takes the first `n` values of the room spare() gave.
    void grown(std::size_t n) noexcept { size_ += n; }
    /// Makes room for `n` values in all.
    void reserve(std::size_t n) {
        if (n > capacity()) grow(bytesFor(n));
    }
    /// Gives back the room beyond the size (all of it for an empty array).
    void shrinkToFit() {
        if (size_ == capacity()) return;
        if (size_ == 0) return reset();
        std::size_t bytes = size_ * sizeof(T);
        data_ = static_cast<T*>(PointBlock::resize(data_, bytes_, bytes, bytes));
        bytes_ = bytes;
    }
    /// Forgets the values and keeps the room.
    void clear() noexcept { size_ = 0; }
    /// Forgets the values and gives back the room.
    void reset() noexcept {
        PointBlock::release(data_, bytes_);
        data_ = nullptr;
        size_ = bytes_ = 0;
    }
    void swap(PointArray& other) noexcept {
        std::swap(data_, other.data_);
        std::swap(size_, other.size_);
        std::swap(bytes_, other.bytes_);
    }

private:
    static std::size_t bytesFor(std::size_t n) {
        if (n > std::size_t(-1) / 2 / sizeof(T)) throw std::length_error("PointArray too long");
        return n * sizeof(T);
    }
    void grow(std::size_t bytes) {
        data_ = static_cast<T*>(data_ ? PointBlock::resize(data_, bytes_, bytes, size_ * sizeof(T))
                                      : PointBlock::allocate(bytes));
        bytes_ = bytes;
    }
    void assign(const PointArray& other) {
        if (other.size_ == 0) return;
        std::size_t bytes = other.size_ * sizeof(T);
        data_ = static_cast<T*>(PointBlock::allocate(bytes));
        bytes_ = bytes;
        size_ = other.size_;
        std::memcpy(static_cast<void*>(data_), other.data_, size_ * sizeof(T));
    }

    T* data_ = nullptr;
    std::size_t size_ = 0;
    std::size_t bytes_ = 0; // what the block holds, which may be more than whole values
};

} // namespace Grafel
