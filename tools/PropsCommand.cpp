// grafel props: the object-type catalogue as an inspector meets it. Prints the entry of one
// type as a tree of categories and properties, or as ZPX; with a document, shows beside each
// property the effective value of the first object of that type and where the value comes from.
#include "Arguments.h"
#include "Commands.h"
#include "Load.h"
#include "Output.h"

#include <grafel/arbor/Text.h>
#include <grafel/catalogue/PropCat.h>
#include <grafel/catalogue/PropInfo.h>
#include <grafel/catalogue/StdObjTypes.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/properties/PlotElement.h>
#include <grafel/properties/Property.h>
#include <grafel/structure/ObjType.h>
#include <grafel/tessel/Utf.h>

#include <algorithm>
#include <cctype>
#include <exception>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace GrafelTool {

namespace {

using Arbor::Node;
using Arbor::Token;
using Grafel::PlotElement;

constexpr std::string_view command = "props";

constexpr std::string_view help = R"(Usage: grafel props [--xml] [TYPE [INPUT]]

Prints what a property inspector shows for the object or element type TYPE: one line per
category, and under it one line per property, indented two spaces per level, with where the
value is kept (an attribute or option child, or Expr, ExprSeq, ColorFunc or Prop with the
option in parentheses), its value type, and "recalc" where a change makes the sampled data
stale. Without TYPE, lists the types there are.

With INPUT, a plot document ("-" for standard input), each property line also shows the
effective value for the first element of that type in INPUT, and where it comes from: the
element itself ("own"), a style ("ObjStyle Function2d at Canvas"), or the default.

Options:
  --xml        write the type's entry as a ZPX ObjType element instead
  -h, --help   show this help

Exit status: 0 success, 1 unknown type, INPUT not loaded or no such element in it,
2 wrong command line.
)";

constexpr OptionSpec specs[] = {{"xml", 0, false}};

std::string utf8(const wchar_t* text) {
    Tessel::FlexBuff<char> buffer;
    const long n = Tessel::utf16ToUtf8(text, -1, buffer);
    return std::string(buffer.data(), static_cast<std::size_t>(n > 0 ? n : 0));
}

Token tokenAttribute(Node* node, Token name) {
    const PlotElement* e = PlotElement::from(node);
    if (!e || !e->hasAttribute(name)) return {};
    const Arbor::Variant v = e->getAttribute(name);
    const auto* t = v.as<Arbor::TokenVariant>();
    return t ? t->val() : Token();
}

/// Edit distance of two names, letters compared without case.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool same = std::tolower(static_cast<unsigned char>(a[i - 1])) ==
                              std::tolower(static_cast<unsigned char>(b[j - 1]));
            const std::size_t next = std::min({row[j] + 1, row[j - 1] + 1, diagonal + !same});
            diagonal = row[j];
            row[j] = next;
        }
    }
    return row[b.size()];
}

/// Up to three served names nearest to `name`, nearest first, ties in list order.
std::string nearestNames(std::string_view name) {
    std::vector<std::pair<std::size_t, std::string>> ranked;
    for (Token t : Grafel::servedObjTypes())
        ranked.emplace_back(distance(name, t.text()), t.text());
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::string out;
    for (std::size_t i = 0; i < ranked.size() && i < 3; ++i)
        out += (i ? ", " : "") + ranked[i].second;
    return out;
}

/// The text content of an element: its text children, joined.
std::string textOf(Node* element) {
    std::string out;
    for (Node* c = element->firstChild(); c; c = c->nextSibling())
        if (Arbor::Text* text = c->asText()) out += utf8(text->data());
    return out;
}

/// How a style is named in the source column: its tag, its Type if it has one, and the tag of
/// the element it stands in.
std::string styleName(PlotElement* style) {
    std::string out = style->tagName().text();
    if (const Token type = tokenAttribute(style, Grafel::tok_Type); !type.isNull())
        out += std::string(" ") + type.text();
    if (Node* level = style->parentNode(); level && level->asElement())
        out += std::string(" at ") + level->nodeName().text();
    return out;
}

