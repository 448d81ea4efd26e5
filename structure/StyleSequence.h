// The object styles an object can take its inherited values from, in the order they are asked,
// kept for as long as the document has not changed since they were collected.
#pragma once

#include <grafel/arbor/Document.h>
#include <grafel/properties/PlotElement.h>

#include <cstdint>
#include <vector>

namespace Grafel {

class ObjStyle;

/// Every ObjStyle that the style walk from an object passes (its own parent's level first, up
/// to the root, in document order within a level), each with its Type, and the object's own
/// Type. Collected on the first use after a change of the document that is not confined to
/// content leaves such as primitives (the document's structure count says when), and answered from
/// then on without walking the tree. Its answers are those of ObjStyle::findStyle and
/// ObjStyle::getInheritanceChain, reports and exceptions included: a style or object without Type
/// reports and throws exactly when the walk would ask it.
class StyleSequence {
public:
    StyleSequence() = default;
    /// A copy stands elsewhere in a tree: it starts empty.
    StyleSequence(const StyleSequence&) {}
    StyleSequence& operator=(const StyleSequence&) {
        stamp_ = 0;
        return *this;
    }

    /// The sequence for `object` (an Obj2d or Obj3d), collected anew when the document changed
    /// since the last use.
    const StyleSequence& of(const PlotElement* object) const {
        const Arbor::Document* document = object->ownerDocument();
        if (!document || stamp_ != document->structureCount() || object_ != object) collect(object);
        return *this;
    }

    /// The object's Type; reports and throws as the object's getType() when it has none.
    Arbor::Token ownType() const { return typed_ ? type_ : missingOwnType(); }
    /// As ObjStyle::findStyle(object, type, attribute, value) with the object's own type.
    ObjStyle* find(Arbor::Token attribute, const Arbor::Variant** value = nullptr) const;
    /// As ObjStyle::getInheritanceChain with the object's own type, then with Default.
    void appendChain(std::vector<PlotElement*>& chain) const;

private:
    struct Entry {
        ObjStyle* style;
        Arbor::Token type;
        bool typed; // false: the style has no Type, and asking it reports and throws
    };
    /// Type of `entry`, asked of the style itself when it has none (which throws).
    static Arbor::Token typeOf(const Entry& entry) {
        return entry.typed ? entry.type : missingType(entry);
    }
    static Arbor::Token missingType(const Entry& entry);
    Arbor::Token missingOwnType() const;
    void collect(const PlotElement* object) const;

    mutable std::uint64_t stamp_ = 0;
    mutable const PlotElement* object_ = nullptr;
    mutable Arbor::Token type_;
    mutable bool typed_ = false;
    mutable std::vector<Entry> entries_;
};

} // namespace Grafel
