#include <grafel/structure/Obj3d.h>

#include <grafel/properties/ElementClass.h>

namespace Grafel {

using Arbor::Token;

PlotElement* Obj3d::create(Arbor::Document* document) {
    return new Obj3d(document);
}

Arbor::Node* Obj3d::cloneNode(bool deep) const {
    Obj3d* copy = new Obj3d(document_);
    copyAttributes(copy);
    if (deep) cloneChildren(copy);
    return copy;
}

Token Obj3d::tagName() const {
    return tok_Obj3d;
}

Property* Obj3d::propertyInfo(Token name) const {
    return findObjectProperty<objectStylePropertyList, object3dStylePropertyList,
                              objectPropertyList>(name);
}

bool Obj3d::allowedContentChild(Token tag) const {
    return tag == tok_Expr || tag == tok_ExprSeq || tag == tok_ColorFunc || tag == tok_Prop ||
           tag == tok_Img3d;
}

GRAFEL_REGISTER_ELEMENT_CLASS(Obj3d, ObjectBase);

} // namespace Grafel
