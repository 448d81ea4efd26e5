// The style of one object type (or of all, with type Default): its values are the inherited
// defaults of the objects that stand beside it and below its siblings.
#pragma once

#include <grafel/properties/LibraryElement.h>
#include <grafel/structure/ObjectStyleGetter.h>

#include <algorithm>
#include <vector>

namespace Grafel {

/// An object style. It takes every style property of both dimensions, but none that belongs
/// to an object alone; where the two dimensions disagree on a default (LineColorDirectionY) it
/// has the 2D one. A style that lacks a value takes it from the styles of its own type at the
/// levels above its parent, then from those of type Default; it never sees its siblings.
/// It has no children.
class ObjStyle : public StyleElement, public ObjectStyleGetter {
public:
    ObjStyle(const ObjStyle& other);

    /// Copies the attributes; a style has no children, so `deep` does not matter.
    Arbor::Node* cloneNode(bool deep) const override;
    Arbor::Token tagName() const override;
    /// The style of its own type above its parent that holds `name`, else the nearest Default
    /// one; a Default style looks at Default ones only. Null without a parent.
    PlotElement* inheritingFrom(Arbor::Token name) const override;
    /// The styles above its parent that inheritingFrom() could answer, its own type first.
    void getInheritanceChain(std::vector<PlotElement*>& chain) const override;
    /// Of a style, the style walk reads the Type only: an edit of any other value keeps every
    /// object's collected styles.
    bool attributeShapesTree(Arbor::Token name) const override { return name == tok_Type; }
    Property* propertyInfo(Arbor::Token name) const override;
    /// Each value but Type as "plot::TYPE::name=value", or as "name=value" for type Default.
    void putCmd(CmdOStream& out) override;

    /// The first ObjStyle of `type` that holds `attribute`, among the children of the levels
    /// from the parent of `start` up to the root, nearest level first and in document order
    /// within a level. Levels named Transform2d or Transform3d are passed over: a transform
    /// holds no styles. Null when there is none.
    static ObjStyle* findInherited(Arbor::Node* start, Arbor::Token type, Arbor::Token attribute);
    /// What findInherited(start, type, attribute) answers, else what findInherited(start, Default,
    /// attribute) answers, in one walk; `value`, when given, receives the style's record of
    /// `attribute` (null with no style). A style without Type, when met, reports and throws as
    /// the two walks would.
    static ObjStyle* findStyle(Arbor::Node* start, Arbor::Token type, Arbor::Token attribute,
                               const Arbor::Variant** value = nullptr);
    /// Appends every ObjStyle of `type` that findInherited() from `start` would look at, in the
    /// order met. `chain` is not cleared.
    static void getInheritanceChain(Arbor::Node* start, Arbor::Token type,
                                    std::vector<PlotElement*>& chain);

    /// A new style for `document`; the caller takes the first reference.
    static PlotElement* create(Arbor::Document* document);

    // Both bases can name the element the table getters read; it is this one either way.
    using StyleElement::listElement_;

protected:
    explicit ObjStyle(Arbor::Document* document);

    /// The type word of the command form: the value of Type.
    Arbor::Token getCmdType() override;
};

} // namespace Grafel
