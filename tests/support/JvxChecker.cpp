#include "support/JvxChecker.h"
#include "support/XmlTree.h"

#include <cstring>
#include <memory>
#include <sstream>

namespace TestSupport {

namespace {

using Node = XmlNode;

/// The whitespace-separated words of `text` as numbers; false if one is not a number.
bool numbers(const std::string& text, std::vector<double>& out) {
    std::istringstream in(text);
    std::string word;
    out.clear();
    while (in >> word) {
        std::istringstream one(word);
        double value;
        if (!(one >> value) || !one.eof()) return false;
        out.push_back(value);
    }
    return true;
}

class Checker {
public:
    std::vector<std::string> problems;

    void report(const Node& at, const std::string& what) {
        problems.push_back("line " + std::to_string(at.line) + " <" + at.name + ">: " + what);
    }

    /// The items of a list element; checks its num against them.
    std::vector<const Node*> list(const Node& listNode, const char* itemTag) {
        std::vector<const Node*> items = listNode.all(itemTag);
        if (const char* num = listNode.attribute("num")) {
            if (std::to_string(items.size()) != num)
                report(listNode, std::string("num=\"") + num + "\" but " +
                                     std::to_string(items.size()) + " <" + itemTag + ">");
        }
        return items;
    }

    void colour(const Node& c) {
        std::vector<double> v;
        if (!numbers(c.text, v) || v.size() != 3) return report(c, "not three numbers");
        for (double x : v)
            if (x != static_cast<int>(x) || x < 0 || x > 255)
                return report(c, "component out of 0..255: " + c.text);
    }

    /// The colours of a set shown with colour: one per item.
    void colours(const Node& set, std::size_t items, const char* what) {
        for (const Node* c : set.all("color")) colour(*c);
        const Node* list = set.child("colors");
        if (list)
            for (const Node* c : this->list(*list, "c")) colour(*c);
        const char* shown = set.attribute("color");
        if (!shown || std::strcmp(shown, "show") != 0) return;
        if (!list) return report(set, std::string("colours shown but no <colors> for ") + what);
        if (list->all("c").size() != items)
            report(*list, std::to_string(list->all("c").size()) + " colours for " +
                              std::to_string(items) + " " + what);
    }

    /// Index lists: each word an integer in [low, bound).
    void indices(const std::vector<const Node*>& items, long low, std::size_t bound,
                 const char* of) {
        std::vector<double> v;
        for (const Node* item : items) {
            if (!numbers(item->text, v) || v.empty()) {
                report(*item, "not a list of indices");
                continue;
            }
            for (double x : v)
                if (x != static_cast<long>(x) || x < low || x >= static_cast<double>(bound)) {
                    report(*item, "index " + std::to_string(x) + " outside the " +
                                      std::to_string(bound) + " " + of);
                    break;
                }
        }
    }

    void geometry(const Node& g) {
        if (g.children.empty() || g.children.front()->name != "pointSet")
            return report(g, "does not start with a <pointSet>");
        const Node& pointSet = *g.children.front();
        if (g.all("pointSet").size() != 1) report(g, "more than one <pointSet>");
        const char* dimText = pointSet.attribute("dim");
        const std::size_t dim = dimText ? std::strtoul(dimText, nullptr, 10) : 3;
        std::size_t pointCount = 0;
        if (const Node* points = pointSet.child("points")) {
            std::vector<double> v;
            for (const Node* p : list(*points, "p")) {
                ++pointCount;
                // Labels of a space stand in a plane set with their three coordinates; a
                // viewer reads the first `dim`.
                if (!numbers(p->text, v) || v.size() < dim || v.size() > 3)
                    report(*p, "not " + std::to_string(dim) + " numbers");
            }
            for (const Node* c : points->all("color")) colour(*c);
        } else {
            report(pointSet, "no <points>");
        }
        colours(pointSet, pointCount, "points");
        for (const Node* lineSet : g.all("lineSet")) {
            const Node* lines = lineSet->child("lines");
            if (!lines) {
                report(*lineSet, "no <lines>");
                continue;
            }
            auto items = list(*lines, "l");
            indices(items, 0, pointCount, "points");
            for (const Node* c : lines->all("color")) colour(*c);
            colours(*lineSet, items.size(), "lines");
        }
        for (const Node* faceSet : g.all("faceSet")) {
            const Node* faces = faceSet->child("faces");
            if (!faces) {
                report(*faceSet, "no <faces>");
                continue;
            }
            auto items = list(*faces, "f");
            indices(items, 0, pointCount, "points");
            for (const Node* c : faces->all("color")) colour(*c);
            if (const Node* nb = faceSet->child("neighbours"))
                indices(list(*nb, "nb"), -1, items.size(), "faces");
            colours(*faceSet, items.size(), "faces");
        }
        for (const Node* field : g.all("vectorField")) {
            const Node* vectors = field->child("vectors");
            if (!vectors) {
                report(*field, "no <vectors>");
                continue;
            }
            auto items = list(*vectors, "v");
            if (items.size() != pointCount)
                report(*vectors, std::to_string(items.size()) + " vectors for " +
                                     std::to_string(pointCount) + " points");
            colours(*field, items.size(), "vectors");
        }
    }
};

} // namespace

std::vector<std::string> jvxProblems(std::string_view text) {
    XmlTree tree;
    if (std::string error = parseXmlTree(text, tree); !error.empty()) return {error};

    Checker check;
    const std::string dtd = "/rsrc/jvx.dtd";
    if (tree.doctype != "jvx-model" || tree.systemId.size() < dtd.size() ||
        tree.systemId.compare(tree.systemId.size() - dtd.size(), dtd.size(), dtd) != 0)
        check.problems.push_back("DOCTYPE is '" + tree.doctype + "' '" + tree.systemId + "'");
    if (!tree.root || tree.root->name != "jvx-model") {
        check.problems.push_back("root is not <jvx-model>");
        return check.problems;
    }
    const auto geometries = tree.root->all("geometries");
    if (geometries.size() != 1) check.report(*tree.root, "not exactly one <geometries>");
    for (const Node* group : geometries)
        for (const auto& g : group->children) {
            if (g->name == "geometry")
                check.geometry(*g);
            else
                check.report(*g, "inside <geometries>");
        }
    return check.problems;
}

std::string joinedJvxProblems(std::string_view text) {
    std::string joined;
    for (const std::string& p : jvxProblems(text)) joined += p + '\n';
    return joined;
}

} // namespace TestSupport
