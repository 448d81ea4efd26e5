// grafel classes: a reference of every element class the library registers, read from the class
// tables themselves, so that it cannot fall behind them: tag, base, the children it admits, and
// each property with its kind, family, value type, default and typed getter.
#include "Arguments.h"
#include "Commands.h"
#include "Output.h"

#include <grafel/arbor/Node.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/foundation/ValueVariants.h>
#include <grafel/properties/ElementRegistry.h>
#include <grafel/properties/PlotElement.h>
#include <grafel/properties/Property.h>

#include <cxxabi.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace GrafelTool {

namespace {

using Arbor::Token;

constexpr std::string_view command = "classes";

constexpr std::string_view help = R"(Usage: grafel classes [--markdown] [-o FILE]

Lists every element class of the library, sorted by tag: the class it builds on, the children
it admits (content children, option children, mandatory option children, how many where the
number is fixed, or text), and for each property its kind (Mandatory, Optional or Inherited), where the value is kept ("member" of the
element, "list" record or plain "attribute"), its value type, its default as written in ZPX,
and the typed getter that reads its effective value. Without --markdown, a tab-separated line
for each class (tag, base, children) and one for each property.

Options:
  --markdown      write the reference as a Markdown document
  -o, --output F  write to F instead of standard output
  -h, --help      show this help

Exit status: 0 success, 1 the output could not be written, 2 wrong command line.
)";

constexpr OptionSpec specs[] = {{"markdown", 0, false}, {"output", 'o', true}};

struct PropertyRow {
    std::string name, kind, family, type, defaultText, getter;
};

/// The children a class admits, by role, each list in tag order.
struct ChildRows {
    std::vector<std::string> content, options, mandatory;
    Grafel::ChildCount count;
    bool text = false;
};

struct ClassRow {
    std::string tag, base;
    ChildRows children;
    std::vector<PropertyRow> properties;
};

/// A C++ type's name as its code spells it, without the library's namespace.
std::string className(const std::type_info* type) {
    if (!type) return "";
    int status = 0;
    std::unique_ptr<char, void (*)(void*)> name(
        abi::__cxa_demangle(type->name(), nullptr, nullptr, &status), std::free);
    std::string out = status == 0 && name ? name.get() : type->name();
    for (std::size_t at; (at = out.find("Grafel::")) != std::string::npos;) out.erase(at, 8);
    return out;
}

std::string kindName(const Grafel::Property& p) {
    return p.isMandatory() ? "Mandatory" : p.isInherited() ? "Inherited" : "Optional";
}

/// The value type of a descriptor, told by the class of its default.
std::string valueType(const Arbor::Variant& v) {
    using namespace Arbor;
    if (v.is<DoubleVariant>()) return "double";
    if (v.is<LongVariant>()) return "long";
    if (v.is<BoolVariant>()) return "bool";
    if (v.is<TokenVariant>()) return "token";
    if (v.is<Grafel::RGBAVariant>()) return "color";
    if (v.is<Grafel::P2Variant>()) return "P2";
    if (v.is<Grafel::P3Variant>()) return "P3";
    if (v.is<Grafel::FontStyleVariant>()) return "font";
    if (v.is<FixedStringVariant>()) return "string";
    if (v.is<FixedUStringVariant>()) return "text";
    return "?";
}

/// The default as ZPX writes it: the text between the quotes of ` Name="..."`, empty for a
/// default that writes nothing (a null word, a NaN).
std::string defaultText(const Grafel::Property& p) {
    std::ostringstream out;
    p.putXmlValue(out, p.defaultRef());
    const std::string written = out.str();
    const std::size_t open = written.find("=\"");
    if (open == std::string::npos || written.size() < open + 3) return "";
    return written.substr(open + 2, written.size() - open - 3);
}

