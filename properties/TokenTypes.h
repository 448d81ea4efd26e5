// Token properties with a named vocabulary: the words a property is meant to take. A vocabulary
// is descriptive only, any token stored as given, except for the closed ones, which refuse a
// word outside their set.
#pragma once

#include <grafel/foundation/Tokens.h>
#include <grafel/properties/PropertyTypes.h>

#include <span>
#include <type_traits>

namespace Grafel {

/// A token descriptor of either family that knows its vocabulary `Ids`, a constexpr array of
/// catalogue ids. Its check path (checkValue, isValidValue) deliberately does not consult it:
/// documents may carry words that no vocabulary lists, and they must load and write back
/// unchanged. ClosedVocabulary below is the exception, for kinds.
template <class Base, const auto& Ids> class TokenVocabulary : public Base {
    static_assert(std::is_same_v<typename Base::Value, Arbor::Token>,
                  "a vocabulary constrains token properties only");

public:
    using Base::Base;

    /// Whether `token` is a word of the vocabulary. Only a closed vocabulary's check asks this.
    virtual bool isAllowedToken(const PlotElement*, const Arbor::Token& token) const {
        for (int id : Ids)
            if (getToken(id) == token) return true;
        return false;
    }

    /// The catalogue ids of the vocabulary, in declaration order.
    static constexpr std::span<const int> vocabulary() { return Ids; }
    std::span<const int> knownWords() const override { return Ids; }
};

/// The vocabularies, as catalogue ids.
namespace Vocabulary {
inline constexpr int lineStyle[] = {id_Solid, id_Dashed, id_Dotted};
inline constexpr int pointStyle[] = {id_Squares,       id_FilledSquares, id_Circles,
                                     id_FilledCircles, id_Diamonds,      id_FilledDiamonds,
                                     id_Crosses,       id_XCrosses,      id_Stars};
inline constexpr int color[] = {id_Flat, id_Monochrome, id_Dichromatic, id_Rainbow, id_Functional};
inline constexpr int shading[] = {id_Flat, id_Smooth};
inline constexpr int tipStyle[] = {id_Filled, id_Open, id_Closed};
inline constexpr int fillPattern[] = {id_Solid,         id_HorizontalLines, id_VerticalLines,
                                      id_DiagonalLines, id_FDiagonalLines,  id_CrossedLines,
                                      id_XCrossedLines};
inline constexpr int fillStyle[] = {id_EvenOdd, id_Winding};
inline constexpr int horizontalAlignment[] = {id_Left, id_Center, id_Right};
inline constexpr int verticalAlignment[] = {id_Top, id_BaseLine, id_Center, id_Bottom};
inline constexpr int extension[] = {id_Finite, id_Infinite, id_SemiInfinite};
inline constexpr int arrowLength[] = {id_Fixed, id_Proportional, id_Logarithmic};
inline constexpr int lines3dType[] = {id_Lines, id_LineStrip, id_LineLoop};
inline constexpr int surf3dType[] = {id_Triangles, id_TriangleStrip, id_TriangleFan, id_Quads,
                                     id_QuadStrip};
inline constexpr int layout[] = {id_Tabular, id_Horizontal, id_Vertical, id_Absolute, id_Relative};
inline constexpr int outputUnits[] = {id_MM, id_In, id_Pt};
inline constexpr int animationStyle[] = {id_RunOnce, id_Loop, id_BackAndForth};
inline constexpr int coordinateType2d[] = {id_LinLin, id_LogLog, id_LinLog, id_LogLin};
inline constexpr int scaling[] = {id_Constrained, id_Unconstrained, id_Automatic};
inline constexpr int axes[] = {id_Boxed, id_Frame, id_Origin, id_Automatic, id_None};
inline constexpr int axisTitleAlignment[] = {id_Begin, id_Center, id_End};
inline constexpr int yAxisTitleOrientation[] = {id_Horizontal, id_Vertical};
inline constexpr int ticksLabelStyle[] = {id_Horizontal, id_Vertical, id_Diagonal, id_Shifted};
inline constexpr int ticksNumber[] = {id_None, id_Low, id_Normal, id_High};
inline constexpr int backgroundStyle[] = {id_Flat, id_LeftRight, id_TopBottom, id_Pyramid};
inline constexpr int legendPlacement[] = {id_Top, id_Bottom};
inline constexpr int lighting[] = {id_None, id_Automatic, id_Explicit};
} // namespace Vocabulary

// Each type in both families: `Name<E, K>` for member tables, `NameL<K>` for list tables.
template <class E, Kind K>
using LineStyleType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::lineStyle>;
template <Kind K>
using LineStyleTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::lineStyle>;

template <class E, Kind K>
using PointStyleType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::pointStyle>;
template <Kind K>
using PointStyleTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::pointStyle>;

template <class E, Kind K>
using ColorType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::color>;
template <Kind K> using ColorTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::color>;

template <class E, Kind K>
using ShadingType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::shading>;
template <Kind K> using ShadingTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::shading>;

template <class E, Kind K>
using TipStyleType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::tipStyle>;
template <Kind K> using TipStyleTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::tipStyle>;

template <class E, Kind K>
using FillPatternType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::fillPattern>;
template <Kind K>
using FillPatternTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::fillPattern>;

template <class E, Kind K>
using FillStyleType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::fillStyle>;
template <Kind K>
using FillStyleTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::fillStyle>;

template <class E, Kind K>
using HorizontalAlignmentType =
    TokenVocabulary<TokenProperty<E, K>, Vocabulary::horizontalAlignment>;
template <Kind K>
using HorizontalAlignmentTypeL =
    TokenVocabulary<TokenListProperty<K>, Vocabulary::horizontalAlignment>;

template <class E, Kind K>
using VerticalAlignmentType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::verticalAlignment>;
template <Kind K>
using VerticalAlignmentTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::verticalAlignment>;

template <class E, Kind K>
using ExtensionType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::extension>;
template <Kind K>
using ExtensionTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::extension>;

template <class E, Kind K>
using ArrowLengthType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::arrowLength>;
template <Kind K>
using ArrowLengthTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::arrowLength>;

/// A vocabulary that is also a bound: a token outside `Ids` is refused like a number out of
/// its range. For kinds whose every word changes how the element's data is cut up, so that an
/// unknown word leaves nothing to draw.
template <class Base, const auto& Ids> class ClosedVocabulary : public TokenVocabulary<Base, Ids> {
public:
    using TokenVocabulary<Base, Ids>::TokenVocabulary;
    bool isValidValue(const PlotElement* element, const Arbor::Token& token) const override {
        return this->isAllowedToken(element, token);
    }
};

/// The primitive kind of a Lines3d: how its points pair into segments.
template <class E, Kind K>
using Lines3dTypeType = ClosedVocabulary<TokenProperty<E, K>, Vocabulary::lines3dType>;
template <Kind K>
using Lines3dTypeTypeL = ClosedVocabulary<TokenListProperty<K>, Vocabulary::lines3dType>;

/// The primitive kind of a Surf3d: how its points group into faces.
template <class E, Kind K>
using Surf3dTypeType = ClosedVocabulary<TokenProperty<E, K>, Vocabulary::surf3dType>;
template <Kind K>
using Surf3dTypeTypeL = ClosedVocabulary<TokenListProperty<K>, Vocabulary::surf3dType>;

template <class E, Kind K>
using LayoutType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::layout>;
template <Kind K> using LayoutTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::layout>;

template <class E, Kind K>
using AnimationStyleType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::animationStyle>;
template <Kind K>
using AnimationStyleTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::animationStyle>;

template <class E, Kind K>
using CoordinateType2dType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::coordinateType2d>;
template <Kind K>
using CoordinateType2dTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::coordinateType2d>;

template <class E, Kind K>
using ScalingType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::scaling>;
template <Kind K> using ScalingTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::scaling>;

template <class E, Kind K> using AxesType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::axes>;
template <Kind K> using AxesTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::axes>;

template <class E, Kind K>
using AxisTitleAlignmentType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::axisTitleAlignment>;
template <Kind K>
using AxisTitleAlignmentTypeL =
    TokenVocabulary<TokenListProperty<K>, Vocabulary::axisTitleAlignment>;

template <class E, Kind K>
using YAxisTitleOrientationType =
    TokenVocabulary<TokenProperty<E, K>, Vocabulary::yAxisTitleOrientation>;
template <Kind K>
using YAxisTitleOrientationTypeL =
    TokenVocabulary<TokenListProperty<K>, Vocabulary::yAxisTitleOrientation>;

template <class E, Kind K>
using TicksLabelStyleType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::ticksLabelStyle>;
template <Kind K>
using TicksLabelStyleTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::ticksLabelStyle>;

template <class E, Kind K>
using TicksNumberType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::ticksNumber>;
template <Kind K>
using TicksNumberTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::ticksNumber>;

template <class E, Kind K>
using BackgroundStyleType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::backgroundStyle>;
template <Kind K>
using BackgroundStyleTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::backgroundStyle>;

template <class E, Kind K>
using LegendPlacementType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::legendPlacement>;
template <Kind K>
using LegendPlacementTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::legendPlacement>;

template <class E, Kind K>
using LightingType = TokenVocabulary<TokenProperty<E, K>, Vocabulary::lighting>;
template <Kind K> using LightingTypeL = TokenVocabulary<TokenListProperty<K>, Vocabulary::lighting>;

// OutputUnitsType, which also has a command form of its own, is in ShapingTypes.h.

} // namespace Grafel
