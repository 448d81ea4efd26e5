// The named descriptor types of the class tables: token vocabularies, numeric ranges, output
// shaping, and plain aliases by which a table groups its properties. Each type exists in both
// families: `Name<E, K>` for member tables, `NameL<K>` (or `...ListPropertyImpl<K>`) for list
// tables.
#pragma once

#include <grafel/properties/NumericTypes.h>
#include <grafel/properties/PropertyTypes.h>
#include <grafel/properties/ShapingTypes.h>
#include <grafel/properties/TokenTypes.h>

namespace Grafel {

// Aliases: a name only, with exactly the behaviour of the base.

/// Mandatory extents of primitives and bounds of a clipping box.
template <class E, Kind K> using SemiAxisType = DoubleProperty<E, K>;
template <Kind K> using SemiAxisTypeL = DoubleListProperty<K>;
template <class E, Kind K> using RadiusType = DoubleProperty<E, K>;
template <Kind K> using RadiusTypeL = DoubleListProperty<K>;
template <class E, Kind K> using RangeBoundType = DoubleProperty<E, K>;
template <Kind K> using RangeBoundTypeL = DoubleListProperty<K>;

/// Optional numbers of primitives, time ranges, views and images.
template <class E, Kind K> using AngleType = DoubleProperty<E, K>;
template <Kind K> using AngleTypeL = DoubleListProperty<K>;
template <class E, Kind K> using RangeValueType = DoubleProperty<E, K>;
template <Kind K> using RangeValueTypeL = DoubleListProperty<K>;
template <class E, Kind K> using ViewParamType = DoubleProperty<E, K>;
template <Kind K> using ViewParamTypeL = DoubleListProperty<K>;
template <class E, Kind K> using ImgPropDoubleType = DoubleProperty<E, K>;
template <Kind K> using ImgPropDoubleTypeL = DoubleListProperty<K>;

/// Points of transforms.
template <class E, Kind K> using P2PropertyImpl = P2Property<E, K>;
template <Kind K> using P2ListPropertyImpl = P2ListProperty<K>;
template <class E, Kind K> using P3PropertyImpl = P3Property<E, K>;
template <Kind K> using P3ListPropertyImpl = P3ListProperty<K>;

/// The groups of a coordinate system style, which lives in the list family only.
template <Kind K> using AxesBoolProperty = BoolListProperty<K>;
template <Kind K> using TicksBoolProperty = BoolListProperty<K>;
template <Kind K> using GridBoolProperty = BoolListProperty<K>;
template <Kind K> using TicksLongProperty = LongListProperty<K>;

} // namespace Grafel
