// The view a viewer last showed of a scene, kept as an option child of the scene so that a
// saved plot opens as it was left. Only XML and memory know views: command text leaves them out.
#pragma once

#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ElementClass.h>
#include <grafel/properties/MemberTable.h>

#include <grafel/foundation/NaN.h>

// NaN: the viewer has not said.
#define GRAFEL_VIEW2D_TABLE(P)                                                                     \
    P(Optional, ViewParamType, ViewXMin, NaN(), NaN())                                             \
    P(Optional, ViewParamType, ViewXMax, NaN(), NaN())                                             \
    P(Optional, ViewParamType, ViewYMin, NaN(), NaN())                                             \
    P(Optional, ViewParamType, ViewYMax, NaN(), NaN())

// The up vector starts as the z axis, though a removed component falls back to NaN.
#define GRAFEL_VIEW3D_TABLE(P)                                                                     \
    P(Optional, ViewParamType, ViewPositionX, NaN(), NaN())                                        \
    P(Optional, ViewParamType, ViewPositionY, NaN(), NaN())                                        \
    P(Optional, ViewParamType, ViewPositionZ, NaN(), NaN())                                        \
    P(Optional, ViewParamType, ViewFocalPointX, NaN(), NaN())                                      \
    P(Optional, ViewParamType, ViewFocalPointY, NaN(), NaN())                                      \
    P(Optional, ViewParamType, ViewFocalPointZ, NaN(), NaN())                                      \
    P(Optional, ViewParamType, ViewViewingAngle, NaN(), NaN())                                     \
    P(Optional, BoolProperty, ViewOrthogonalProjection, false, false)                              \
    P(Optional, ViewParamType, ViewTranslationX, NaN(), NaN())                                     \
    P(Optional, ViewParamType, ViewTranslationY, NaN(), NaN())                                     \
    P(Optional, ViewParamType, ViewTranslationZ, NaN(), NaN())                                     \
    P(Optional, BoolProperty, ViewDirectional, false, false)                                       \
    P(Optional, ViewParamType, ViewUpVectorX, 0.0, NaN())                                          \
    P(Optional, ViewParamType, ViewUpVectorY, 0.0, NaN())                                          \
    P(Optional, ViewParamType, ViewUpVectorZ, 1.0, NaN())                                          \
    P(Optional, BoolProperty, ViewKeepUpVector, true, true)

// The three flags beside the presence word, then the numbers.
#define GRAFEL_VIEW3D_MEMBERS(M)                                                                   \
    M(ViewOrthogonalProjection)                                                                    \
    M(ViewDirectional)                                                                             \
    M(ViewKeepUpVector) M(ViewPositionX) M(ViewPositionY) M(ViewPositionZ) M(ViewFocalPointX)      \
        M(ViewFocalPointY) M(ViewFocalPointZ) M(ViewViewingAngle) M(ViewTranslationX)              \
            M(ViewTranslationY) M(ViewTranslationZ) M(ViewUpVectorX) M(ViewUpVectorY)              \
                M(ViewUpVectorZ)

namespace Grafel {

/// What both views share: no children, no command text, and a copy made by cloneNode that
/// starts over from the constructor's values.
class ViewBase : public PlotElement {
public:
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    /// A view writes nothing: the host has no form for it.
    void putCmd(CmdOStream&) override {}

protected:
    explicit ViewBase(Arbor::Document* document) : PlotElement(document) {}
    ViewBase(const ViewBase& other) = default;
};

/// The part of the plane a 2D scene showed.
class View2d : public ElementClass<View2d, id_View2d, ViewBase> {
    friend ElementClass;
    GRAFEL_MEMBER_PROPERTIES(View2d, GRAFEL_VIEW2D_TABLE)

public:
    View2d(const View2d& other) = default;

protected:
    explicit View2d(Arbor::Document* document) : ElementClass(document) {}
};

/// The camera a 3D scene was shown with, and the shift of the picture.
class View3d : public ElementClass<View3d, id_View3d, ViewBase> {
    friend ElementClass;
    GRAFEL_MEMBER_PROPERTIES_ORDERED(View3d, GRAFEL_VIEW3D_TABLE, GRAFEL_VIEW3D_MEMBERS)

public:
    View3d(const View3d& other) = default;

protected:
    explicit View3d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
