// Build-time tool: turns the object-type list (catalogue/objtypes.txt) into the row tables that
// the catalogue interprets on first demand. It checks the list against the token catalogue:
// every name must be a token, every row must get exactly one value-type rule, every macro must
// be defined, and the served types must have a list.
//
// Usage: grafel_objtypegen OBJTYPES TOKENS OUT_SOURCE
//
// The output is rewritten only when its text changes, so that a rebuild stays incremental.
#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Rule {
    std::string type;            // "-" for none
    std::set<std::string> lists; // empty: every list
    int line = 0;
};

struct Input {
    std::set<std::string> tokens;
    std::vector<std::string> served;
    std::map<std::string, std::vector<Rule>> typeRules; // by row key
    std::set<std::string> recalc;
    std::map<std::string, std::map<std::string, bool>> recalcIn; // list -> row -> value
    std::map<std::string, std::vector<std::string>> macros;
    std::vector<std::pair<std::string, std::string>> lists; // type, text
    std::map<std::string, int> listLine;
};

bool failed = false;
std::string sourcePath;

void fail(int line, const std::string& message) {
    std::fprintf(stderr, "%s:%d: error: %s\n", sourcePath.c_str(), line, message.c_str());
    failed = true;
}

std::string trim(const std::string& s) {
    const auto b = s.find_first_not_of(" \t\r");
    if (b == std::string::npos) return {};
    return s.substr(b, s.find_last_not_of(" \t\r") - b + 1);
}

// Splits at commas that stand outside brackets and parentheses.
std::vector<std::string> splitTop(const std::string& text, char sep) {
    std::vector<std::string> out;
    int depth = 0;
    std::string cur;
    for (char c : text) {
        if (c == '[' || c == '(') ++depth;
        if (c == ']' || c == ')') --depth;
        if (c == sep && depth == 0) {
            out.push_back(trim(cur));
            cur.clear();
        } else {
            cur += c;
        }
    }
    if (!trim(cur).empty()) out.push_back(trim(cur));
    return out;
}

bool readTokens(const std::string& path, std::set<std::string>& tokens) {
    std::ifstream in(path);
    if (!in) return false;
    for (std::string line; std::getline(in, line);)
        if (!line.empty() && line[0] != '#') tokens.insert(trim(line));
    return true;
}

// One row of the output.
struct Row {
    std::string kind; // Category, Info, End
    std::string a, b, c;
    bool recalc = false;
};

const std::set<std::string> forms = {"Expr", "ExprSeq", "ColorFunc", "Prop"};

class ListBuilder {
public:
    ListBuilder(const Input& in, const std::string& type, int line, std::vector<Row>& rows,
                std::vector<std::string>& captions)
        : in_(in), type_(type), line_(line), rows_(rows), captions_(captions) {}

    void category(const std::string& text) {
        const auto colon = text.find(':');
        if (colon == std::string::npos) return fail(line_, "a category without ':' in " + type_);
        open(trim(text.substr(0, colon)));
        for (const std::string& item : splitTop(text.substr(colon + 1), ',')) this->item(item);
        rows_.push_back({"End", "", "", "", false});
    }

private:
    void open(const std::string& caption) {
        std::size_t index = 0;
        while (index < captions_.size() && captions_[index] != caption) ++index;
        if (index == captions_.size()) captions_.push_back(caption);
        rows_.push_back({"Category", std::to_string(index), "", "", false});
    }

    void item(const std::string& text) {
        if (text.empty()) return fail(line_, "an empty row in " + type_);
        if (text.front() == '[') {
            if (text.back() != ']') return fail(line_, "an unclosed category in " + type_);
            return category(text.substr(1, text.size() - 2));
        }
        if (auto m = in_.macros.find(text); m != in_.macros.end()) {
            for (const std::string& row : m->second) item(row);
            return;
        }
        std::string dom = text, opt;
        if (const auto paren = text.find('('); paren != std::string::npos) {
            if (text.back() != ')') return fail(line_, "a malformed row '" + text + "'");
            dom = text.substr(0, paren);
            opt = text.substr(paren + 1, text.size() - paren - 2);
            if (!forms.count(dom)) fail(line_, "'" + dom + "' takes no option");
            if (!in_.tokens.count(opt)) fail(line_, "the option '" + opt + "' is no token");
        } else if (forms.count(dom)) {
            fail(line_, "'" + dom + "' without its option");
        }
        if (!in_.tokens.count(dom)) fail(line_, "'" + dom + "' is no token");
        rows_.push_back({"Info", dom, opt, valueType(text), recalc(text)});
    }

    std::string valueType(const std::string& key) {
        auto rules = in_.typeRules.find(key);
        if (rules == in_.typeRules.end()) {
            fail(line_, "no value type for '" + key + "' in " + type_);
            return {};
        }
        const Rule* specific = nullptr;
        const Rule* general = nullptr;
        for (const Rule& r : rules->second) {
            if (r.lists.empty()) {
                if (general) fail(r.line, "a second value type for '" + key + "'");
                general = &r;
            } else if (r.lists.count(type_)) {
                if (specific) fail(r.line, "a second value type for '" + key + "' in " + type_);
                specific = &r;
            }
        }
        const Rule* rule = specific ? specific : general;
        if (!rule) {
            fail(line_, "no value type for '" + key + "' in " + type_);
            return {};
        }
        return rule->type == "-" ? std::string() : rule->type;
    }

