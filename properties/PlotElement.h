// The base of all element classes of a plot: it gives the kernel's attribute hooks their
// meaning through the class's property descriptors, and adds property access with inheritance,
// normalisation, command output and the animation clock.
#pragma once

#include <grafel/arbor/Element.h>
#include <grafel/foundation/CmdOStream.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/properties/ChildRole.h>
#include <grafel/properties/ElementDocument.h>

#include <vector>

namespace Grafel {

class AttributeListElement;
class Property;

/// An attribute is a value stated on this element; a property is the effective value (stated,
/// inherited or default). Every operation by name first finds the descriptor with
/// propertyInfo(); a name without one reports "unknown property" and throws DomException 15
/// where a value is needed, and answers false where a question is asked.
class PlotElement : public Arbor::Element {
public:
    Arbor::Variant getAttribute(Arbor::Token name) const override;
    bool hasAttribute(Arbor::Token name) const override;

protected:
    bool maySetAttribute(Arbor::Token name, const Arbor::Variant& value) override;
    bool mayRemoveAttribute(Arbor::Token name) override;
    void setAttributeRaw(Arbor::Token name, const Arbor::Variant& value) override;
    void removeAttributeRaw(Arbor::Token name) override;
    bool afterSetAttribute(Arbor::Element* source, Arbor::Token name) override;
    bool afterRemoveAttribute(Arbor::Element* source, Arbor::Token name) override;
    /// While observers listen and the value is still here, runs the change walk of a set of it
    /// without firing, to learn which elements follow it; they hear of the removal once its
    /// walk has ended, each once, whatever the walk after the removal told them.
    void beforeRemoval(Arbor::Token name) override;
    void afterRemoval(Arbor::Token name) override;
    void removalAbandoned(Arbor::Token name) noexcept override;

public:
    /// Reads the value from UTF-8 text through the descriptor and sets it.
    virtual void setAttributeString(Arbor::Token name, const char* text);
    /// Whether the class has the property at all.
    virtual bool hasProperty(Arbor::Token name) const;
    virtual Arbor::Variant getProperty(Arbor::Token name) const;
    /// Sets the value taking inheritance into account, then lets each child element drop a
    /// value that became redundant.
    virtual void setProperty(Arbor::Token name, const Arbor::Variant& value);
    virtual bool isPropertyEnabled(Arbor::Token name) const;
    /// The nearest element that holds `name` explicitly and whose value this one inherits, or
    /// null.
    virtual PlotElement* inheritingFrom(Arbor::Token name) const;
    /// Appends all candidates to inherit from, nearest first, whether they hold a value or not.
    virtual void getInheritanceChain(std::vector<PlotElement*>& chain) const;
    /// The descriptor of `name` in this class, or null.
    virtual Property* propertyInfo(Arbor::Token name) const;
    virtual bool isStyle() const { return false; }
    /// Follows a change of `name` on `source` (this element or one it inherits from); answers
    /// whether the change goes on to the children.
    virtual bool afterAttributeChange(Arbor::Element* source, Arbor::Token name);
    /// Drops an explicit `name` that equals what `from` gives.
    virtual void normalizeAttribute(Arbor::Element* from, Arbor::Token name);
    /// Drops every redundant explicit value here and below.
    virtual void normalizeAttributes();
    /// A hook for an assembled tree; the base passes it on to the child elements.
    virtual void fixupTree();
    /// Writes the element as command text; the base writes nothing.
    virtual void putCmd(CmdOStream& out);
    /// Narrows `next` to the next time at which something changes; the base leaves it.
    virtual void getNextAnimationTime(double time, bool backward, double& next);
    /// The time at which this element is shown as one frame of an animation whose parameter
    /// runs from `paramBegin` to `paramEnd` while the time runs from `timeBegin` to `timeEnd`.
    /// NaN for an element that is no frame, which is what the base answers. The frames (images
    /// and the frames of a transform) live in layers above the elements that step through them.
    virtual double getFrameTime(double timeBegin, double timeEnd, double paramBegin,
                                double paramEnd);

    /// What a child element tagged `tag` would be here: the rule mayReplaceChildren applies,
    /// answered from the tag alone. Where the rule also looks at the child (a 3D group refuses a
    /// camera or light object), Content says that some children of the tag are admitted.
    /// The base admits none.
    virtual ChildRole childRole(Arbor::Token tag) const;
    /// How many content children this element holds, where its class fixes the number.
    virtual ChildCount contentCount() const { return {}; }
    /// Whether the children are text nodes: the element's text.
    virtual bool takesText() const { return false; }

    /// `node` as a plot element, or null: the cheap form of a dynamic_cast.
    static PlotElement* from(Arbor::Node* node) {
        Arbor::Element* e = node ? node->asElement() : nullptr;
        return e && e->elementFamily() == family ? static_cast<PlotElement*>(e) : nullptr;
    }
    int elementFamily() const final { return family; }
    /// This element as a list element, or null.
    virtual AttributeListElement* asAttributeList() { return nullptr; }
    const AttributeListElement* asAttributeList() const {
        return const_cast<PlotElement*>(this)->asAttributeList();
    }

    /// The owning document.
    ElementDocument* plotDocument() const { return static_cast<ElementDocument*>(document_); }
    /// Reports through the document; silent without one.
    void domError(const char* format, ...) const __attribute__((format(printf, 2, 3)));
    /// Reports as domError() and throws DomException `code` carrying the message.
    [[noreturn]] void refuse(long code, const char* format, ...) const
        __attribute__((format(printf, 3, 4)));
    /// Whether this element's inherited value of `name` passes through `element`.
    bool inheritingElement(Arbor::Element* element, Arbor::Token name) const;
    /// afterAttributeChange here and, while it answers true, on the child elements below.
    void propagateAfterAttributeChange(Arbor::Element* source, Arbor::Token name);
    /// Fires AfterPropertyChangeEvent(this, name) through the document. Nothing is made
    /// without observers; while a removal of `name` is under way, an element that followed the
    /// removed value is told at the end of it instead.
    void fireAfterPropertyChange(Arbor::Token name);

    PlotElement(const PlotElement& other) : Arbor::Element(other) {}
    PlotElement& operator=(const PlotElement&) { return *this; }

protected:
    explicit PlotElement(Arbor::Document* document) : Arbor::Element(document) {}
    static constexpr int family = 0x506c6f74;

    /// The kernel's child change; each element that came in then normalizes its attributes, so
    /// that a subtree moved into place loses the values that are redundant there.
    void replaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst);
    void afterReplaceChildren(Arbor::Node* newFirst, unsigned count) override;

    /// Whether every node of the chain from `newFirst` is a content child by childRole(): the
    /// whole rule of a class whose children are all of one kind.
    bool contentOnly(Arbor::Node* newFirst) const;

    /// The descriptor of `name`, or the "unknown property" report and DomException 15.
    Property* requireProperty(Arbor::Token name) const;
};

} // namespace Grafel
