// Writes a libFuzzer dictionary of the ZPX dialect from the reader's own tables: each tag as an
// open and a close tag, each attribute name with its opening quote, every token as a value, and
// the few fixed texts of XML and of the Zpa form.
#include <grafel/document/ZpxDialect.h>
#include <grafel/foundation/Tokens.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

namespace {

/// One dictionary line: the text in double quotes, with quote, backslash and every byte
/// outside printable ASCII as \xNN.
std::string entry(const std::string& text) {
    std::string line = "\"";
    for (unsigned char c : text) {
        if (c == '"' || c == '\\' || c < 0x20 || c >= 0x7f) {
            char hex[5];
            std::snprintf(hex, sizeof hex, "\\x%02x", c);
            line += hex;
        } else {
            line += static_cast<char>(c);
        }
    }
    return line + "\"\n";
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: " << argv[0] << " OUTPUT\n";
        return 2;
    }
    std::ofstream out(argv[1], std::ios::binary);
    for (int id : Grafel::zpxTags()) {
        const std::string tag = Grafel::getToken(id).text();
        out << entry("<" + tag) << entry("</" + tag + ">");
    }
    for (int id : Grafel::zpxAttributeNames())
        out << entry(std::string(" ") + Grafel::getToken(id).text() + "=\"");
    for (int id = 1; id <= Grafel::tokenCount; ++id) out << entry(Grafel::getToken(id).text());
    for (const char* fixed :
         {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>", "xmlns=\"", Grafel::zpxNamespaceUri, "&lt;",
          "&amp;", "&quot;", "&#", "<![CDATA[", "]]>", "<!--", "-->", "/>", "Zeph-Ascii-Data\n"})
        out << entry(fixed);
    return out ? 0 : 1;
}
