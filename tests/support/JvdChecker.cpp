#include "support/JvdChecker.h"
#include "support/XmlTree.h"

#include <charconv>
#include <cstring>
#include <sstream>
#include <vector>

namespace TestSupport {

namespace {

using XmlElement = XmlNode;

/// What an element of a display may hold. Attribute forms: a list of words separated by "|",
/// "#" for a number, "*" for anything, "tf6" for six letters of t and f. Text: the count of
/// numbers, or -1 for none but white space.
struct Rule {
    const char* name;
    std::vector<std::pair<const char*, const char*>> attributes;
    std::vector<const char*> children;
    int numbers = -1;
    bool integers = false;
};

constexpr const char* showHide = "show|hide";

const std::vector<Rule>& rules() {
    static const std::vector<Rule> all = {
        {"displays", {}, {"display"}},
        {"display",
         {{"antiAlias", showHide},
          {"border", showHide},
          {"depthcue", showHide},
          {"sorting", showHide}},
         {"axes", "bndbox", "boxRatio", "clipRange", "cameras", "lights", "background"}},
        {"axes",
         {{"autoHashing", showHide},
          {"autoBounds", showHide},
          {"visible", showHide},
          {"dim", "2|3"},
          {"span", "xy"},
          {"type", "corner|bndbox|center"},
          {"longHash", "tf6"}},
         {"ruler"}},
        {"ruler",
         {{"visible", showHide},
          {"label", showHide},
          {"name", "*"},
          {"numbers", showHide},
          {"ticksMajor", showHide},
          {"ticksMinor", showHide},
          {"hashsUp", showHide}},
         {"minValue", "maxValue", "minorUnit", "majorUnit", "color", "thickness"}},
        {"minValue", {}, {}, 1},
        {"maxValue", {}, {}, 1},
        {"minorUnit", {}, {}, 1},
        {"majorUnit", {}, {}, 1},
        {"bndbox", {{"visible", showHide}}, {"color", "thickness"}},
        {"thickness", {}, {}, 1},
        {"color", {}, {}, 3, true},
        {"boxRatio", {{"visible", showHide}}, {}, 3},
        {"clipRange", {{"visible", showHide}, {"autoBounds", showHide}}, {"range"}},
        {"range", {{"type", "X|Y|Z"}}, {}, 2},
        {"cameras", {{"select", "X-Y|Perspective"}}, {"camera"}},
        {"camera",
         {{"projection", "X-Y|Perspective"}, {"sceneRatio", showHide}},
         {"position", "interest", "fieldOfView", "roll"}},
        {"position", {}, {}, 3},
        {"interest", {}, {}, 3},
        {"fieldOfView", {}, {}, 1},
        {"roll", {}, {}, 1},
        {"lights", {{"lightingModel", "Light"}}, {"ambient", "light"}},
        {"ambient", {}, {"color"}},
        {"light",
         {{"type", "ambient|point|direction|spot"}},
         {"position", "interest", "color", "intensity", "exponent"}},
        {"intensity", {}, {}, 1},
        {"exponent", {}, {}, 1},
        {"background", {}, {"color"}},
    };
    return all;
}

const Rule* ruleFor(const std::string& name) {
    for (const Rule& rule : rules())
        if (name == rule.name) return &rule;
    return nullptr;
}

bool wordIn(const std::string& value, const char* words) {
    if (std::strcmp(words, "*") == 0) return true;
    if (std::strcmp(words, "tf6") == 0)
        return value.size() == 6 && value.find_first_not_of("tf") == std::string::npos;
    std::istringstream list(words);
    std::string word;
    while (std::getline(list, word, '|'))
        if (word == value) return true;
    return false;
}

/// The numbers of `text`, separated by single blanks; false for anything else.
bool numbersOf(const std::string& text, bool integers, std::vector<double>& out) {
    const char* at = text.data();
    const char* end = at + text.size();
    while (at < end) {
        if (!out.empty()) {
            if (*at != ' ') return false;
            ++at;
        }
        double value = 0;
        const auto [next, error] = std::from_chars(at, end, value);
        if (error != std::errc() || next == at) return false;
        if (integers && std::string(at, next).find_first_not_of("0123456789") != std::string::npos)
            return false;
        out.push_back(value);
        at = next;
    }
    return true;
}

class Checker {
public:
    std::ostringstream problems;

