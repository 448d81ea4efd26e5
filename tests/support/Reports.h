// The reports that documents and readers make in tests, collected as texts, and the codes of
// the exceptions that go with them.
#pragma once

#include <grafel/arbor/DomException.h>

#include <cstdarg>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace TestSupport {

/// The messages reported so far, without the prefix calls ("Grafel error: ", "ZPX error: ").
inline std::vector<std::string>& reports() {
    static std::vector<std::string> collected;
    return collected;
}

/// A report function for domErrorHdl and the readers: appends each message to reports().
inline void collectReport(const char* format, va_list args) {
    char text[1024];
    vsnprintf(text, sizeof text, format, args);
    const std::string message(text);
    if (message != "Grafel error: " && message != "ZPX error: ") reports().push_back(message);
}

/// The DOM code thrown by `action`, 0 when it throws none.
inline long domCode(const std::function<void()>& action) {
    try {
        action();
    } catch (const Arbor::DomException& e) {
        return e.code();
    }
    return 0;
}

} // namespace TestSupport
