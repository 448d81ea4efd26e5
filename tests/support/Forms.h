// The written forms of nodes in tests: XML and command text.
#pragma once

#include <grafel/foundation/CmdOStream.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/properties/PlotElement.h>

#include <sstream>
#include <string>

namespace TestSupport {

/// The XML form of a node, at the stream's default precision.
inline std::string xml(Arbor::Node* node) {
    std::ostringstream out;
    node->putXml(out);
    return out.str();
}

/// The command text of an element, sizes in `units`.
inline std::string cmd(Grafel::PlotElement* element, Arbor::Token units = Grafel::tok_MM) {
    std::ostringstream text;
    Grafel::CmdOStream out(text, units);
    element->putCmd(out);
    return text.str();
}

} // namespace TestSupport
