// A program outside the project, built against an installed Grafel through its one header.
#include <grafel/grafel.h>

#include <cstdio>
#include <sstream>

int main() {
    using namespace Grafel;
    if (getTokenId("version") != 530 || getToken(530) != tok_version) return 1;
    RGBA colour;
    if (!colour.parse("#336699")) return 2;

    PlotDocument doc;
    Arbor::Ref<PlotElement> canvas = doc.createPlotElement(tok_Canvas);
    if (!canvas) return 3;
    doc.appendChild(canvas.get());
    static_cast<Canvas*>(canvas.get())->setDefaults();
    std::ostringstream text;
    doc.putCmd(text, false);
    if (text.str().rfind("plot(", 0) != 0) return 4;
    std::puts("grafel consumer ok");
    return 0;
}