    bool recalc(const std::string& key) const {
        if (auto l = in_.recalcIn.find(type_); l != in_.recalcIn.end())
            if (auto r = l->second.find(key); r != l->second.end()) return r->second;
        return in_.recalc.count(key) != 0;
    }

    const Input& in_;
    std::string type_;
    int line_;
    std::vector<Row>& rows_;
    std::vector<std::string>& captions_;
};

void readInput(const std::string& path, Input& in) {
    std::ifstream file(path);
    if (!file) return fail(0, "cannot read the file");
    std::string text;
    for (int line = 1; std::getline(file, text); ++line) {
        text = trim(text);
        if (text.empty() || text[0] == '#') continue;
        const auto colon = text.find(':');
        if (colon == std::string::npos) {
            fail(line, "a line without ':'");
            continue;
        }
        const std::string head = trim(text.substr(0, colon));
        const std::string body = trim(text.substr(colon + 1));
        std::istringstream words(head);
        std::string keyword;
        words >> keyword;
        if (keyword == "Served") {
            in.served = splitTop(body, ',');
        } else if (keyword == "Type") {
            Rule rule;
            rule.line = line;
            words >> rule.type;
            std::string word;
            if (words >> word) {
                if (word != "in") fail(line, "expected 'in'");
                while (words >> word) rule.lists.insert(word);
            }
            if (rule.type != "-" && !in.tokens.count(rule.type))
                fail(line, "the value type '" + rule.type + "' is no token");
            for (const std::string& row : splitTop(body, ',')) in.typeRules[row].push_back(rule);
        } else if (keyword == "Recalc") {
            std::string value, word, list;
            if (!(words >> value)) {
                for (const std::string& row : splitTop(body, ',')) in.recalc.insert(row);
                continue;
            }
            if ((value != "on" && value != "off") || !(words >> word) || word != "in" ||
                !(words >> list))
                fail(line, "expected 'Recalc on|off in LIST'");
            for (const std::string& row : splitTop(body, ','))
                in.recalcIn[list][row] = value == "on";
        } else if (keyword == "Macro") {
            std::string name;
            words >> name;
            in.macros[name] = splitTop(body, ',');
        } else if (keyword == "List") {
            std::string name;
            words >> name;
            if (!in.tokens.count(name)) fail(line, "the type '" + name + "' is no token");
            if (in.listLine.count(name)) fail(line, "a second list for '" + name + "'");
            in.listLine[name] = line;
            in.lists.emplace_back(name, body);
        } else {
            fail(line, "unknown keyword '" + keyword + "'");
        }
    }
    for (const std::string& s : in.served)
        if (!in.listLine.count(s)) fail(0, "the served type '" + s + "' has no list");
}

std::string idOf(const std::string& name) {
    return name.empty() ? "0" : "id_" + name;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: grafel_objtypegen OBJTYPES TOKENS OUT_SOURCE\n");
        return 2;
    }
    sourcePath = argv[1];
    Input in;
    if (!readTokens(argv[2], in.tokens)) {
        std::fprintf(stderr, "grafel_objtypegen: cannot read %s\n", argv[2]);
        return 1;
    }
    readInput(argv[1], in);

    std::vector<Row> rows;
    std::vector<std::string> captions;
    struct List {
        std::string type;
        bool served;
        std::size_t first, count;
    };
    std::vector<List> lists;
    const std::set<std::string> served(in.served.begin(), in.served.end());
    for (const auto& [type, body] : in.lists) {
        const std::size_t first = rows.size();
        ListBuilder builder(in, type, in.listLine[type], rows, captions);
        for (const std::string& category : splitTop(body, ';')) builder.category(category);
        lists.push_back({type, served.count(type) != 0, first, rows.size() - first});
    }
    if (failed) return 1;

    std::ostringstream out;
    out << "// Generated from catalogue/objtypes.txt by grafel_objtypegen. Do not edit.\n"
           "#include <grafel/catalogue/detail/ObjTypeRows.h>\n"
           "#include <grafel/foundation/Tokens.h>\n\n"
           "namespace Grafel::detail {\n\n"
           "const wchar_t* const objTypeCaptions[] = {\n";
    for (const std::string& c : captions) out << "    L\"" << c << "\",\n";
    out << "};\n\nconst ObjTypeRow objTypeRows[] = {\n";
    for (const Row& r : rows) {
        if (r.kind == "Info")
            out << "    {ObjTypeRow::Info, " << (r.recalc ? "true" : "false") << ", " << idOf(r.a)
                << ", " << idOf(r.b) << ", " << idOf(r.c) << "},\n";
        else if (r.kind == "Category")
            out << "    {ObjTypeRow::Category, false, " << r.a << ", 0, 0},\n";
        else
            out << "    {ObjTypeRow::End, false, 0, 0, 0},\n";
    }
    out << "};\n\nconst ObjTypeList objTypeLists[] = {\n";
    for (const List& l : lists)
        out << "    {" << idOf(l.type) << ", " << (l.served ? "true" : "false") << ", " << l.first
            << ", " << l.count << "},\n";
    out << "};\n\nconst int objTypeListCount = " << lists.size() << ";\n\n"
        << "} // namespace Grafel::detail\n";

    const std::string text = out.str();
    {
        std::ifstream old(argv[3], std::ios::binary);
        std::stringstream existing;
        existing << old.rdbuf();
        if (old && existing.str() == text) return 0;
    }
    std::ofstream file(argv[3], std::ios::binary);
    file << text;
    return file ? 0 : 1;
}
