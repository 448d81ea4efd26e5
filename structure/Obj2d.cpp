#include <grafel/structure/Obj2d.h>

#include <grafel/properties/ElementClass.h>

namespace Grafel {

using Arbor::Token;

PlotElement* Obj2d::create(Arbor::Document* document) {
    return new Obj2d(document);
}

Arbor::Node* Obj2d::cloneNode(bool deep) const {
    Obj2d* copy = new Obj2d(document_);
    copyAttributes(copy);
    if (deep) cloneChildren(copy);
    return copy;
}

Token Obj2d::tagName() const {
    return tok_Obj2d;
}

Property* Obj2d::propertyInfo(Token name) const {
    return findObjectProperty<objectStylePropertyList, object2dStylePropertyList,
                              objectPropertyList>(name);
}

bool Obj2d::allowedContentChild(Token tag) const {
    return tag == tok_Expr || tag == tok_ExprSeq || tag == tok_ColorFunc || tag == tok_Prop ||
           tag == tok_Img2d;
}

GRAFEL_REGISTER_ELEMENT_CLASS(Obj2d, ObjectBase);

} // namespace Grafel
