#include <grafel/structure/Canvas.h>

#include <grafel/foundation/Tokens.h>
#include <grafel/structure/SceneBase.h>
#include <grafel/structure/detail/AnimationStep.h>

#include <cmath>
#include <initializer_list>
#include <span>

namespace Grafel {

namespace {
GRAFEL_DEFINE_PROPERTY_LIST(CanvasPropertyListMgr, GRAFEL_CANVAS_TABLE)
} // namespace

Property* Canvas::propertyInfo(Arbor::Token name) const {
    return CanvasPropertyListMgrInstance().find(name);
}

bool Canvas::allowedContentChild(Arbor::Token tag) const {
    return tag == tok_Scene2d || tag == tok_Scene3d || tag == tok_ObjStyle || tag == tok_ObjType;
}

bool Canvas::mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) {
    if (!LibraryElement::mayReplaceChildren(first, count, newFirst)) return false;
    // One change brings 2D or 3D scenes, not both; what is there already is not looked at.
    bool scene2d = false, scene3d = false;
    for (Arbor::Node* n = newFirst; n; n = n->nextInChain()) {
        scene2d |= n->nodeName() == tok_Scene2d;
        scene3d |= n->nodeName() == tok_Scene3d;
    }
    return !(scene2d && scene3d);
}

void Canvas::getNextAnimationTime(double time, bool backward, double& best) {
    best = NaN();
    PlotElement* range = PlotElement::from(findChild(tok_TimeRange));
    if (!range) return;
    auto value = [range](Arbor::Token name) {
        const Arbor::Variant v = range->getProperty(name);
        auto* d = v.as<Arbor::DoubleVariant>();
        return d ? d->val() : NaN();
    };
    const double begin = value(tok_TimeBegin), end = value(tok_TimeEnd);
    if (detail::spanIsBehind(time, backward, begin, end)) return;
    // The end of the range answers unless a frame nearer to `time` is found.
    best = backward ? begin : end;
    LibraryElement::getNextAnimationTime(time, backward, best);
}

void Canvas::setLayout(Arbor::Token layout) {
    const Arbor::Token old = getLayout();
    if (layout == old) return;
    setProperty(tok_Layout, Arbor::TokenVariant(layout));
    // Only Relative places scenes in fractions of the page; between the other layouts the
    // millimetres stay as they are.
    const bool relative = layout == tok_Relative;
    if (relative == (old == tok_Relative)) return;
    const double width = getWidth(), height = getHeight();
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling())
        if (n->nodeName() == tok_Scene2d || n->nodeName() == tok_Scene3d)
            if (auto* scene = dynamic_cast<SceneBase*>(n))
                scene->setPositionRelative(relative, width, height);
}

