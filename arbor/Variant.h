// Tagged attribute values. A Variant is a class pointer and one payload word; the class says
// how to destroy, copy, compare and order the payload, so that new value types plug in without
// the kernel knowing them.
#pragma once

#include <grafel/arbor/Token.h>
#include <grafel/tessel/FixedString.h>

#include <cstdint>
#include <cstring>
#include <new>

namespace Arbor {

/// The four payload operations of one variant type, in this order. Each takes pointers to
/// payload words. A table whose entries are all null marks a plain word: copied and compared
/// bitwise, ordered as an unsigned word, never destroyed. A table is identified by its address.
struct VariantClass {
    void (*destroy)(void* payload);
    void (*copy)(void* target, const void* source);
    bool (*equal)(const void* a, const void* b);
    bool (*less)(const void* a, const void* b);
};

/// A value of some variant type, or empty. Typed subclasses add no data, only constructors,
/// val() and runtimeClass(); a Variant can therefore be viewed as its typed class once its class
/// is known (see dynamicCast).
class Variant {
public:
    Variant() noexcept = default;
    Variant(const Variant& other);
    Variant(Variant&& other) noexcept;
    Variant& operator=(const Variant& other);
    Variant& operator=(Variant&& other) noexcept;
    ~Variant();

    /// False for different classes, otherwise the class's equality. Two empty variants are equal.
    bool operator==(const Variant& other) const;
    bool operator!=(const Variant& other) const { return !(*this == other); }
    /// Orders by class address first, then by the class's order.
    bool operator<(const Variant& other) const;

    bool isEmpty() const noexcept { return class_ == nullptr; }
    const VariantClass* variantClass() const noexcept { return class_; }

    /// This variant, when its class is `cls`, else null.
    Variant* dynamicCast(const VariantClass* cls) noexcept {
        return class_ == cls ? this : nullptr;
    }
    const Variant* dynamicCast(const VariantClass* cls) const noexcept {
        return class_ == cls ? this : nullptr;
    }
    /// This variant as its typed class V, when it holds one, else null.
    template <class V> const V* as() const noexcept {
        return class_ == V::runtimeClass() ? static_cast<const V*>(this) : nullptr;
    }
    template <class V> bool is() const noexcept { return class_ == V::runtimeClass(); }

protected:
    explicit Variant(const VariantClass* cls) noexcept : class_(cls) {}
    /// Takes `payload` as the payload word (a heap copy that the class will destroy).
    Variant(const VariantClass* cls, void* payload) noexcept : class_(cls) {
        std::memcpy(payload_, &payload, sizeof payload);
    }

    /// The payload word, for the class operations.
    void* payload() noexcept { return payload_; }
    const void* payload() const noexcept { return payload_; }
    /// The payload seen as a value of type T that lives in the word itself.
    template <class T> T& word() noexcept {
        static_assert(sizeof(T) <= sizeof(payload_) && alignof(T) <= 8);
        return *std::launder(reinterpret_cast<T*>(payload_));
    }
    template <class T> const T& word() const noexcept {
        static_assert(sizeof(T) <= sizeof(payload_) && alignof(T) <= 8);
        return *std::launder(reinterpret_cast<const T*>(payload_));
    }
    /// The payload seen as a pointer to a heap copy of type T.
    template <class T> T* heap() const noexcept {
        void* p;
        std::memcpy(&p, payload_, sizeof p);
        return static_cast<T*>(p);
    }

private:
    void reset() noexcept;
    std::uint64_t bits() const noexcept {
        std::uint64_t b;
        std::memcpy(&b, payload_, sizeof b);
        return b;
    }

    const VariantClass* class_ = nullptr;
    alignas(8) unsigned char payload_[8] = {};
};

/// The variant classes of values that are one word; each owns its own all-null table.
#define ARBOR_PLAIN_VARIANT(Name, Type)                                                            \
    class Name : public Variant {                                                                  \
    public:                                                                                        \
        explicit Name(Type value) noexcept : Variant(runtimeClass()) {                             \
            new (payload()) Type(value);                                                           \
        }                                                                                          \
        Type val() const noexcept { return word<Type>(); }                                         \
        static const VariantClass* runtimeClass() noexcept;                                        \
    }

ARBOR_PLAIN_VARIANT(LongVariant, long);
ARBOR_PLAIN_VARIANT(DoubleVariant, double);
ARBOR_PLAIN_VARIANT(BoolVariant, bool);
ARBOR_PLAIN_VARIANT(TokenVariant, Token);
#undef ARBOR_PLAIN_VARIANT

/// A shared UTF-8 string; the payload is the string's one word.
class FixedStringVariant : public Variant {
public:
    explicit FixedStringVariant(const Tessel::FixedStringBase<char>& value) noexcept;
    const Tessel::FixedStringBase<char>& val() const noexcept {
        return word<Tessel::FixedStringBase<char>>();
    }
    static const VariantClass* runtimeClass() noexcept;
};

/// A shared wide string; the payload is the string's one word.
class FixedUStringVariant : public Variant {
public:
    explicit FixedUStringVariant(const Tessel::FixedStringBase<wchar_t>& value) noexcept;
    const Tessel::FixedStringBase<wchar_t>& val() const noexcept {
        return word<Tessel::FixedStringBase<wchar_t>>();
    }
    static const VariantClass* runtimeClass() noexcept;
};

} // namespace Arbor