/// The effective value of one row for `element`, and where it comes from.
std::string valueOf(PlotElement* element, Grafel::PropInfo* info) {
    using namespace Grafel;
    const Token dom = info->getDom();
    const Token opt = info->getOpt();
    if (!opt.isNull()) {
        // Expr, ExprSeq, ColorFunc and Prop children, told apart by Opt.
        for (Node* c = element->firstChild(); c; c = c->nextSibling()) {
            if (c->nodeName() != dom || tokenAttribute(c, tok_Opt) != opt) continue;
            if (dom == tok_Prop) {
                const Arbor::Variant val = PlotElement::from(c)->getAttribute(tok_Val);
                const auto* s = val.as<Arbor::FixedUStringVariant>();
                return (s ? utf8(s->val().text()) : std::string()) + "  (own)";
            }
            return textOf(c) + "  (own)";
        }
        return "(none)";
    }
    if (Property* property = element->propertyInfo(dom)) {
        std::ostringstream value;
        try {
            property->putXmlValue(value, element->getProperty(dom));
        } catch (const std::exception&) {
            return "(cannot be read)";
        }
        // The descriptor writes ` Name="text"`; the text is what the inspector shows.
        std::string shown = value.str();
        const std::size_t open = shown.find("=\"");
        shown = open == std::string::npos || shown.size() < open + 3
                    ? std::string()
                    : shown.substr(open + 2, shown.size() - open - 3);
        std::string source = "default";
        if (element->hasAttribute(dom))
            source = "own";
        else if (PlotElement* from = element->inheritingFrom(dom))
            source = styleName(from);
        return shown + "  (" + source + ")";
    }
    for (Node* c = element->firstChild(); c; c = c->nextSibling()) {
        if (c->nodeName() != dom) continue;
        const std::string text = textOf(c);
        return (text.empty() ? std::string("(given)") : text) + "  (own)";
    }
    return "(none)";
}

void printTree(std::ostream& out, Node* node, int depth, PlotElement* element) {
    using namespace Grafel;
    const std::string indent(static_cast<std::size_t>(depth) * 2, ' ');
    for (Node* c = node->firstChild(); c; c = c->nextSibling()) {
        if (c->nodeName() == tok_PropCat) {
            out << indent << utf8(static_cast<PropCat*>(c->asElement())->getName().text()) << '\n';
            printTree(out, c, depth + 1, element);
            continue;
        }
        auto* info = static_cast<PropInfo*>(c->asElement());
        std::string line = indent + info->getDom().text();
        if (!info->getOpt().isNull()) line += std::string("(") + info->getOpt().text() + ")";
        if (!info->getType().isNull()) line += std::string(" ") + info->getType().text();
        if (info->getRecalc()) line += " recalc";
        if (element) line += " = " + valueOf(element, info);
        out << line << '\n';
    }
}

/// The first element, depth first, whose tag is `type` or whose Type is `type`.
PlotElement* findElement(Node* node, Token type) {
    for (Node* c = node->firstChild(); c; c = c->nextSibling()) {
        PlotElement* e = PlotElement::from(c);
        if (!e) continue;
        if (e->tagName() == type || (!e->isStyle() && e->tagName() != Grafel::tok_ObjType &&
                                     tokenAttribute(e, Grafel::tok_Type) == type))
            return e;
        if (PlotElement* inner = findElement(c, type)) return inner;
    }
    return nullptr;
}

} // namespace

int runProps(Words args) {
    ParsedArguments parsed;
    if (auto end = startCommand(command, help, args, specs, parsed)) return *end;
    if (parsed.operands.size() > 2) return usageError(command, "too many operands");
    const bool xml = parsed.has("xml");
    if (parsed.operands.empty()) {
        if (xml) return usageError(command, "--xml needs a TYPE");
        for (Token t : Grafel::servedObjTypes()) std::cout << t.text() << '\n';
        return ExitOk;
    }
    const std::string& name = parsed.operands.front();
    const Token type = Token::find(name.c_str());
    Grafel::ObjType* entry = type.isNull() ? nullptr : Grafel::getStdObjType(type);
    if (!entry) {
        std::cerr << "grafel props: unknown type '" << name << "'; nearest: " << nearestNames(name)
                  << '\n';
        return ExitFailed;
    }
    if (xml && parsed.operands.size() == 2) return usageError(command, "--xml takes no INPUT");
    std::ostringstream text;
    if (xml) {
        entry->putXml(text);
        text << '\n';
    } else if (parsed.operands.size() == 1) {
        printTree(text, entry, 0, nullptr);
    } else {
        const std::string& input = parsed.operands[1];
        ReportScope reports(displayName(input), std::cerr);
        Grafel::PlotDocument document;
        if (!loadDocument(document, input, {}, reports)) return ExitFailed;
        PlotElement* element = findElement(&document, type);
        if (!element) {
            reports.emit("error: no element of type " + name);
            return ExitFailed;
        }
        printTree(text, entry, 0, element);
    }
    return writeOutput(text.str(), "-") ? ExitOk : ExitFailed;
}

} // namespace GrafelTool
