// A text in space: its text node children, placed at a point and turned by two directions.
#pragma once

#include <grafel/primitives/Rows3d.h>

#define GRAFEL_TEXT3D_TABLE(P)                                                                     \
    P(Mandatory, P3Property, Position, (P3(0, 0, 0)), (P3(0, 0, 0)))                               \
    P(Mandatory, P3Property, BaseDir, (P3(1, 0, 0)), (P3(1, 0, 0)))                                \
    P(Mandatory, P3Property, FaceDir, (P3(0, 0, 1)), (P3(0, 0, 1)))                                \
    P(Inherited, HorizontalAlignmentType, HorizontalAlignment, ::Arbor::Token(),                   \
      getToken(id_Left))                                                                           \
    P(Inherited, VerticalAlignmentType, VerticalAlignment, ::Arbor::Token(),                       \
      getToken(id_BaseLine))                                                                       \
    P(Inherited, FontProperty, TextFont, FontStyle(), FontStyle::standard())                       \
    P(Inherited, BoolProperty, Billboarding, true, true)

#define GRAFEL_TEXT3D_LAYOUT(F)                                                                    \
    F(Billboarding)                                                                                \
    F(Position) F(BaseDir) F(FaceDir) F(HorizontalAlignment) F(VerticalAlignment) F(TextFont)

namespace Grafel {

/// The text of its text node children, in document order, at Position, its baseline along
/// BaseDir and facing FaceDir; with Billboarding it faces the viewer instead. Its children are
/// text nodes.
class Text3d : public ElementClass<Text3d, id_Text3d, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE_ORDERED(Text3d, GRAFEL_TEXT3D_TABLE, GRAFEL_TEXT3D_LAYOUT,
                                    textAttributeFlags)

public:
    /// Allows any removal. An addition is allowed when its first node is a text node; only
    /// that one is looked at. Otherwise reports "not a text node child".
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    bool takesText() const override { return true; }

protected:
    explicit Text3d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
