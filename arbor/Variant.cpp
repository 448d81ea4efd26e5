#include <grafel/arbor/Variant.h>

#include <functional>
#include <new>

namespace Arbor {

Variant::Variant(const Variant& other) : class_(other.class_) {
    if (class_ && class_->copy)
        class_->copy(payload_, other.payload_);
    else
        std::memcpy(payload_, other.payload_, sizeof payload_);
}

Variant::Variant(Variant&& other) noexcept : class_(other.class_) {
    std::memcpy(payload_, other.payload_, sizeof payload_);
    other.class_ = nullptr;
    std::memset(other.payload_, 0, sizeof payload_);
}

Variant& Variant::operator=(const Variant& other) {
    if (this != &other) {
        Variant copy(other);
        *this = std::move(copy);
    }
    return *this;
}

Variant& Variant::operator=(Variant&& other) noexcept {
    if (this != &other) {
        reset();
        class_ = other.class_;
        std::memcpy(payload_, other.payload_, sizeof payload_);
        other.class_ = nullptr;
        std::memset(other.payload_, 0, sizeof payload_);
    }
    return *this;
}

Variant::~Variant() {
    reset();
}

void Variant::reset() noexcept {
    if (class_ && class_->destroy) class_->destroy(payload_);
    class_ = nullptr;
    std::memset(payload_, 0, sizeof payload_);
}

bool Variant::operator==(const Variant& other) const {
    if (class_ != other.class_) return false;
    if (!class_) return true;
    if (class_->equal) return class_->equal(payload_, other.payload_);
    return bits() == other.bits();
}

bool Variant::operator<(const Variant& other) const {
    if (class_ != other.class_) return std::less<const VariantClass*>()(class_, other.class_);
    if (!class_) return false;
    if (class_->less) return class_->less(payload_, other.payload_);
    return bits() < other.bits();
}

#define ARBOR_PLAIN_CLASS(Name)                                                                    \
    const VariantClass* Name::runtimeClass() noexcept {                                            \
        static const VariantClass table{nullptr, nullptr, nullptr, nullptr};                       \
        return &table;                                                                             \
    }
ARBOR_PLAIN_CLASS(LongVariant)
ARBOR_PLAIN_CLASS(DoubleVariant)
ARBOR_PLAIN_CLASS(BoolVariant)
ARBOR_PLAIN_CLASS(TokenVariant)
#undef ARBOR_PLAIN_CLASS

namespace {

// The payload word of a string variant is the string itself: copying it adds a reference.
template <class S> struct StringPayload {
    static void destroy(void* p) { static_cast<S*>(p)->~S(); }
    static void copy(void* target, const void* source) {
        new (target) S(*static_cast<const S*>(source));
    }
    static bool equal(const void* a, const void* b) {
        return *static_cast<const S*>(a) == *static_cast<const S*>(b);
    }
    static bool less(const void* a, const void* b) {
        return *static_cast<const S*>(a) < *static_cast<const S*>(b);
    }
    static constexpr VariantClass table{destroy, copy, equal, less};
};

} // namespace

FixedStringVariant::FixedStringVariant(const Tessel::FixedStringBase<char>& value) noexcept
    : Variant(runtimeClass()) {
    new (payload()) Tessel::FixedStringBase<char>(value);
}

const VariantClass* FixedStringVariant::runtimeClass() noexcept {
    return &StringPayload<Tessel::FixedStringBase<char>>::table;
}

FixedUStringVariant::FixedUStringVariant(const Tessel::FixedStringBase<wchar_t>& value) noexcept
    : Variant(runtimeClass()) {
    new (payload()) Tessel::FixedStringBase<wchar_t>(value);
}

const VariantClass* FixedUStringVariant::runtimeClass() noexcept {
    return &StringPayload<Tessel::FixedStringBase<wchar_t>>::table;
}

} // namespace Arbor
