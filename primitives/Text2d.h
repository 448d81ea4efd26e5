// A text in the plane: its text node children, placed at a point.
#pragma once

#include <grafel/primitives/PrimitiveClass.h>

#define GRAFEL_TEXT2D_TABLE(P)                                                                     \
    P(Mandatory, P2Property, Position, (P2(0, 0)), (P2(0, 0)))                                     \
    P(Optional, DoubleProperty, TextRotation, 0.0, 0.0)                                            \
    P(Inherited, HorizontalAlignmentType, HorizontalAlignment, ::Arbor::Token(),                   \
      getToken(id_Left))                                                                           \
    P(Inherited, VerticalAlignmentType, VerticalAlignment, ::Arbor::Token(),                       \
      getToken(id_BaseLine))                                                                       \
    P(Inherited, FontProperty, TextFont, FontStyle(), FontStyle::standard())

namespace Grafel {

/// The text of its text node children, in document order, at Position, turned by TextRotation
/// (radians). Its children are text nodes.
class Text2d : public ElementClass<Text2d, id_Text2d, PrimitiveBase> {
    friend ElementClass;
    GRAFEL_PRIMITIVE_TABLE(Text2d, GRAFEL_TEXT2D_TABLE, textAttributeFlags)

public:
    /// Allows any removal. An addition is allowed when its first node is a text node; only
    /// that one is looked at. Otherwise reports "not a text node child".
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    bool takesText() const override { return true; }

protected:
    explicit Text2d(Arbor::Document* document) : ElementClass(document) {}
};

} // namespace Grafel
