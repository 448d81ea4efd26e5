// The variants that carry points, colours and fonts as attribute values. Points and fonts do not
// fit in the payload word and live in a heap copy owned by the variant; a colour is the word.
#pragma once

#include <grafel/arbor/Variant.h>
#include <grafel/foundation/FontStyle.h>
#include <grafel/foundation/Points.h>
#include <grafel/foundation/Rgba.h>

namespace Grafel {

/// A P2 in a heap copy; copies of the variant copy the point.
class P2Variant : public Arbor::Variant {
public:
    /// Holds a point for the caller to fill in; its coordinates carry no meaning yet.
    P2Variant();
    explicit P2Variant(const P2& value);
    P2Variant(const P2Variant&) = default;
    P2Variant& operator=(const P2Variant&) = default;
    P2Variant(P2Variant&&) noexcept = default;
    P2Variant& operator=(P2Variant&&) noexcept = default;

    const P2& val() const noexcept;
    operator const P2&() const noexcept { return val(); }
    static const Arbor::VariantClass* runtimeClass() noexcept;
};

/// A P3 in a heap copy; copies of the variant copy the point.
class P3Variant : public Arbor::Variant {
public:
    /// Holds a point for the caller to fill in; its coordinates carry no meaning yet.
    P3Variant();
    explicit P3Variant(const P3& value);
    P3Variant(const P3Variant&) = default;
    P3Variant& operator=(const P3Variant&) = default;
    P3Variant(P3Variant&&) noexcept = default;
    P3Variant& operator=(P3Variant&&) noexcept = default;

    const P3& val() const noexcept;
    operator const P3&() const noexcept { return val(); }
    static const Arbor::VariantClass* runtimeClass() noexcept;
};

/// A FontStyle in a heap copy; copies of the variant copy the font (sharing its family text).
class FontStyleVariant : public Arbor::Variant {
public:
    /// Holds the default font.
    FontStyleVariant();
    explicit FontStyleVariant(const FontStyle& value);
    FontStyleVariant(const FontStyleVariant&) = default;
    FontStyleVariant& operator=(const FontStyleVariant&) = default;
    FontStyleVariant(FontStyleVariant&&) noexcept = default;
    FontStyleVariant& operator=(FontStyleVariant&&) noexcept = default;

    const FontStyle& val() const noexcept;
    operator const FontStyle&() const noexcept { return val(); }
    static const Arbor::VariantClass* runtimeClass() noexcept;
};

/// A colour held in the payload word itself: its class table is all null, so the kernel copies
/// and compares it bitwise and orders it as an unsigned word, with no heap use.
class RGBAVariant : public Arbor::Variant {
public:
    explicit RGBAVariant(RGBA value) noexcept;
    RGBAVariant(const RGBAVariant&) = default;
    RGBAVariant& operator=(const RGBAVariant&) = default;
    RGBAVariant(RGBAVariant&&) noexcept = default;
    RGBAVariant& operator=(RGBAVariant&&) noexcept = default;

    RGBA val() const noexcept { return word<RGBA>(); }
    static const Arbor::VariantClass* runtimeClass() noexcept;
};

} // namespace Grafel