/// What `element` admits, asked of every registered tag.
ChildRows childRows(const Grafel::PlotElement& element) {
    ChildRows rows;
    rows.count = element.contentCount();
    rows.text = element.takesText();
    for (int id = 1; id <= Grafel::tokenCount; ++id) {
        if (!Grafel::elementMaker(id)) continue;
        const Token tag = Grafel::getToken(id);
        switch (element.childRole(tag)) {
        case Grafel::ChildRole::None:
            break;
        case Grafel::ChildRole::Content:
            rows.content.emplace_back(tag.text());
            break;
        case Grafel::ChildRole::Option:
            rows.options.emplace_back(tag.text());
            break;
        case Grafel::ChildRole::MandatoryOption:
            rows.mandatory.emplace_back(tag.text());
            break;
        }
    }
    for (auto* list : {&rows.content, &rows.options, &rows.mandatory})
        std::sort(list->begin(), list->end());
    return rows;
}

std::vector<ClassRow> registeredClasses() {
    Grafel::PlotDocument document;
    std::vector<ClassRow> classes;
    for (int id = 1; id <= Grafel::tokenCount; ++id) {
        if (!Grafel::elementMaker(id)) continue;
        const Token tag = Grafel::getToken(id);
        Arbor::Ref<Grafel::PlotElement> element(document.createPlotElement(tag));
        if (!element) continue;
        ClassRow row{tag.text(), className(Grafel::elementBase(id)), childRows(*element), {}};
        // Descriptors are found by name only: every token is asked.
        for (int p = 1; p <= Grafel::tokenCount; ++p) {
            const Grafel::Property* d = element->propertyInfo(Grafel::getToken(p));
            if (!d) continue;
            const Grafel::PropertyOrigin& origin = d->origin();
            // A descriptor declared outside a table keeps a plain attribute, with no getter.
            const std::string family = *origin.family ? origin.family : "attribute";
            row.properties.push_back({d->name().text(), kindName(*d), family,
                                      valueType(d->defaultRef()), defaultText(*d), origin.getter});
        }
        std::sort(row.properties.begin(), row.properties.end(),
                  [](const PropertyRow& a, const PropertyRow& b) { return a.name < b.name; });
        classes.push_back(std::move(row));
    }
    std::sort(classes.begin(), classes.end(),
              [](const ClassRow& a, const ClassRow& b) { return a.tag < b.tag; });
    return classes;
}

/// A table cell: a pipe would end it, and an empty cell reads as a dash.
std::string cell(const std::string& text, bool code) {
    if (text.empty()) return "–";
    std::string out;
    for (char c : text) out += c == '|' ? std::string("\\|") : std::string(1, c);
    return code ? "`" + out + "`" : out;
}

std::string joined(const std::vector<std::string>& tags, const char* separator, bool code) {
    std::string out;
    for (const std::string& tag : tags) {
        if (!out.empty()) out += separator;
        out += code ? "`" + tag + "`" : tag;
    }
    return out;
}

/// How many content children, where the number is fixed: empty when it is not.
std::string countText(Grafel::ChildCount count, bool words) {
    if (count == Grafel::ChildCount{}) return "";
    const std::string least = std::to_string(count.least), most = std::to_string(count.most);
    if (!words) return least + "-" + most;
    return count.least == count.most ? "exactly " + least : "from " + least + " to " + most;
}

/// The children as a sentence: "Children: content `A`, `B` (exactly 4); options `C`;
/// mandatory options `D`." or "Children: text." or "No children."
std::string childrenSentence(const ChildRows& c) {
    std::vector<std::string> parts;
    if (c.text) parts.push_back("text");
    if (!c.content.empty()) {
        std::string part = "content " + joined(c.content, ", ", true);
        if (const std::string n = countText(c.count, true); !n.empty()) part += " (" + n + ")";
        parts.push_back(part);
    }
    if (!c.options.empty()) parts.push_back("options " + joined(c.options, ", ", true));
    if (!c.mandatory.empty())
        parts.push_back("mandatory options " + joined(c.mandatory, ", ", true));
    if (parts.empty()) return "No children.";
    return "Children: " + joined(parts, "; ", false) + ".";
}

