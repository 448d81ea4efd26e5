#include <grafel/document/ZpxDialect.h>

#include <grafel/foundation/Tokens.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

namespace Grafel {

namespace {

struct GroupTags {
    ZpxTagGroup group;
    std::span<const TokenId> tags;
};

// clang-format off
constexpr TokenId plainTags[] = {
    id_AmbientLight, id_Arc2d, id_Arrow2d, id_Arrow3d, id_Box, id_Camera, id_Circle3d,
    id_ClippingBox, id_Cone, id_CoordinateSystem2d, id_CoordinateSystem3d, id_DistantLight,
    id_Ellipsoid, id_Field2d, id_Field3d, id_Group2d, id_Group3d, id_Img2d, id_Img3d, id_Line2d,
    id_Line3d, id_Mesh3d, id_Plane, id_Point2d, id_Point3d, id_PointLight, id_Poly2d, id_Poly3d,
    id_Pt2d, id_Pts2d, id_Pts3d, id_Scene2d, id_Scene3d, id_Sphere, id_SpotLight, id_TickPos,
    id_Tr2d, id_Tr3d, id_VerticalAsymptote
};
constexpr TokenId singleTextTags[] = {
    id_AxesOriginX, id_AxesOriginY, id_AxesOriginZ, id_Footer, id_Header, id_LegendText,
    id_ParameterBegin, id_ParameterEnd, id_ParameterName, id_Title, id_TitlePositionX,
    id_TitlePositionY, id_TitlePositionZ, id_ViewingBoxXMax, id_ViewingBoxXMin, id_ViewingBoxYMax,
    id_ViewingBoxYMin, id_ViewingBoxZMax, id_ViewingBoxZMin, id_XAxisTitle, id_XTicksAnchor,
    id_XTicksDistance, id_YAxisTitle, id_YTicksAnchor, id_YTicksDistance, id_ZAxisTitle,
    id_ZTicksAnchor, id_ZTicksDistance
};
constexpr TokenId singleTags[] = {
    id_CoordinateSystem2dStyle, id_CoordinateSystem3dStyle, id_Hints, id_Matrix2d, id_Matrix3d,
    id_Points2d, id_Points3d, id_Scene2dStyle, id_Scene3dStyle, id_TextOrientation, id_TimeRange,
    id_View2d, id_View3d, id_XTicksAt, id_YTicksAt, id_ZTicksAt
};
constexpr TokenId arrayTags[] = {id_ColorArray2d, id_DensityArray2d};
constexpr TokenId optionTags[] = {id_ColorFunc, id_ExprSeq};
constexpr TokenId optionTextTags[] = {id_Expr};
constexpr TokenId typedTags[] = {
    id_Lines3d, id_Obj2d, id_Obj3d, id_ObjStyle, id_ObjType, id_Surf3d, id_Transform2d,
    id_Transform3d
};
constexpr TokenId textObjectTags[] = {id_Text2d, id_Text3d};
constexpr TokenId sequenceItemTags[] = {id_IExpr, id_VExpr};
constexpr TokenId propTags[] = {id_Prop};
constexpr TokenId categoryTags[] = {id_PropCat};
constexpr TokenId infoTags[] = {id_PropInfo};
constexpr TokenId rootTags[] = {id_Canvas};
constexpr TokenId point2Tags[] = {id_P2};
constexpr TokenId point3Tags[] = {id_P3};
// clang-format on

constexpr GroupTags groupTable[] = {
    {ZpxTagGroup::Plain, plainTags},
    {ZpxTagGroup::SingleText, singleTextTags},
    {ZpxTagGroup::Single, singleTags},
    {ZpxTagGroup::Array, arrayTags},
    {ZpxTagGroup::Option, optionTags},
    {ZpxTagGroup::OptionText, optionTextTags},
    {ZpxTagGroup::Typed, typedTags},
    {ZpxTagGroup::TextObject, textObjectTags},
    {ZpxTagGroup::SequenceItem, sequenceItemTags},
    {ZpxTagGroup::Prop, propTags},
    {ZpxTagGroup::Category, categoryTags},
    {ZpxTagGroup::Info, infoTags},
    {ZpxTagGroup::Root, rootTags},
    {ZpxTagGroup::Point2, point2Tags},
    {ZpxTagGroup::Point3, point3Tags},
};

// The attribute names, in token order.
// clang-format off
constexpr int attributeTable[] = {
    id_AdaptiveMesh, id_AffectViewingBox, id_Anchor, id_AnimationStyle, id_AntiAliased,
    id_ArrowLength, id_AutoPlay, id_AutoViewingBox, id_Axes, id_AxesInFront, id_AxesLineColor,
    id_AxesLineWidth, id_AxesTips, id_AxesTitleFont, id_BackgroundColor, id_BackgroundColor2,
    id_BackgroundStyle, id_BackgroundTransparent, id_Base, id_BaseDir, id_BaseRadius,
    id_Billboarding, id_BorderColor, id_BorderWidth, id_Bottom, id_BottomMargin,
    id_CameraCoordinates, id_Center, id_Closed, id_Columns, id_Consistent, id_CoordinateType,
    id_CurrentTime, id_Delta, id_DiscontinuitySearch, id_Dom, id_EndAngle, id_Enum, id_Extension,
    id_FaceDir, id_FillColor, id_FillColor2, id_FillColorDirectionX, id_FillColorDirectionY,
    id_FillColorDirectionZ, id_FillColorType, id_FillPattern, id_FillStyle, id_Filled,
    id_FocalPoint, id_FooterAlignment, id_FooterFont, id_Frames, id_From, id_GridInFront,
    id_GridLineColor, id_GridLineStyle, id_GridLineWidth, id_HasLineColors, id_HeaderAlignment,
    id_HeaderFont, id_Height, id_HorizontalAlignment, id_Info, id_InitialTime, id_KeepUpVector,
    id_Layout, id_Left, id_LeftMargin, id_LegendAlignment, id_LegendColor, id_LegendEntry,
    id_LegendFont, id_LegendPlacement, id_LegendVisible, id_LightColor, id_LightIntensity,
    id_Lighting, id_LineColor, id_LineColor2, id_LineColorDirectionX, id_LineColorDirectionY,
    id_LineColorDirectionZ, id_LineColorType, id_LineStyle, id_LineWidth, id_LinesVisible,
    id_MeshVisible, id_Name, id_Normal, id_Opt, id_OrthogonalProjection, id_OutputUnits, id_Param,
    id_Point1, id_Point2, id_PointColor, id_PointSize, id_PointStyle, id_PointsVisible,
    id_Position, id_Radius, id_Recalc, id_RightMargin, id_Row1, id_Row2, id_Row3, id_Rows,
    id_Scaling, id_SemiAxisX, id_SemiAxisY, id_SemiAxisZ, id_Shading, id_Shift, id_Spacing,
    id_SpotAngle, id_StartAngle, id_SubgridLineColor, id_SubgridLineStyle, id_SubgridLineWidth,
    id_Target, id_TextFont, id_TextRotation, id_TicksLabelFont, id_TicksLength, id_TimeBegin,
    id_TimeEnd, id_TipAngle, id_TipLength, id_TipStyle, id_TitleAlignment, id_TitleFont,
    id_TitlePositionX, id_TitlePositionY, id_TitlePositionZ, id_To, id_Top, id_TopMargin,
    id_TopRadius, id_TubeDiameter, id_Tubular, id_Type, id_ULinesVisible, id_UMesh, id_USubmesh,
    id_UpVector, id_UseXYLinesVisible, id_VLinesVisible, id_VMesh, id_VSubmesh, id_Val,
    id_VerticalAlignment, id_VerticalAsymptotesColor, id_VerticalAsymptotesStyle,
    id_VerticalAsymptotesVisible, id_VerticalAsymptotesWidth, id_ViewDirectional,
    id_ViewFocalPointX, id_ViewFocalPointY, id_ViewFocalPointZ, id_ViewKeepUpVector,
    id_ViewOrthogonalProjection, id_ViewPositionX, id_ViewPositionY, id_ViewPositionZ,
    id_ViewTranslationX, id_ViewTranslationY, id_ViewTranslationZ, id_ViewUpVectorX,
    id_ViewUpVectorY, id_ViewUpVectorZ, id_ViewViewingAngle, id_ViewXMax, id_ViewXMin, id_ViewYMax,
    id_ViewYMin, id_ViewingAngle, id_Visible, id_VisibleAfterEnd, id_VisibleBeforeBegin, id_Width,
    id_XAxisTitleAlignment, id_XAxisVisible, id_XGridVisible, id_XLinesVisible, id_XMax, id_XMesh,
    id_XMin, id_XSubgridVisible, id_XSubmesh, id_XTicksBetween, id_XTicksLabelStyle,
    id_XTicksLabelsVisible, id_XTicksNumber, id_XTicksVisible, id_YAxisTitleAlignment,
    id_YAxisTitleOrientation, id_YAxisVisible, id_YGridVisible, id_YLinesVisible, id_YMax,
    id_YMesh, id_YMin, id_YSubgridVisible, id_YSubmesh, id_YTicksBetween, id_YTicksLabelStyle,
    id_YTicksLabelsVisible, id_YTicksNumber, id_YTicksVisible, id_YXRatio, id_ZAxisTitleAlignment,
    id_ZAxisVisible, id_ZGridVisible, id_ZMax, id_ZMesh, id_ZMin, id_ZSubgridVisible,
    id_ZTicksBetween, id_ZTicksLabelStyle, id_ZTicksLabelsVisible, id_ZTicksNumber,
    id_ZTicksVisible, id_ZXRatio, id_id, id_version
};
// clang-format on

constexpr std::size_t countTags() {
    std::size_t n = 0;
    for (const GroupTags& row : groupTable) n += row.tags.size();
    return n;
}

// The group of each token id; ids that are no tag read as Plain, but never get past
// elementName() in a file.
struct TagInfo {
    std::array<ZpxTagGroup, tokenCount + 1> group{};
    std::array<bool, tokenCount + 1> isElement{};
    std::array<int, countTags()> elements{};
};

constexpr TagInfo makeTagInfo() {
    TagInfo info;
    for (ZpxTagGroup& g : info.group) g = ZpxTagGroup::Plain;
    for (const GroupTags& row : groupTable) {
        for (TokenId id : row.tags) {
            info.group[id] = row.group;
            info.isElement[id] = true;
        }
    }
    std::size_t n = 0;
    for (int id = 1; id <= tokenCount; ++id)
        if (info.isElement[id]) info.elements[n++] = id;
    return info;
}

constexpr TagInfo tagInfo = makeTagInfo();

constexpr std::array<bool, tokenCount + 1> makeAttributeSet() {
    std::array<bool, tokenCount + 1> set{};
    for (int id : attributeTable) set[id] = true;
    return set;
}

constexpr std::array<bool, tokenCount + 1> isAttribute = makeAttributeSet();

static_assert(std::size(tagInfo.elements) == 106, "the dialect has 106 tags");
static_assert(std::size(attributeTable) == 226, "the dialect has 226 attribute names");
static_assert(std::is_sorted(std::begin(attributeTable), std::end(attributeTable)) &&
                  std::adjacent_find(std::begin(attributeTable), std::end(attributeTable)) ==
                      std::end(attributeTable),
              "attribute names are listed once each, in token order");

} // namespace

ZpxTagGroup zpxTagGroup(int id) noexcept {
    return id > 0 && id <= tokenCount ? tagInfo.group[id] : ZpxTagGroup::Plain;
}

bool isZpxTag(int id) noexcept {
    return id > 0 && id <= tokenCount && tagInfo.isElement[id];
}

bool isZpxAttribute(int id) noexcept {
    return id > 0 && id <= tokenCount && isAttribute[id];
}

std::span<const int> zpxTags() noexcept {
    return tagInfo.elements;
}

std::span<const int> zpxAttributeNames() noexcept {
    return attributeTable;
}

} // namespace Grafel
