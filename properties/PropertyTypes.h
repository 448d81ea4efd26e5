// The plain descriptor types of the property tables, one per value kind, for both families.
// Constrained types (ConstrainedTypes.h) narrow these.
#pragma once

#include <grafel/properties/MemberProperty.h>

namespace Grafel {

// Member family: templates over the element class and the kind.
template <class E, Kind K> using BoolProperty = PropertyImpl<E, BoolTrait, K>;
template <class E, Kind K> using LongProperty = PropertyImpl<E, LongTrait, K>;
template <class E, Kind K> using DoubleProperty = PropertyImpl<E, DoubleTrait, K>;
template <class E, Kind K> using SizeProperty = PropertyImpl<E, SizeTrait, K>;
template <class E, Kind K> using TokenProperty = PropertyImpl<E, TokenTrait, K>;
template <class E, Kind K> using ColorProperty = PropertyImpl<E, ColorTrait, K>;
template <class E, Kind K> using P2Property = PropertyImpl<E, P2Trait, K>;
template <class E, Kind K> using P3Property = PropertyImpl<E, P3Trait, K>;
template <class E, Kind K> using FontProperty = PropertyImpl<E, FontTrait, K>;
template <class E, Kind K> using StringProperty = PropertyImpl<E, StringTrait, K>;
template <class E, Kind K> using MStringProperty = PropertyImpl<E, MStringTrait, K>;

// List family: templates over the kind.
template <Kind K> using BoolListProperty = ListPropertyImpl<BoolTrait, K>;
template <Kind K> using LongListProperty = ListPropertyImpl<LongTrait, K>;
template <Kind K> using DoubleListProperty = ListPropertyImpl<DoubleTrait, K>;
template <Kind K> using SizeListProperty = ListPropertyImpl<SizeTrait, K>;
template <Kind K> using TokenListProperty = ListPropertyImpl<TokenTrait, K>;
template <Kind K> using ColorListProperty = ListPropertyImpl<ColorTrait, K>;
template <Kind K> using P2ListProperty = ListPropertyImpl<P2Trait, K>;
template <Kind K> using P3ListProperty = ListPropertyImpl<P3Trait, K>;
template <Kind K> using FontListProperty = ListPropertyImpl<FontTrait, K>;
template <Kind K> using StringListProperty = ListPropertyImpl<StringTrait, K>;
template <Kind K> using MStringListProperty = ListPropertyImpl<MStringTrait, K>;

} // namespace Grafel
