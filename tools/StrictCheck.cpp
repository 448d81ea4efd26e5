#include "StrictCheck.h"

#include "Load.h"

#include <grafel/arbor/Variant.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/properties/PlotElement.h>
#include <grafel/properties/Property.h>

#include <algorithm>
#include <sstream>
#include <string>

namespace GrafelTool {

namespace {

using Arbor::Token;

/// Whether the text of a written number says it is not finite.
bool notFinite(const std::string& text) {
    return text.find("nan") != std::string::npos || text.find("inf") != std::string::npos ||
           text.find("NaN") != std::string::npos || text.find("Inf") != std::string::npos;
}

class Checker {
public:
    Checker(Grafel::PlotDocument& document, const Grafel::LoadResult& loaded, ReportScope& reports)
        : document_(document), loaded_(loaded), reports_(reports) {}

    void walk(Arbor::Node* node) {
        for (; node; node = node->nextSibling()) {
            if (auto* element = Grafel::PlotElement::from(node)) check(*element);
            walk(node->firstChild());
        }
    }
    std::size_t warnings() const { return warnings_; }

private:
    void check(Grafel::PlotElement& element) {
        const Token tag = element.nodeName();
        for (int id = 1; id <= Grafel::tokenCount; ++id) {
            const Token name = Grafel::getToken(id);
            if (!element.hasAttribute(name)) continue;
            const Grafel::Property* property = element.propertyInfo(name);
            if (!property) continue;
            const Arbor::Variant value = element.getAttribute(name);
            if (const auto* word = value.as<Arbor::TokenVariant>()) {
                if (name == Grafel::tok_Type && isTyped(tag))
                    checkType(element, word->val());
                else
                    checkWord(element, *property, word->val());
            } else if (!value.as<Arbor::FixedUStringVariant>() &&
                       !value.as<Arbor::FixedStringVariant>()) {
                std::ostringstream text;
                property->putXmlValue(text, value);
                if (notFinite(text.str()))
                    warn(element, "number not finite: " + std::string(name.c_str()) + "=\"" +
                                      text.str() + "\" [element '" + tag.c_str() + "']");
            }
        }
    }
    static bool isTyped(Token tag) {
        return tag == Grafel::tok_Obj2d || tag == Grafel::tok_Obj3d || tag == Grafel::tok_ObjStyle;
    }
    void checkWord(Grafel::PlotElement& element, const Grafel::Property& property, Token word) {
        const auto known = property.knownWords();
        if (known.empty()) return;
        if (std::any_of(known.begin(), known.end(),
                        [&](int id) { return Grafel::getToken(id) == word; }))
            return;
        warn(element, std::string("unknown word '") + word.c_str() + "' for '" +
                          property.name().c_str() + "' [element '" + element.nodeName().c_str() +
                          "']");
    }
    void checkType(Grafel::PlotElement& element, Token type) {
        // Known: the types the catalogue serves, Default for styles, and the types that have
        // no inspector list of their own but are made by the readers (Zpa's primitive lists)
        // or listed unserved (Plane).
        if (type == Grafel::tok_Default || type == Grafel::tok_Plane ||
            type == Grafel::tok_PrimitiveList2d || type == Grafel::tok_PrimitiveList3d ||
            document_.getStdObjType(type))
            return;
        warn(element, std::string("unknown object type '") + type.c_str() + "' [element '" +
                          element.nodeName().c_str() + "']");
    }
    void warn(const Grafel::PlotElement& element, const std::string& message) {
        const Grafel::SourcePosition at = loaded_.positionOf(&element);
        reports_.emitAt(at.line, at.column, "warning: " + message);
        ++warnings_;
    }

    Grafel::PlotDocument& document_;
    const Grafel::LoadResult& loaded_;
    ReportScope& reports_;
    std::size_t warnings_ = 0;
};

} // namespace

std::size_t strictCheck(Grafel::PlotDocument& document, const Grafel::LoadResult& loaded,
                        ReportScope& reports) {
    Checker checker(document, loaded, reports);
    checker.walk(document.documentElement());
    return checker.warnings();
}

} // namespace GrafelTool
