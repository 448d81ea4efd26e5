#include <grafel/structure/Scene3d.h>

#include <grafel/structure/LibraryTables.h>
#include <grafel/structure/detail/StyleLookup.h>

namespace Grafel {

using Arbor::Node;
using Arbor::Token;

PlotElement* Scene3d::inheritingFrom(Token name) const {
    return detail::holding(pageStyle(tok_Scene3dStyle), name);
}

void Scene3d::getInheritanceChain(std::vector<PlotElement*>& chain) const {
    if (PlotElement* style = pageStyle(tok_Scene3dStyle)) chain.push_back(style);
}

Property* Scene3d::propertyInfo(Token name) const {
    return findInTables<scenePropertyList, sceneStylePropertyList, scene3dStylePropertyList>(name);
}

bool Scene3d::allowedContentChild(Token tag) const {
    return tag == tok_CoordinateSystem3d || tag == tok_ObjStyle;
}

namespace {

/// The value of `name` held by the first ObjStyle of `type` that holds it, among the children
/// of `start` and then of each level above; null when there is none. Unlike the objects' walk
/// it starts at `start` itself, so the scene's own styles count.
const Arbor::BoolVariant* styleFlag(const Node* start, Token type, Token name) {
    for (const Node* level = start; level; level = level->parentNode())
        for (Node* n = level->firstChild(); n; n = n->nextSibling()) {
            if (n->nodeName() != tok_ObjStyle) continue;
            const PlotElement* style = PlotElement::from(n);
            const AttributeListElement* list = style ? style->asAttributeList() : nullptr;
            const Arbor::Variant* styleType = list ? list->findAttribute(tok_Type) : nullptr;
            const auto* typeToken = styleType ? styleType->as<Arbor::TokenVariant>() : nullptr;
            if (!typeToken || typeToken->val() != type) continue;
            if (const Arbor::Variant* value = list->findAttribute(name))
                if (const auto* flag = value->as<Arbor::BoolVariant>()) return flag;
        }
    return nullptr;
}

} // namespace

bool Scene3d::cameraFlag(Token name) const {
    const Arbor::BoolVariant* flag = styleFlag(this, tok_Camera, name);
    if (!flag) flag = styleFlag(this, tok_Default, name);
    return flag && flag->val();
}

bool Scene3d::getKeepUpVector() const {
    return cameraFlag(tok_KeepUpVector);
}

bool Scene3d::getOrthogonalProjection() const {
    return cameraFlag(tok_OrthogonalProjection);
}

} // namespace Grafel