namespace {

// The standard library, as (property, text) pairs set through the text parsers.
struct Setting {
    int id;
    const char* text;
};
using Settings = std::span<const Setting>;

constexpr Setting canvasSettings[] = {
    {id_Layout, "Tabular"},
    {id_OutputUnits, "MM"},
    {id_Width, "120"},
    {id_Height, "80"},
    {id_TopMargin, "1"},
    {id_BottomMargin, "1"},
    {id_LeftMargin, "1"},
    {id_RightMargin, "1"},
    {id_Spacing, "1"},
    {id_Rows, "0"},
    {id_Columns, "0"},
    {id_BorderWidth, "0"},
    {id_AutoPlay, "0"},
    {id_BackgroundColor, "#FFFFFF"},
    {id_BorderColor, "#FFFFFF"},
    {id_HeaderFont, "'sans-serif' 14"},
    {id_FooterFont, "'sans-serif' 14"},
    {id_HeaderAlignment, "Center"},
    {id_FooterAlignment, "Center"},
    {id_AnimationStyle, "RunOnce"},
};

constexpr Setting scene2dStyle[] = {
    {id_BackgroundTransparent, "0"},
    {id_LegendPlacement, "Bottom"},
    {id_LegendFont, "'sans-serif' 12"},
    {id_LegendAlignment, "Center"},
    {id_YXRatio, "1"},
    {id_LegendVisible, "0"},
};

constexpr Setting scene3dStyle[] = {
    {id_Lighting, "Automatic"},       {id_BackgroundTransparent, "0"},
    {id_LegendPlacement, "Bottom"},   {id_LegendFont, "'sans-serif' 12"},
    {id_LegendAlignment, "Center"},   {id_YXRatio, "1"},
    {id_BackgroundColor2, "#C0C0C0"}, {id_BackgroundStyle, "Flat"},
    {id_LegendVisible, "0"},          {id_ZXRatio, "1"},
};

// What the 2D and the 3D coordinate-system styles share.
constexpr Setting coordinateSystemCommon[] = {
    {id_Axes, "Boxed"},
    {id_Scaling, "Automatic"},
    {id_XAxisVisible, "1"},
    {id_YAxisVisible, "1"},
    {id_AxesTips, "1"},
    {id_AxesLineColor, "#000000"},
    {id_AxesLineWidth, "0.25"},
    {id_AxesTitleFont, "'sans-serif' 10"},
    {id_XTicksVisible, "1"},
    {id_YTicksVisible, "1"},
    {id_XTicksLabelsVisible, "1"},
    {id_YTicksLabelsVisible, "1"},
    {id_XTicksNumber, "Normal"},
    {id_YTicksNumber, "Normal"},
    {id_XTicksBetween, "1"},
    {id_YTicksBetween, "1"},
    {id_XTicksLabelStyle, "Horizontal"},
    {id_YTicksLabelStyle, "Horizontal"},
    {id_TicksLength, "2"},
    {id_TicksLabelFont, "'sans-serif' 8"},
    {id_XGridVisible, "0"},
    {id_YGridVisible, "0"},
    {id_XSubgridVisible, "0"},
    {id_YSubgridVisible, "0"},
    {id_GridLineStyle, "Solid"},
    {id_SubgridLineStyle, "Solid"},
    {id_GridLineColor, "#708090"},
    {id_GridLineWidth, "0.1"},
    {id_SubgridLineColor, "#C0C0C0"},
    {id_SubgridLineWidth, "0.05"},
};

constexpr Setting coordinateSystem2dOnly[] = {
    {id_CoordinateType, "LinLin"},   {id_AxesInFront, "0"},
    {id_GridInFront, "0"},           {id_XAxisTitleAlignment, "End"},
    {id_YAxisTitleAlignment, "End"}, {id_YAxisTitleOrientation, "Horizontal"},
};

constexpr Setting coordinateSystem3dOnly[] = {
    {id_XAxisTitleAlignment, "Center"},
    {id_YAxisTitleAlignment, "Center"},
    {id_ZAxisTitleAlignment, "Center"},
    {id_ZAxisVisible, "1"},
    {id_ZTicksVisible, "1"},
    {id_ZTicksLabelsVisible, "1"},
    {id_ZTicksNumber, "Normal"},
    {id_ZTicksBetween, "1"},
    {id_ZTicksLabelStyle, "Horizontal"},
    {id_ZGridVisible, "0"},
    {id_ZSubgridVisible, "0"},
};

constexpr Setting defaultObjStyle[] = {
    {id_Type, "Default"},
    {id_FillColor, "#FF0000"},
    {id_LineColor, "#FF0000"},
    {id_FillColor2, "#6495ED"},
    {id_LineColor2, "#FF8000"},
    {id_PointColor, "#191970"},
    {id_LightColor, "#FFFFFF"},
    {id_VerticalAsymptotesColor, "#778899"},
    {id_VerticalAsymptotesStyle, "Dashed"},
    {id_VerticalAsymptotesWidth, "0.2"},
    {id_LineWidth, "0.2"},
    {id_VerticalAsymptotesVisible, "1"},
    {id_FillPattern, "DiagonalLines"},
    {id_FillStyle, "EvenOdd"},
    {id_FillColorType, "Dichromatic"},
    {id_LineColorType, "Flat"},
    {id_LineStyle, "Solid"},
    {id_Shading, "Smooth"},
    {id_PointStyle, "FilledCircles"},
    {id_PointSize, "1.5"},
    {id_TipStyle, "Open"},
    {id_TipLength, "2"},
    {id_TipAngle, "0.1745329252"},
    {id_ArrowLength, "Proportional"},
    {id_TitleFont, "'sans-serif' 10"},
    {id_HorizontalAlignment, "Center"},
    {id_VerticalAlignment, "BaseLine"},
    {id_LegendColor, "LineColor"},
    {id_Extension, "Finite"},
    {id_TimeBegin, "0"},
    {id_TimeEnd, "10"},
    {id_Frames, "50"},
    {id_XMesh, "9"},
    {id_YMesh, "9"},
    {id_ZMesh, "9"},
    {id_UMesh, "25"},
    {id_VMesh, "25"},
    {id_AdaptiveMesh, "0"},
    {id_XSubmesh, "0"},
    {id_YSubmesh, "0"},
    {id_USubmesh, "0"},
    {id_VSubmesh, "0"},
    {id_Tubular, "1"},
    {id_KeepUpVector, "1"},
    {id_CameraCoordinates, "1"},
    {id_VisibleBeforeBegin, "1"},
    {id_VisibleAfterEnd, "1"},
    {id_LinesVisible, "1"},
    {id_LegendEntry, "1"},
    {id_XLinesVisible, "1"},
    {id_YLinesVisible, "1"},
    {id_ULinesVisible, "1"},
    {id_VLinesVisible, "1"},
    {id_Filled, "1"},
    {id_DiscontinuitySearch, "1"},
    {id_Closed, "1"},
    {id_AffectViewingBox, "1"},
    {id_AntiAliased, "1"},
    {id_OrthogonalProjection, "0"},
    {id_PointsVisible, "0"},
    {id_LineColorDirectionX, "0"},
    {id_LineColorDirectionY, "0"},
    {id_FillColorDirectionX, "0"},
    {id_FillColorDirectionY, "0"},
    {id_LineColorDirectionZ, "1"},
    {id_FillColorDirectionZ, "1"},
};

// The object styles by type, after the Default one. The 2D types restate LineColorDirectionY,
// which the Default style sets for 3D objects.
constexpr Setting surfaceStyle[] = {{id_Type, "Surface"},
                                    {id_LinesVisible, "0"},
                                    {id_LineColor, "#000000"},
                                    {id_LegendColor, "FillColor"}};
constexpr Setting curve2dStyle[] = {
    {id_Type, "Curve2d"}, {id_UMesh, "121"}, {id_LineColorDirectionY, "1"}};
constexpr Setting curve3dStyle[] = {{id_Type, "Curve3d"}, {id_UMesh, "121"}};
constexpr Setting function2dStyle[] = {{id_Type, "Function2d"}, {id_LineColorDirectionY, "1"}};
constexpr Setting implicit2dStyle[] = {{id_Type, "Implicit2d"}, {id_LineColorDirectionY, "1"}};
constexpr Setting polygon2dStyle[] = {{id_Type, "Polygon2d"}, {id_LineColorDirectionY, "1"}};
constexpr Setting vectorField2dStyle[] = {{id_Type, "VectorField2d"},
                                          {id_LineColorDirectionY, "1"}};
constexpr Setting vectorField3dStyle[] = {
    {id_Type, "VectorField3d"}, {id_PointsVisible, "1"}, {id_PointSize, "1.0"}};
constexpr Setting planeStyle[] = {{id_Type, "Plane"},     {id_FillColor, "#99CCFF"},
                                  {id_LinesVisible, "0"}, {id_UMesh, "10"},
                                  {id_VMesh, "10"},       {id_AffectViewingBox, "0"}};

void apply(PlotElement* element, Settings settings) {
    for (const Setting& s : settings) element->setAttributeString(getToken(s.id), s.text);
}

// Makes a child of the class behind `tag`, gives it the settings of each part and appends it;
// a class this build lacks is left out.
void appendStyle(Canvas* canvas, int tag, std::initializer_list<Settings> parts) {
    auto* doc = static_cast<ElementDocument*>(canvas->ownerDocument());
    Arbor::Ref<PlotElement> child = doc->createPlotElement(getToken(tag));
    if (!child) return;
    for (Settings part : parts) apply(child.get(), part);
    canvas->appendChild(child.get());
}

} // namespace

void Canvas::setDefaults() {
    apply(this, canvasSettings);
    appendStyle(this, id_Scene2dStyle, {scene2dStyle});
    appendStyle(this, id_Scene3dStyle, {scene3dStyle});
    appendStyle(this, id_CoordinateSystem2dStyle, {coordinateSystemCommon, coordinateSystem2dOnly});
    appendStyle(this, id_CoordinateSystem3dStyle, {coordinateSystemCommon, coordinateSystem3dOnly});
    for (Settings style :
         {Settings(defaultObjStyle), Settings(surfaceStyle), Settings(curve2dStyle),
          Settings(curve3dStyle), Settings(function2dStyle), Settings(implicit2dStyle),
          Settings(polygon2dStyle), Settings(vectorField2dStyle), Settings(vectorField3dStyle),
          Settings(planeStyle)})
        appendStyle(this, id_ObjStyle, {style});
}

} // namespace Grafel
