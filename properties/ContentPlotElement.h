// Bases of elements that hold children: content children checked by tag, and option children,
// singletons that fill a fixed role and are tracked in a bit mask.
#pragma once

#include <grafel/properties/PlotElement.h>

namespace Grafel {

/// An element whose children a class admits by tag. A change is refused, with the report
/// "not a valid content child", when a new node is not admitted; what goes away is not looked at.
class ContentPlotElement : public PlotElement {
public:
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    ChildRole childRole(Arbor::Token tag) const override;
    ContentPlotElement(const ContentPlotElement& other) = default;

protected:
    explicit ContentPlotElement(Arbor::Document* document) : PlotElement(document) {}
    virtual bool allowedContentChild(Arbor::Node* child) const;
    virtual bool allowedContentChild(Arbor::Token tag) const = 0;
};

/// An element with option children (each maps to a bit by tag) beside its content children.
/// optionChildren holds the bits of the option children present and is kept by the raw child
/// change alone; a change must leave no option twice, none outside allowedOptionChildren() and
/// all of mandatoryOptionChildren().
class OptionedPlotElement : public ContentPlotElement {
public:
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    void replaceChildrenRaw(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    ChildRole childRole(Arbor::Token tag) const override;
    /// A copy stands without children, so it starts with no option child either.
    OptionedPlotElement(const OptionedPlotElement& other) : ContentPlotElement(other) {}
    /// Assigns values, not children: the option mask stays that of this element's children.
    OptionedPlotElement& operator=(const OptionedPlotElement& other) {
        ContentPlotElement::operator=(other);
        return *this;
    }

    /// The bits of the option children present.
    long optionChildren() const { return optionChildren_; }

protected:
    explicit OptionedPlotElement(Arbor::Document* document) : ContentPlotElement(document) {}
    /// The bit of an option child's tag; 0 for a content child.
    virtual int tagNameToOptionChildFlag(Arbor::Token tag) const = 0;
    virtual int allowedOptionChildren() const = 0;
    virtual int mandatoryOptionChildren() const = 0;

    long optionChildren_ = 0;

private:
    /// optionChildren without the flags of the `count` children from `first`.
    long remainingOptions(Arbor::Node* first, unsigned count) const;
};

} // namespace Grafel
