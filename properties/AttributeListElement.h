// Elements with many properties of which few are set (canvases, scenes, coordinate systems,
// objects, styles): the explicit values are kept in a sorted list of records, and the
// descriptors only name and default them.
#pragma once

#include <grafel/properties/ContentPlotElement.h>

#include <algorithm>
#include <vector>

namespace Grafel {

/// One explicit value of a list element.
struct AttributeValue {
    Arbor::Token name;
    Arbor::Variant value;
};

/// Keeps its explicit values as records sorted by token word, descending, and resolves a
/// property as: the own record; no descriptor: "unknown property"; a Mandatory one that is not
/// set: "mandatory property ... missing"; an Inherited one: the element inheritingFrom() names;
/// else the descriptor's default. A record is stored for any name that passed
/// maySetAttribute, whatever its descriptor.
class AttributeListElement : public OptionedPlotElement {
public:
    Arbor::Variant getAttribute(Arbor::Token name) const override;
    bool hasAttribute(Arbor::Token name) const override;
    bool hasProperty(Arbor::Token name) const override;
    Arbor::Variant getProperty(Arbor::Token name) const override;
    void setProperty(Arbor::Token name, const Arbor::Variant& value) override;
    void normalizeAttribute(Arbor::Element* from, Arbor::Token name) override;
    void normalizeAttributes() override;
    void afterParentChanged() override;
    std::ostream& putAttributesXml(std::ostream& out) override;
    AttributeListElement* asAttributeList() override { return this; }

    /// The effective value without a copy: a record of this element or of the one it
    /// inherits from, or the descriptor's default. Reports and throws as getProperty does.
    /// When the source keeps its values elsewhere, the value is copied into a per-thread slot
    /// that the next call on the thread reuses.
    virtual const Arbor::Variant& propertyRef(Arbor::Token name) const;
    /// The own record's value, or null. Inline: the style walks make several per read.
    const Arbor::Variant* findAttribute(Arbor::Token name) const {
        auto it = lowerBound(name);
        return it != attributes_.end() && it->name == name ? &it->value : nullptr;
    }
    /// The records, sorted by token word, descending.
    const std::vector<AttributeValue>& attributes() const { return attributes_; }
    /// Gives `other` a copy of this element's records.
    void copyAttributes(AttributeListElement* other) const;
    /// The typed effective value of a property, without a copy where the value allows: the
    /// body of the typed getters.
    template <class VariantType> decltype(auto) typedProperty(Arbor::Token name) const {
        return static_cast<const VariantType&>(checkedRef<VariantType>(name)).val();
    }
    /// The element the typed getters of a table read (see ListTable.h).
    const AttributeListElement* listElement_() const { return this; }

    AttributeListElement(const AttributeListElement& other) = default;
    /// Takes the other's records; counts as a change of the document.
    AttributeListElement& operator=(const AttributeListElement& other);

protected:
    explicit AttributeListElement(Arbor::Document* document) : OptionedPlotElement(document) {}

    void setAttributeRaw(Arbor::Token name, const Arbor::Variant& value) override;
    void removeAttributeRaw(Arbor::Token name) override;
    /// After a set above, drops the explicit values below that became redundant.
    virtual void normalizeInheritingAttributes(Arbor::Token name) = 0;

private:
    /// The first record whose word is not above the name's (records descend by word).
    std::vector<AttributeValue>::const_iterator lowerBound(Arbor::Token name) const {
        return std::lower_bound(attributes_.begin(), attributes_.end(), name,
                                [](const AttributeValue& a, Arbor::Token t) { return a.name > t; });
    }
    /// propertyRef, falling back to the descriptor's default when the value has another class.
    template <class VariantType> const Arbor::Variant& checkedRef(Arbor::Token name) const {
        const Arbor::Variant& v = propertyRef(name);
        return v.is<VariantType>() ? v : defaultRef(name);
    }
    const Arbor::Variant& defaultRef(Arbor::Token name) const;
    /// Counts a change of the records in the document.
    void noteChange() const;

    std::vector<AttributeValue> attributes_;
};

} // namespace Grafel
