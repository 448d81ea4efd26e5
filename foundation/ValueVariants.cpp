#include <grafel/foundation/ValueVariants.h>

#include <grafel/foundation/NaN.h>

#include <new>

namespace Grafel {

namespace {

// The payload word of a heap variant is a pointer to its own copy of the value. Allocation uses
// the non-throwing form: when the allocator gives nothing, the payload stays null and every
// operation below copes with that.
template <class T> struct HeapPayload {
    static T* get(const void* payload) noexcept { return *static_cast<T* const*>(payload); }

    static void destroy(void* payload) { delete get(payload); }
    static void copy(void* target, const void* source) {
        const T* value = get(source);
        *static_cast<T**>(target) = value ? new (std::nothrow) T(*value) : nullptr;
    }
    // One copy compared with itself is equal and unordered, whatever the value's own operators
    // say (a point holding a NaN is unequal to itself).
    static bool equal(const void* a, const void* b) {
        const T* x = get(a);
        const T* y = get(b);
        if (x == y) return true;
        return x && y && *x == *y;
    }
    static bool less(const void* a, const void* b) {
        const T* x = get(a);
        const T* y = get(b);
        if (x == y) return false;
        if (!x || !y) return !x;
        return *x < *y;
    }

    static constexpr Arbor::VariantClass table{destroy, copy, equal, less};
};

// What val() shows for a payload that could not be allocated.
const P2 missingP2(NaN(), NaN());
const P3 missingP3(NaN(), NaN(), NaN());

} // namespace

// The default points are value-initialised: their contents are not to be relied on, but copying
// and comparing them reads defined memory.
P2Variant::P2Variant() : Variant(runtimeClass(), new (std::nothrow) P2()) {}

P2Variant::P2Variant(const P2& value) : Variant(runtimeClass(), new (std::nothrow) P2(value)) {}

const P2& P2Variant::val() const noexcept {
    const P2* value = heap<P2>();
    return value ? *value : missingP2;
}

const Arbor::VariantClass* P2Variant::runtimeClass() noexcept {
    return &HeapPayload<P2>::table;
}

P3Variant::P3Variant() : Variant(runtimeClass(), new (std::nothrow) P3()) {}

P3Variant::P3Variant(const P3& value) : Variant(runtimeClass(), new (std::nothrow) P3(value)) {}

const P3& P3Variant::val() const noexcept {
    const P3* value = heap<P3>();
    return value ? *value : missingP3;
}

const Arbor::VariantClass* P3Variant::runtimeClass() noexcept {
    return &HeapPayload<P3>::table;
}

FontStyleVariant::FontStyleVariant()
    : Variant(runtimeClass(), new (std::nothrow) FontStyle(FontStyle::standard())) {}

FontStyleVariant::FontStyleVariant(const FontStyle& value)
    : Variant(runtimeClass(), new (std::nothrow) FontStyle(value)) {}

const FontStyle& FontStyleVariant::val() const noexcept {
    const FontStyle* value = heap<FontStyle>();
    return value ? *value : FontStyle::standard();
}

const Arbor::VariantClass* FontStyleVariant::runtimeClass() noexcept {
    return &HeapPayload<FontStyle>::table;
}

RGBAVariant::RGBAVariant(RGBA value) noexcept : Variant(runtimeClass()) {
    // The rest of the payload word stays zero, so the kernel's bitwise order of words is the
    // unsigned order of colours.
    new (payload()) RGBA(value);
}

const Arbor::VariantClass* RGBAVariant::runtimeClass() noexcept {
    static constexpr Arbor::VariantClass table{nullptr, nullptr, nullptr, nullptr};
    return &table;
}

} // namespace Grafel
