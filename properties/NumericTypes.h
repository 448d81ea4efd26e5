// Numeric properties with a range: sizes, counts and meshes that refuse values out of their
// bounds, and the two types that adjust a stored value instead of refusing it.
#pragma once

#include <grafel/properties/PropertyTypes.h>

namespace Grafel {

/// Accepts only values above `Bound`. Written as `v > Bound`, so that a NaN is refused too.
template <class Base, int Bound> class Above : public Base {
public:
    using Base::Base;
    bool isValidValue(const PlotElement*, const typename Base::Value& v) const override {
        return v > Bound;
    }
};

/// Accepts only values of at least `Bound`. Written as `v >= Bound`, so that a NaN is refused.
template <class Base, int Bound> class AtLeast : public Base {
public:
    using Base::Base;
    bool isValidValue(const PlotElement*, const typename Base::Value& v) const override {
        return v >= Bound;
    }
};

/// Accepts every value, but raises a negative one to 0 when it is stored in a member. The list
/// family stores values without normalizeValue, so a page keeps a negative value exactly as it
/// was given, and writes it back so; that is intended. A NaN is kept.
template <class Base> class RaisedToZero : public Base {
public:
    using Base::Base;
    void normalizeValue(typename Base::Value& v) const override {
        if (v < 0) v = 0;
    }
};

/// Accepts every value and clamps it into [0, 1] when it is stored in a member. A NaN is kept.
template <class Base> class ClampedToUnit : public Base {
public:
    using Base::Base;
    void normalizeValue(typename Base::Value& v) const override {
        if (v < 0)
            v = 0;
        else if (v > 1)
            v = 1;
    }
};

/// Sizes in millimetres (written through the stream's unit) that must be positive.
template <class E, Kind K> using PosOutputSizePropertyImpl = Above<SizeProperty<E, K>, 0>;
template <Kind K> using PosOutputSizeListPropertyImpl = Above<SizeListProperty<K>, 0>;
template <class E, Kind K> using PosOutputSizeType = PosOutputSizePropertyImpl<E, K>;
template <Kind K> using PosOutputSizeTypeL = PosOutputSizeListPropertyImpl<K>;

/// Sizes in millimetres that must not be negative.
template <class E, Kind K> using NonNegOutputSizePropertyImpl = AtLeast<SizeProperty<E, K>, 0>;
template <Kind K> using NonNegOutputSizeListPropertyImpl = AtLeast<SizeListProperty<K>, 0>;

/// Sizes in millimetres of the page: never refused, a negative value is raised to 0 only where
/// normalizeValue is reached (the member family).
template <class E, Kind K> using NonNegOutputSizeType = RaisedToZero<SizeProperty<E, K>>;
template <Kind K> using NonNegOutputSizeTypeL = RaisedToZero<SizeListProperty<K>>;

/// The intensity of a light, clamped into [0, 1] on store.
template <class E, Kind K> using LightIntensityType = ClampedToUnit<DoubleProperty<E, K>>;
template <Kind K> using LightIntensityTypeL = ClampedToUnit<DoubleListProperty<K>>;

/// Counts.
template <class E, Kind K> using PosLongType = Above<LongProperty<E, K>, 0>;
template <Kind K> using PosLongTypeL = Above<LongListProperty<K>, 0>;
template <class E, Kind K> using NonNegLongType = AtLeast<LongProperty<E, K>, 0>;
template <Kind K> using NonNegLongTypeL = AtLeast<LongListProperty<K>, 0>;
template <class E, Kind K> using SubmeshType = AtLeast<LongProperty<E, K>, 0>;
template <Kind K> using SubmeshTypeL = AtLeast<LongListProperty<K>, 0>;
template <class E, Kind K> using FramesType = AtLeast<LongProperty<E, K>, 0>;
template <Kind K> using FramesTypeL = AtLeast<LongListProperty<K>, 0>;

/// Mesh resolutions of meshes and planes: positive.
template <class E, Kind K> using MandatoryMeshPropertyImpl = Above<LongProperty<E, K>, 0>;
template <Kind K> using MandatoryMeshListPropertyImpl = Above<LongListProperty<K>, 0>;
template <class E, Kind K> using MeshType = MandatoryMeshPropertyImpl<E, K>;
template <Kind K> using MeshTypeL = MandatoryMeshListPropertyImpl<K>;

/// Mesh resolutions of vector fields: at least one node.
template <class E, Kind K> using FieldMeshType = AtLeast<LongProperty<E, K>, 1>;
template <Kind K> using FieldMeshTypeL = AtLeast<LongListProperty<K>, 1>;

/// The mesh resolution of an object style, whose lower bound is stored beside the default:
/// constructed with (default, minimum, id), or with (default, id) for the usual minimum of 1.
template <Kind K> class StyleMeshTypeL : public LongListProperty<K> {
public:
    StyleMeshTypeL(long defaultValue, long minimum, int id)
        : LongListProperty<K>(defaultValue, id), minimum_(minimum) {}
    StyleMeshTypeL(long defaultValue, int id) : StyleMeshTypeL(defaultValue, 1, id) {}

    bool isValidValue(const PlotElement*, const long& v) const override { return v >= minimum_; }
    /// The smallest value accepted.
    long minimum() const { return minimum_; }

private:
    long minimum_;
};

} // namespace Grafel
