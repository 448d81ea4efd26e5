#include <grafel/structure/SceneBase.h>

#include <grafel/properties/Property.h>
#include <grafel/structure/detail/StyleLookup.h>

namespace Grafel {

using Arbor::Token;

SceneBase::SceneBase(Arbor::Document* document)
    : LibraryElement(document), SceneStyleGetter(this) {}

SceneBase::SceneBase(const SceneBase& other) : LibraryElement(other), SceneStyleGetter(this) {}

SceneBase& SceneBase::operator=(const SceneBase& other) {
    LibraryElement::operator=(other);
    return *this;
}

int SceneBase::tagNameToOptionChildFlag(Token tag) const {
    return optionChildFlags.flagOf(tag);
}

PlotElement* SceneBase::pageStyle(Token styleTag) const {
    return detail::styleAt(parent_, styleTag);
}

void SceneBase::setPositionRelative(bool relative, double width, double height) {
    // Written so that a NaN page size is passed over too.
    if (!(width > 0) || !(height > 0)) return;
    double bottom = getBottom(), left = getLeft();
    double sceneHeight = getHeight(), sceneWidth = getWidth();
    if (relative) {
        left /= width;
        sceneWidth /= width;
        bottom /= height;
        sceneHeight /= height;
    } else {
        left *= width;
        sceneWidth *= width;
        bottom *= height;
        sceneHeight *= height;
    }
    setProperty(tok_Bottom, Arbor::DoubleVariant(bottom));
    setProperty(tok_Left, Arbor::DoubleVariant(left));
    setProperty(tok_Height, Arbor::DoubleVariant(sceneHeight));
    setProperty(tok_Width, Arbor::DoubleVariant(sceneWidth));
}

void SceneBase::putCmd(CmdOStream& out) {
    // Under a Relative page the place is a fraction, which no unit applies to.
    bool relative = false;
    if (parent_ && parent_->nodeName() == tok_Canvas)
        if (PlotElement* page = PlotElement::from(parent_); page && page->hasProperty(tok_Layout)) {
            const Arbor::Variant layout = page->getProperty(tok_Layout);
            const auto* word = layout.as<Arbor::TokenVariant>();
            relative = word && word->val() == tok_Relative;
        }
    out.beginItem();
    out << "plot::" << nodeName() << '(';
    out.putNl();
    for (const AttributeValue& a : attributes()) {
        if (a.name == tok_Bottom || a.name == tok_Left) {
            const auto* value = a.value.as<Arbor::DoubleVariant>();
            if (!value) continue;
            out.beginItem();
            out << a.name << '=';
            if (relative)
                out << value->val();
            else
                out.putSize(value->val());
            out.endItem();
        } else if (Property* p = propertyInfo(a.name)) {
            p->putCmdValue(out, a.value);
        }
    }
    for (Arbor::Node* n = firstChild(); n; n = n->nextSibling())
        if (auto* child = PlotElement::from(n)) child->putCmd(out);
    out << ')';
    out.endItem();
}

} // namespace Grafel