/// The children in one field: "text", "content=A,B", "count=4-4", "options=C",
/// "mandatory=D", separated by blanks; "-" for none.
std::string childrenField(const ChildRows& c) {
    std::vector<std::string> parts;
    if (c.text) parts.push_back("text");
    if (!c.content.empty()) parts.push_back("content=" + joined(c.content, ",", false));
    if (const std::string n = countText(c.count, false); !n.empty()) parts.push_back("count=" + n);
    if (!c.options.empty()) parts.push_back("options=" + joined(c.options, ",", false));
    if (!c.mandatory.empty()) parts.push_back("mandatory=" + joined(c.mandatory, ",", false));
    return parts.empty() ? "-" : joined(parts, " ", false);
}

void writeMarkdown(std::ostream& out, const std::vector<ClassRow>& classes) {
    out << "# Element classes\n\n"
           "Generated by `grafel classes --markdown` from the class tables; do not edit.\n"
           "Regenerate with `scripts/update-docs.sh` (or `cmake --build build --target "
           "update-docs`).\n\n"
           "For each class, the children it admits: content children, any number in document "
           "order (for a 3D group or transform, an `Obj3d` that is no camera, light or "
           "clipping box); options, at most one each; mandatory options, always present; or "
           "text.\n\n"
           "For each property: its kind (a Mandatory value is always present; an Optional one "
           "falls back to the default; an Inherited one to the nearest style that holds it, "
           "then the default), where the value is kept (`member` of the element, `list` "
           "record or plain `attribute`), its value type, its default as ZPX writes it, and the "
           "typed getter of "
           "the effective value.\n\n";
    for (const ClassRow& c : classes) {
        // Markdown renderers make a heading's anchor from its text in lower case.
        std::string anchor = c.tag;
        for (char& ch : anchor)
            ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
        out << "- [" << c.tag << "](#" << anchor << ")\n";
    }
    for (const ClassRow& c : classes) {
        out << "\n## " << c.tag << "\n\n";
        if (!c.base.empty()) out << "Builds on `" << c.base << "`.\n\n";
        out << childrenSentence(c.children) << "\n\n";
        if (c.properties.empty()) {
            out << "No properties.\n";
            continue;
        }
        out << "| Property | Kind | Kept | Type | Default | Getter |\n"
               "|---|---|---|---|---|---|\n";
        for (const PropertyRow& p : c.properties)
            out << "| " << p.name << " | " << p.kind << " | " << cell(p.family, false) << " | "
                << p.type << " | " << cell(p.defaultText, true) << " | "
                << cell(p.getter.empty() ? "" : p.getter + "()", true) << " |\n";
    }
}

void writeLines(std::ostream& out, const std::vector<ClassRow>& classes) {
    for (const ClassRow& c : classes) {
        out << c.tag << '\t' << c.base << '\t' << childrenField(c.children) << '\n';
        for (const PropertyRow& p : c.properties)
            out << c.tag << '\t' << p.name << '\t' << p.kind << '\t' << p.family << '\t' << p.type
                << '\t' << p.defaultText << '\t' << p.getter << '\n';
    }
}

} // namespace

int runClasses(Words args) {
    ParsedArguments parsed;
    if (auto end = startCommand(command, help, args, specs, parsed)) return *end;
    if (!parsed.operands.empty()) return usageError(command, "no operands are taken");
    std::ostringstream text;
    const std::vector<ClassRow> classes = registeredClasses();
    if (parsed.has("markdown"))
        writeMarkdown(text, classes);
    else
        writeLines(text, classes);
    return writeOutput(text.str(), parsed.value("output", "-")) ? ExitOk : ExitFailed;
}

} // namespace GrafelTool
