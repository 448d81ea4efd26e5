#include <grafel/properties/ContentPlotElement.h>

namespace Grafel {

bool ContentPlotElement::allowedContentChild(Arbor::Node* child) const {
    return allowedContentChild(child->nodeName());
}

ChildRole ContentPlotElement::childRole(Arbor::Token tag) const {
    return allowedContentChild(tag) ? ChildRole::Content : ChildRole::None;
}

bool ContentPlotElement::mayReplaceChildren(Arbor::Node*, unsigned, Arbor::Node* newFirst) {
    for (Arbor::Node* n = newFirst; n; n = n->nextInChain())
        if (!allowedContentChild(n)) {
            domError("not a valid content child '%s' [parent '%s']\n", n->nodeName().text(),
                     nodeName().text());
            return false;
        }
    return true;
}

ChildRole OptionedPlotElement::childRole(Arbor::Token tag) const {
    const int flag = tagNameToOptionChildFlag(tag);
    if (flag == 0) return ContentPlotElement::childRole(tag);
    if (!(allowedOptionChildren() & flag)) return ChildRole::None;
    return mandatoryOptionChildren() & flag ? ChildRole::MandatoryOption : ChildRole::Option;
}

long OptionedPlotElement::remainingOptions(Arbor::Node* first, unsigned count) const {
    long present = optionChildren_;
    Arbor::Node* n = first;
    for (unsigned k = 0; k < count && n; ++k, n = n->nextSibling())
        present &= ~long(tagNameToOptionChildFlag(n->nodeName()));
    return present;
}

bool OptionedPlotElement::mayReplaceChildren(Arbor::Node* first, unsigned count,
                                             Arbor::Node* newFirst) {
    long present = remainingOptions(first, count);
    for (Arbor::Node* n = newFirst; n; n = n->nextInChain()) {
        const long flag = tagNameToOptionChildFlag(n->nodeName());
        if (flag == 0) {
            if (!allowedContentChild(n)) {
                domError("not a valid content child '%s' [parent '%s']\n", n->nodeName().text(),
                         nodeName().text());
                return false;
            }
        } else if (present & flag) {
            domError("option child '%s' defined twice [parent '%s']\n", n->nodeName().text(),
                     nodeName().text());
            return false;
        } else {
            present |= flag;
        }
    }
    if (present & ~long(allowedOptionChildren())) {
        domError("illegal option child [parent '%s']\n", nodeName().text());
        return false;
    }
    if ((present & mandatoryOptionChildren()) != mandatoryOptionChildren()) {
        domError("missing option child [parent '%s']\n", nodeName().text());
        return false;
    }
    return true;
}

void OptionedPlotElement::replaceChildrenRaw(Arbor::Node* first, unsigned count,
                                             Arbor::Node* newFirst) {
    long present = remainingOptions(first, count);
    for (Arbor::Node* n = newFirst; n; n = n->nextSibling())
        present |= tagNameToOptionChildFlag(n->nodeName());
    optionChildren_ = present;
    ContentPlotElement::replaceChildrenRaw(first, count, newFirst);
}

} // namespace Grafel