    void element(const XmlElement& e, const std::string& path) {
        const Rule* rule = ruleFor(e.name);
        if (!rule) return report(path, "unknown element");
        for (const auto& [name, value] : e.attributes) {
            const char* form = nullptr;
            for (const auto& [known, allowed] : rule->attributes)
                if (name == known) form = allowed;
            if (!form)
                report(path, "unknown attribute " + name);
            else if (!wordIn(value, form))
                report(path, "attribute " + name + "=\"" + value + "\"");
        }
        if (rule->numbers >= 0) {
            std::vector<double> values;
            if (!numbersOf(e.text, rule->integers, values) ||
                static_cast<int>(values.size()) != rule->numbers)
                report(path, "text \"" + e.text + "\"");
            else if (rule->integers)
                for (double v : values)
                    if (v > 255) report(path, "colour component above 255");
        } else if (e.text.find_first_not_of(" \n") != std::string::npos) {
            report(path, "text \"" + e.text + "\"");
        }
        std::size_t order = 0;
        for (const auto& child : e.children) {
            std::size_t at = 0;
            while (at < rule->children.size() && child->name != rule->children[at]) ++at;
            if (at == rule->children.size()) {
                report(path, "child " + child->name + " not allowed");
                continue;
            }
            if (at < order && e.name != "lights")
                report(path, "child " + child->name + " out of order");
            order = at;
            element(*child, path + "/" + child->name);
        }
        specific(e, path);
    }

private:
    void report(const std::string& path, const std::string& what) {
        problems << path << ": " << what << '\n';
    }
    static std::size_t count(const XmlElement& e, const char* name) { return e.all(name).size(); }
    void once(const XmlElement& e, const std::string& path, const char* name, bool needed) {
        const std::size_t n = count(e, name);
        if (n > 1 || (needed && n == 0)) report(path, std::to_string(n) + " " + name + " children");
    }

    /// What the table cannot say: how many of a child, and which go together.
    void specific(const XmlElement& e, const std::string& path) {
        if (e.name == "display") {
            for (const char* name : {"axes", "bndbox", "background"}) once(e, path, name, true);
            for (const char* name : {"boxRatio", "clipRange", "cameras", "lights"})
                once(e, path, name, false);
        } else if (e.name == "displays") {
            once(e, path, "display", true);
        } else if (e.name == "axes") {
            if (count(e, "ruler") != 3) report(path, "not three rulers");
            const char* type = e.attribute("type");
            if (e.attribute("longHash") && !(type && std::strcmp(type, "corner") == 0))
                report(path, "longHash without type corner");
        } else if (e.name == "ruler") {
            if (count(e, "minValue") != count(e, "maxValue")) report(path, "one bound alone");
            if (count(e, "minorUnit") != count(e, "majorUnit")) report(path, "one unit alone");
            once(e, path, "color", !e.attribute("hashsUp"));
        } else if (e.name == "camera") {
            for (const char* name : {"position", "interest", "fieldOfView"})
                once(e, path, name, true);
            once(e, path, "roll", false);
        } else if (e.name == "light") {
            const std::string type = e.attribute("type") ? e.attribute("type") : "";
            once(e, path, "position", type != "ambient");
            if (type == "ambient" && count(e, "position"))
                report(path, "ambient light with a position");
            once(e, path, "color", true);
            once(e, path, "intensity", true);
        } else if (e.name == "range") {
            std::vector<double> v;
            if (numbersOf(e.text, false, v) && v.size() == 2 && !(v[0] <= v[1]))
                report(path, "empty range");
        }
    }
};

} // namespace

std::string checkJvd(const std::string& text) {
    XmlTree tree;
    if (std::string error = parseXmlTree(text, tree); !error.empty())
        return "not XML: " + error + "\n";
    if (!tree.root || tree.root->name != "jv-disp") return "root is not jv-disp\n";
    Checker checker;
    if (tree.doctype != "jv-disp" || !tree.systemId.ends_with("/rsrc/jv-disp.dtd"))
        checker.problems << "no DOCTYPE of jv-disp\n";
    std::size_t displays = 0;
    for (const auto& child : tree.root->children) {
        if (child->name != "displays") continue;
        ++displays;
        checker.element(*child, "/jv-disp/displays");
    }
    if (displays != 1) checker.problems << "/jv-disp: " << displays << " displays\n";
    if (tree.root->children.empty() || tree.root->children.back()->name != "displays")
        checker.problems << "/jv-disp: displays is not last\n";
    return checker.problems.str();
}

} // namespace TestSupport
