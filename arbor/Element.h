// An element of the tree: a named inner node with attributes, changed through the guarded,
// undoable attribute operations.
#pragma once

#include <grafel/arbor/InnerNode.h>
#include <grafel/arbor/Variant.h>

namespace Arbor {

/// Base of all elements. The kernel stores no attributes itself: a subclass decides where the
/// values live by replacing getAttribute/hasAttribute and the raw operations.
///
/// setAttribute(name, value) runs: readOnly() refuses; maySetAttribute() and then
/// beforeSetAttribute() may refuse (DomException InvalidAccessErr, nothing changes); the old
/// state is recorded when an undo task is open; setAttributeRaw() stores; then
/// afterSetAttribute(this, name) is called, and while it returns true the same call goes to each
/// child element, downwards (the "after walk"). removeAttribute() is the same with the remove
/// hooks, and is bracketed by beforeRemoval() and afterRemoval(), as is every replay of a
/// removal by undo or redo.
class Element : public InnerNode {
public:
    long nodeType() const override { return ElementNode; }
    Token nodeName() const override { return tagName(); }
    Element* asElement() override { return this; }
    /// Open tag, putAttributesXml(), the children, close tag.
    std::ostream& putXml(std::ostream& out) override;

    virtual Token tagName() const = 0;
    /// The stored value, or an empty variant.
    virtual Variant getAttribute(Token name) const;
    virtual void setAttribute(Token name, const Variant& value);
    virtual void removeAttribute(Token name);
    virtual bool hasAttribute(Token name) const;
    /// A number by which a family of element classes recognises its own members cheaply,
    /// without run-time type information; 0 for the kernel's own.
    virtual int elementFamily() const { return 0; }

protected:
    explicit Element(Document* document) : InnerNode(document) {}

public:
    Element(const Element& other) : InnerNode(other) {}
    Element& operator=(const Element&) { return *this; }

protected:
    virtual bool maySetAttribute(Token name, const Variant& value);
    virtual bool mayRemoveAttribute(Token name);
    virtual void setAttributeRaw(Token name, const Variant& value);
    virtual void removeAttributeRaw(Token name);
    virtual bool beforeSetAttribute(Element* source, Token name, const Variant& value);
    virtual bool afterSetAttribute(Element* source, Token name);
    virtual bool beforeRemoveAttribute(Element* source, Token name);
    virtual bool afterRemoveAttribute(Element* source, Token name);
    /// Called on the element whose `name` is about to go, while the value is still there, and
    /// again once the after walk of its removal has ended; a replayed removal is bracketed the
    /// same way and cannot be refused. Lets an element find out who followed the value before
    /// the question can no longer be asked. The kernel's do nothing.
    virtual void beforeRemoval(Token name);
    virtual void afterRemoval(Token name);
    /// In place of afterRemoval() when the after walk ended by an exception: forgets what
    /// beforeRemoval() prepared, without telling anyone.
    virtual void removalAbandoned(Token name) noexcept;
    /// Writes the attributes inside the open tag; the kernel's writes none.
    virtual std::ostream& putAttributesXml(std::ostream& out);

    /// The after walk of setAttribute, from this element down, with `source` as the element on
    /// which the attribute changed.
    void walkAfterSet(Element* source, Token name);
    /// The after walk of removeAttribute.
    void walkAfterRemove(Element* source, Token name);
    /// Removes the attribute and runs the after walk, bracketed by beforeRemoval() and
    /// afterRemoval() (or removalAbandoned()): removeAttribute() and the replay of a removal by
    /// undo or redo share it.
    void removeAndWalk(Token name);

private:
    friend class Document;
};

} // namespace Arbor
