// An immutable string of one machine word, shared by reference counting: attribute values,
// font families and ids are copied far more often than they are made.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <new>
#include <string_view>

namespace Tessel {

/// Null, or the address of a block [signed count][text][NUL] made with malloc; the word points
/// one word into the block, at the text. C is char (UTF-8) or wchar_t (UTF-32 on this platform).
template <class C> class FixedStringBase {
public:
    FixedStringBase() noexcept = default;
    /// Copies a NUL-terminated text; a null pointer gives the null string.
    FixedStringBase(const C* text) : text_(text ? make(text, length(text)) : nullptr) {}
    /// Copies the first `n` characters of `text`.
    FixedStringBase(const C* text, size_t n) : text_(text ? make(text, n) : nullptr) {}
    explicit FixedStringBase(std::basic_string_view<C> text)
        : text_(make(text.data(), text.size())) {}

    FixedStringBase(const FixedStringBase& other) noexcept : text_(other.text_) { acquire(); }
    FixedStringBase(FixedStringBase&& other) noexcept : text_(other.text_) { other.text_ = nullptr; }
    FixedStringBase& operator=(const FixedStringBase& other) noexcept {
        if (text_ != other.text_) {
            FixedStringBase keep(other);
            swap(keep);
        }
        return *this;
    }
    FixedStringBase& operator=(FixedStringBase&& other) noexcept {
        swap(other);
        return *this;
    }
    ~FixedStringBase() { release(); }

    void swap(FixedStringBase& other) noexcept {
        C* t = text_;
        text_ = other.text_;
        other.text_ = t;
    }

    /// The text, or null for the null string.
    const C* c_str() const noexcept { return text_; }
    /// The text, with the null string read as the empty text.
    const C* text() const noexcept { return text_ ? text_ : emptyText(); }
    std::basic_string_view<C> view() const noexcept {
        return text_ ? std::basic_string_view<C>(text_) : std::basic_string_view<C>();
    }
    bool isNull() const noexcept { return text_ == nullptr; }
    bool empty() const noexcept { return !text_ || !*text_; }
    size_t size() const noexcept { return text_ ? length(text_) : 0; }
    /// References held on the text, 0 for the null string.
    long useCount() const noexcept { return text_ ? *counter() : 0; }

    /// Equal when both are the same word, or both are not null with equal texts.
    friend bool operator==(const FixedStringBase& a, const FixedStringBase& b) noexcept {
        if (a.text_ == b.text_) return true;
        if (!a.text_ || !b.text_) return false;
        return std::basic_string_view<C>(a.text_) == std::basic_string_view<C>(b.text_);
    }
    /// Orders by text; the null string comes before every other.
    friend bool operator<(const FixedStringBase& a, const FixedStringBase& b) noexcept {
        if (a.text_ == b.text_ || !b.text_) return false;
        if (!a.text_) return true;
        return std::basic_string_view<C>(a.text_) < std::basic_string_view<C>(b.text_);
    }

private:
    static constexpr size_t header = sizeof(long);
    static_assert(header % alignof(C) == 0);

    static size_t length(const C* text) noexcept { return std::char_traits<C>::length(text); }
    static const C* emptyText() noexcept {
        static const C nul = 0;
        return &nul;
    }
    static C* make(const C* text, size_t n) {
        auto* block = static_cast<char*>(std::malloc(header + (n + 1) * sizeof(C)));
        if (!block) throw std::bad_alloc();
        *reinterpret_cast<long*>(block) = 1;
        C* out = reinterpret_cast<C*>(block + header);
        if (n) std::memcpy(out, text, n * sizeof(C));
        out[n] = 0;
        return out;
    }
    long* counter() const noexcept {
        return reinterpret_cast<long*>(reinterpret_cast<char*>(text_) - header);
    }
    void acquire() noexcept {
        if (text_) ++*counter();
    }
    void release() noexcept {
        if (text_ && --*counter() < 1) std::free(counter());
        text_ = nullptr;
    }

    C* text_ = nullptr;
};

using FixedString = FixedStringBase<char>;
using FixedWString = FixedStringBase<wchar_t>;

} // namespace Tessel
