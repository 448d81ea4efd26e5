// A program outside the project, built against an installed Grafel.
#include <grafel/grafel.h>

#include <cstdio>

int main() {
    Arbor::Token t("consumer", false);
    if (Arbor::Token::find("consumer") != t) return 1;
    std::puts("grafel consumer ok");
    return 0;
}
