// The common part of Transform2d and Transform3d: an affine map applied to what the transform
// holds, either one fixed matrix or a series of frames that animate it. The map is stored only.
#pragma once

#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ContentPlotElement.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/OptionChildTable.h>
#include <grafel/structure/NestingLevel.h>

#include <vector>

// Type names the kind of map (Rotate2d, Scale3d, ...) and the object styles it takes its
// time span from; it is present from the start, so that the span can be found.
#define GRAFEL_TRANSFORMBASE_TABLE(P)                                                              \
    P(Mandatory, TypePropertyImpl, Type, Arbor::Token(), Arbor::Token())                           \
    P(Optional, IdPropertyImpl, id, Tessel::FixedStringBase<char>(),                               \
      Tessel::FixedStringBase<char>(), Id)                                                         \
    P(Optional, MStringProperty, Name, Tessel::FixedStringBase<wchar_t>(),                         \
      Tessel::FixedStringBase<wchar_t>())                                                          \
    P(Optional, ConsistentPropertyImpl, Consistent, false, false)                                  \
    P(Inherited, FramesType, Frames, 0L, 0L)                                                       \
    P(Inherited, DoubleProperty, TimeBegin, 0.0, 0.0)                                              \
    P(Inherited, DoubleProperty, TimeEnd, 4.0, 4.0)

namespace Grafel {

/// A transform. Its inherited values come from the object styles of its own Type, as an
/// object's do, and are kept in members that each move refreshes. A transform holds no object
/// style itself, and the style walk passes over it. Its frames, Tr2d or Tr3d children at a
/// parameter value each, are placed on TimeBegin to TimeEnd like the images of an object. Its
/// command form is "plot::", its Type, "(", its values and its children, then ")"; the frames
/// write nothing there.
class TransformBase : public OptionedPlotElement, public NestingLevel {
    GRAFEL_MEMBER_PROPERTIES(TransformBase, GRAFEL_TRANSFORMBASE_TABLE)

public:
    TransformBase(const TransformBase& other) = default;

    /// The nearest ObjStyle of the transform's Type that holds `name`, else the nearest of
    /// type Default that does, else null.
    PlotElement* inheritingFrom(Arbor::Token name) const override;
    /// Every ObjStyle of the transform's Type above it, then every one of type Default.
    void getInheritanceChain(std::vector<PlotElement*>& chain) const override;
    /// A change of its own value goes on as its descriptor says; one from elsewhere always
    /// goes on to the children.
    bool afterAttributeChange(Arbor::Element* source, Arbor::Token name) override;
    void normalizeAttribute(Arbor::Element* source, Arbor::Token name) override;
    void normalizeAttributes() override;
    void putCmd(CmdOStream& out) override;
    /// Narrows `best` by the frames as an object does by its images, except that a frame
    /// without a time ends the frames; then, unless the span lies behind `time` or is
    /// incomplete, asks every child element but the frames.
    void getNextAnimationTime(double time, bool backward, double& best) override;

    /// The values of the ParameterBegin and ParameterEnd children, as for an object.
    bool getParameterRange(double& begin, double& end) const;

protected:
    explicit TransformBase(Arbor::Document* document) : OptionedPlotElement(document) {}

    /// The option children of both dimensions; what a class admits is its allowedOptionChildren.
    int tagNameToOptionChildFlag(Arbor::Token tag) const override;

    /// The option children of transforms of both dimensions.
    static constexpr OptionChildTable optionChildFlags{{
        {id_ParameterName, 1},
        {id_ParameterBegin, 2},
        {id_ParameterEnd, 4},
        {id_Matrix2d, 8},
        {id_Matrix3d, 16},
    }};
    /// The option children both dimensions admit.
    static constexpr int parameterOptions =
        optionChildFlags.mask(id_ParameterName, id_ParameterBegin, id_ParameterEnd);

    PlotElement* levelElement() override { return this; }
    void refreshOwn() override;
    void normalizeAllOwn() override;
    void openCmd(CmdOStream& out) override;
    bool stepOwnFrames(double time, bool backward, double& best) override;
};

} // namespace Grafel
