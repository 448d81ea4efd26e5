#include <grafel/structure/NestingLevel.h>

#include <grafel/foundation/ValueVariants.h>
#include <grafel/properties/Property.h>
#include <grafel/structure/detail/NestingWalk.h>

namespace Grafel {

using Arbor::Node;
using Arbor::Token;

NestingLevel* NestingLevel::from(Node* node) {
    // The tag turns nearly every node away at once; the cast confirms the few that remain.
    const Token tag = node->nodeName();
    if (tag == tok_Group2d || tag == tok_Group3d || tag == tok_Transform2d ||
        tag == tok_Transform3d)
        return dynamic_cast<NestingLevel*>(node);
    return nullptr;
}

bool NestingLevel::admitsSpaceObject(const Node* object) {
    const auto* element = PlotElement::from(const_cast<Node*>(object));
    if (!element || !element->hasAttribute(tok_Type)) return false;
    const Arbor::Variant type = element->getAttribute(tok_Type);
    const auto* token = type.as<Arbor::TokenVariant>();
    if (!token) return false;
    for (const Token& refused : {tok_Camera, tok_AmbientLight, tok_PointLight, tok_DistantLight,
                                 tok_SpotLight, tok_ClippingBox})
        if (token->val() == refused) return false;
    return true;
}

void NestingLevel::afterParentChangedNested() {
    refreshOwn();
    detail::walkNested(levelElement(), [](Node* n) {
        if (NestingLevel* level = from(n)) {
            level->refreshOwn();
            return true;
        }
        n->afterParentChanged();
        return false;
    });
}

void NestingLevel::normalizeOwn(Arbor::Element* source, Token name) {
    PlotElement* self = levelElement();
    if (Property* p = self->propertyInfo(name))
        p->normalizeAgainst(self, PlotElement::from(source));
}

void NestingLevel::normalizeNested(Arbor::Element* source, Token name) {
    normalizeOwn(source, name);
    detail::walkNested(levelElement(), [source, name](Node* n) {
        if (NestingLevel* level = from(n)) {
            level->normalizeOwn(source, name);
            return true;
        }
        if (PlotElement* e = PlotElement::from(n)) e->normalizeAttribute(source, name);
        return false;
    });
}

void NestingLevel::normalizeAllNested() {
    normalizeAllOwn();
    detail::walkNested(levelElement(), [](Node* n) {
        if (NestingLevel* level = from(n)) {
            level->normalizeAllOwn();
            return true;
        }
        if (PlotElement* e = PlotElement::from(n)) e->normalizeAttributes();
        return false;
    });
}

void NestingLevel::putCmdNested(CmdOStream& out) {
    auto close = [&out] {
        out << ')';
        out.endItem();
    };
    openCmd(out);
    detail::walkNested(
        levelElement(),
        [&out](Node* n) {
            if (NestingLevel* level = from(n)) {
                level->openCmd(out);
                return true;
            }
            if (PlotElement* e = PlotElement::from(n)) e->putCmd(out);
            return false;
        },
        [&close](Node*) { close(); });
    close();
}

void NestingLevel::stepNested(double time, bool backward, double& best) {
    if (!stepOwnFrames(time, backward, best)) return;
    detail::walkNested(levelElement(), [time, backward, &best](Node* n) {
        if (NestingLevel* level = from(n)) return level->stepOwnFrames(time, backward, best);
        // The frames of a transform have had their turn with the transform itself.
        const Token tag = n->nodeName();
        if (tag == tok_Tr2d || tag == tok_Tr3d) return false;
        if (PlotElement* e = PlotElement::from(n)) e->getNextAnimationTime(time, backward, best);
        return false;
    });
}

} // namespace Grafel
