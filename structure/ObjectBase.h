// The common part of the plot objects Obj2d and Obj3d: an element whose Type names what it
// plots, whose look comes from the object styles of that type above it, and whose children
// are its expressions, options and computed images.
#pragma once

#include <grafel/foundation/Rgba.h>
#include <grafel/properties/LibraryElement.h>
#include <grafel/properties/OptionChildTable.h>
#include <grafel/structure/ObjectStyleGetter.h>
#include <grafel/structure/StyleSequence.h>

#include <vector>

namespace Grafel {

/// A plot object. A style value is never copied into it: an absent value is looked up at each
/// read, first among the ObjStyle elements of its own Type from its parent's level up to the
/// root, then among those of type Default, and is otherwise the default of the object's own
/// descriptor. The styles that this lookup can meet are kept (StyleSequence) until the document
/// next changes other than among its primitives, so that a read does not walk the tree; their
/// values are still read from the styles themselves. Reading an inherited value, or writing the
/// command form, needs Type: without it the read reports "mandatory property 'Type' missing" and
/// throws DomException 15.
class ObjectBase : public LibraryElement, public ObjectStyleGetter {
public:
    ObjectBase(const ObjectBase& other);
    ObjectBase& operator=(const ObjectBase& other);

    /// The nearest ObjStyle of the object's Type that holds `name`, else the nearest of type
    /// Default that does, else null. Final, since propertyRef() follows the same walk directly.
    PlotElement* inheritingFrom(Arbor::Token name) const final;
    /// As for every list element, but an inherited value comes from the record that the style
    /// walk found, without asking the style again.
    const Arbor::Variant& propertyRef(Arbor::Token name) const override;
    /// Every ObjStyle of the object's Type above it, then every one of type Default.
    void getInheritanceChain(std::vector<PlotElement*>& chain) const override;
    /// Of an object, the style walk reads the Type only: an edit of any other value keeps
    /// every object's collected styles.
    bool attributeShapesTree(Arbor::Token name) const override { return name == tok_Type; }

    /// The colour that the legend shows: the value of the property that LegendColor names.
    /// False, with `out` unchanged, when LegendColor names no property of this object (the null
    /// default included) or one whose value is not a colour.
    bool getLegendColor(RGBA& out) const;
    /// The values of the ParameterBegin and ParameterEnd children, in child order. False when
    /// either is missing, or as soon as one of them is NaN (which is then left in its argument).
    bool getParameterRange(double& begin, double& end) const;
    /// Narrows `best` to the time of the first image after `time` (backward: the last before
    /// it), the images being placed on the resolved TimeBegin to TimeEnd by their Param within
    /// the parameter range. The images are taken to stand in rising time order: the first one
    /// beyond `time` ends the walk. An image without a time is passed over; an object without
    /// a complete time or parameter range, or whose span lies behind `time`, adds nothing.
    void getNextAnimationTime(double time, bool backward, double& best) override;

    // LibraryElement and the table getters both read id, Name and Consistent, to the same
    // effect. LibraryElement's are taken: they are the interface of every library element, and
    // a string comes back as a value that outlives a later change of the attribute.
    using LibraryElement::getConsistent;
    using LibraryElement::getId;
    using LibraryElement::getName;
    using ObjectStyleGetter::getLegendColor;
    // Both bases can name the element the table getters read; it is this one either way.
    using LibraryElement::listElement_;

protected:
    explicit ObjectBase(Arbor::Document* document);

    /// The option children of both dimensions; what a class admits is its allowedOptionChildren.
    int tagNameToOptionChildFlag(Arbor::Token tag) const override;
    /// After a set on this object, lets each child element drop a value equal to the new one.
    void normalizeInheritingAttributes(Arbor::Token name) override;
    /// The value of Type: an object is written as "plot::" and its type.
    void putCmdName(CmdOStream& out) override;

    /// The option children of objects of both dimensions.
    static constexpr OptionChildTable optionChildFlags{{
        {id_ParameterName, 1},
        {id_ParameterBegin, 2},
        {id_ParameterEnd, 4},
        {id_Title, 32},
        {id_TitlePositionX, 64},
        {id_TitlePositionY, 128},
        {id_TitlePositionZ, 256},
        {id_LegendText, 512},
        {id_Points2d, 1024},
        {id_Points3d, 2048},
        {id_TextOrientation, 4096},
    }};
    /// The option children both dimensions admit.
    static constexpr int commonOptionChildren =
        optionChildFlags.mask(id_ParameterName, id_ParameterBegin, id_ParameterEnd, id_Title,
                              id_TitlePositionX, id_TitlePositionY, id_LegendText);

private:
    /// The styles above, as the style walk meets them; the reads ask these instead of walking.
    StyleSequence styles_;
};

} // namespace Grafel
