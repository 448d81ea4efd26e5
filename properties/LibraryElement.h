// Addressable, named elements of the list family (canvases, scenes, coordinate systems,
// objects), and the style elements that give their siblings default values.
#pragma once

#include <grafel/properties/AttributeListElement.h>

namespace Grafel {

/// A list element with the attributes id, Name and Consistent. It hears of a change above it
/// when its own value passes through the changed element and it holds no value of its own; its
/// command form is "plot::NAME(" with its values and its child elements, then ")".
///
/// What a viewer can rely on: when a value is set, removed, or put back by undo or redo, every
/// element whose effective value of that property changed receives an AfterPropertyChangeEvent
/// for it, after the change (a removal tells each element that followed the removed value,
/// once). Some elements whose value stayed the same may hear of it as well.
class LibraryElement : public AttributeListElement {
public:
    bool afterAttributeChange(Arbor::Element* source, Arbor::Token name) override;
    void putCmd(CmdOStream& out) override;
    void getNextAnimationTime(double time, bool backward, double& next) override;
    /// Fills the element with its standard attributes and children, for a reader that builds
    /// a plot from bare data (the page fills in its style library); nothing by default.
    virtual void setDefaults() {}

    Tessel::FixedStringBase<char> getId() const;
    Tessel::FixedStringBase<wchar_t> getName() const;
    bool getConsistent() const;

    LibraryElement(const LibraryElement& other) = default;

protected:
    explicit LibraryElement(Arbor::Document* document) : AttributeListElement(document) {}
    void normalizeInheritingAttributes(Arbor::Token) override {}
    /// The word after "plot::"; the tag by default.
    virtual void putCmdName(CmdOStream& out);
};

/// A style: its values are the inherited defaults of its siblings (not its children), and it
/// has no children unless a class below admits some. Its command form writes each value as
/// "plot::TYPE::name=value", with TYPE from getCmdType(). A change of one of its values, undo
/// and redo included, is heard by the style and by every sibling, and element below one, whose
/// effective value changed with it, as for LibraryElement.
class StyleElement : public AttributeListElement {
public:
    bool isStyle() const override { return true; }
    bool afterAttributeChange(Arbor::Element* source, Arbor::Token name) override;
    void putCmd(CmdOStream& out) override;

    StyleElement(const StyleElement& other) = default;

protected:
    explicit StyleElement(Arbor::Document* document) : AttributeListElement(document) {}
    void normalizeInheritingAttributes(Arbor::Token name) override;
    bool allowedContentChild(Arbor::Token) const override { return false; }
    int tagNameToOptionChildFlag(Arbor::Token) const override { return 0; }
    int allowedOptionChildren() const override { return 0; }
    int mandatoryOptionChildren() const override { return 0; }
    /// The class word that prefixes the style's command text.
    virtual Arbor::Token getCmdType() = 0;
};

} // namespace Grafel
