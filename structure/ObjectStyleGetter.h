// Typed reading of the resolved values of a plot object or an object style: one getter per
// property of the object tables, each answering what getProperty answers, without a copy.
#pragma once

#include <grafel/properties/AttributeListElement.h>
#include <grafel/structure/ObjectTables.h>

namespace Grafel {

namespace detail {

/// The getters of one table as a base of the getter class G, which names the element read.
/// A table per base lets a property that stands in two tables have a getter in each without a
/// clash; G picks one with a using-declaration.
#define GRAFEL_OBJECT_GETTER_SLICE_(Slice, TABLE)                                                  \
    template <class G> class Slice {                                                               \
    public:                                                                                        \
        GRAFEL_LIST_GETTERS(TABLE)                                                                 \
                                                                                                   \
    private:                                                                                       \
        const AttributeListElement* listElement_() const {                                         \
            return static_cast<const G*>(this)->listElement_();                                    \
        }                                                                                          \
    };

GRAFEL_OBJECT_GETTER_SLICE_(ObjectStyleGetters, GRAFEL_OBJECT_STYLE_TABLE)
GRAFEL_OBJECT_GETTER_SLICE_(Object2dStyleGetters, GRAFEL_OBJECT2D_STYLE_TABLE)
GRAFEL_OBJECT_GETTER_SLICE_(Object3dStyleGetters, GRAFEL_OBJECT3D_STYLE_TABLE)
GRAFEL_OBJECT_GETTER_SLICE_(ObjectGetters, GRAFEL_OBJECT_TABLE)

#undef GRAFEL_OBJECT_GETTER_SLICE_

} // namespace detail

/// Mixed into Obj2d, Obj3d and ObjStyle: `get` plus the name of each property of the object
/// tables. A getter reads through the element's own descriptors, so it resolves, defaults and
/// fails exactly as getProperty does there: a property that the element's class does not know
/// (getZMesh of an Obj2d) reports "unknown property" and throws DomException 15. Values that
/// are not small plain data come back by reference into the record or descriptor that holds
/// them, valid until the tree changes.
class ObjectStyleGetter : public detail::ObjectStyleGetters<ObjectStyleGetter>,
                          public detail::Object2dStyleGetters<ObjectStyleGetter>,
                          public detail::Object3dStyleGetters<ObjectStyleGetter>,
                          public detail::ObjectGetters<ObjectStyleGetter> {
public:
    /// Serves `element`, for good; `element` is the element this getter is part of.
    explicit ObjectStyleGetter(PlotElement* element) : elem(element) {}
    /// A copy would serve the wrong element: the class mixing this in passes its own `this`.
    ObjectStyleGetter(const ObjectStyleGetter&) = delete;
    /// Keeps the element served.
    ObjectStyleGetter& operator=(const ObjectStyleGetter&) { return *this; }

    /// The element served.
    PlotElement* thisElem() const { return elem; }
    /// The element whose values the getters read.
    const AttributeListElement* listElement_() const { return elem->asAttributeList(); }

    // In both dimension tables; either getter reads the row the element's class finds first.
    using detail::Object2dStyleGetters<ObjectStyleGetter>::getLineColorDirectionY;

protected:
    PlotElement* const elem;
};

} // namespace Grafel
