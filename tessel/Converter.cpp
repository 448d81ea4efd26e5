#include <grafel/tessel/Converter.h>

#include <grafel/tessel/FlexBuff.h>
#include <grafel/tessel/Utf.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <iconv.h>
#include <new>
#include <strings.h>
#include <utility>

namespace Tessel {
namespace {

// iconv's name for wchar_t text: UTF-32 in the machine's byte order, which rejects surrogates
// and values beyond U+10FFFF like any other malformed input.
constexpr const char* wideEncoding =
    std::endian::native == std::endian::little ? "UTF-32LE" : "UTF-32BE";

const iconv_t noHandle = reinterpret_cast<iconv_t>(-1);

bool isUtf8(const char* encoding) {
    return !encoding || !*encoding || strcasecmp(encoding, "UTF-8") == 0 ||
           strcasecmp(encoding, "UTF8") == 0;
}

// Opens a descriptor for a known encoding other than UTF-8, or gives null when the name is not
// known, so that the caller falls back to UTF-8. Running out of memory is not an unknown name.
void* openHandle(const char* to, const char* from) {
    iconv_t handle = iconv_open(to, from);
    if (handle != noHandle) return handle;
    if (errno == ENOMEM) throw std::bad_alloc();
    return nullptr;
}

void closeHandle(void* handle) noexcept {
    if (handle) iconv_close(static_cast<iconv_t>(handle));
}

// The common loop of both directions. `unit` is the size in bytes of the input unit that is
// skipped on an error; `onBad` appends the substitute. Stops when the input is used up or, when
// `substitute` is false, at the first bad unit; either way the output ends in the initial shift
// state.
template <class Out, class OnBad>
void runIconv(void* handle, const char* text, size_t length, size_t unit, bool substitute, Out& out,
              OnBad onBad) {
    using Unit = typename Out::value_type;
    auto cd = static_cast<iconv_t>(handle);
    iconv(cd, nullptr, nullptr, nullptr, nullptr); // back to the initial shift state
    Unit buffer[1024];
    char* in = const_cast<char*>(text);
    size_t inLeft = length;
    auto take = [&](char* o) {
        out.append(buffer, static_cast<size_t>(o - reinterpret_cast<char*>(buffer)) / sizeof(Unit));
    };
    while (inLeft > 0) {
        char* o = reinterpret_cast<char*>(buffer);
        size_t oLeft = sizeof buffer;
        const size_t result = iconv(cd, &in, &inLeft, &o, &oLeft);
        const int error = errno;
        take(o);
        if (result != static_cast<size_t>(-1) || error == E2BIG) continue;
        if (!substitute) break;
        onBad();
        // An incomplete sequence at the end (EINVAL) is bad as a whole.
        const size_t skip = error == EINVAL ? inLeft : std::min(unit, inLeft);
        in += skip;
        inLeft -= skip;
    }
    // Returns a stateful encoding to its initial state at the end of the text.
    for (;;) {
        char* o = reinterpret_cast<char*>(buffer);
        size_t oLeft = sizeof buffer;
        const size_t result = iconv(cd, nullptr, nullptr, &o, &oLeft);
        const int error = errno;
        take(o);
        if (result != static_cast<size_t>(-1) || error != E2BIG) break;
    }
}

} // namespace

// ---- NarrowToWideConverter

NarrowToWideConverter::NarrowToWideConverter(const char* encoding, bool substitute)
    : encoding_("UTF-8"), substitute_(substitute) {
    if (isUtf8(encoding)) return;
    handle_ = openHandle(wideEncoding, encoding);
    if (handle_) encoding_ = encoding;
}

NarrowToWideConverter::NarrowToWideConverter(const NarrowToWideConverter& other)
    : encoding_(other.encoding_), substitute_(other.substitute_) {
    if (other.handle_) handle_ = openHandle(wideEncoding, encoding_.c_str());
    if (!handle_) encoding_ = "UTF-8";
}

NarrowToWideConverter::NarrowToWideConverter(NarrowToWideConverter&& other) noexcept
    : encoding_(std::move(other.encoding_)), substitute_(other.substitute_),
      handle_(std::exchange(other.handle_, nullptr)) {
    other.encoding_ = "UTF-8";
}

NarrowToWideConverter& NarrowToWideConverter::operator=(NarrowToWideConverter other) noexcept {
    swap(*this, other);
    return *this;
}

NarrowToWideConverter::~NarrowToWideConverter() {
    closeHandle(handle_);
}

void swap(NarrowToWideConverter& a, NarrowToWideConverter& b) noexcept {
    std::swap(a.encoding_, b.encoding_);
    std::swap(a.substitute_, b.substitute_);
    std::swap(a.handle_, b.handle_);
}

std::wstring NarrowToWideConverter::convert(const char* text, size_t length) const {
    if (!text) length = 0;
    std::wstring out;
    if (!handle_) {
        const long take = substitute_ ? static_cast<long>(length)
                                      : validUtf8Length(text, static_cast<long>(length));
        FlexBuff<wchar_t> buffer;
        const long n = utf8ToUtf16(text, take, buffer);
        out.assign(buffer.data(), static_cast<size_t>(n));
        return out;
    }
    runIconv(handle_, text, length, 1, substitute_, out,
             [&] { out.push_back(static_cast<wchar_t>(replacementCharacter)); });
    return out;
}

// ---- WideToNarrowConverter

WideToNarrowConverter::WideToNarrowConverter(const char* encoding, bool substitute)
    : encoding_("UTF-8"), substitute_(substitute) {
    if (isUtf8(encoding)) return;
    handle_ = openHandle(encoding, wideEncoding);
    if (handle_) encoding_ = encoding;
}

WideToNarrowConverter::WideToNarrowConverter(const WideToNarrowConverter& other)
    : encoding_(other.encoding_), substitute_(other.substitute_) {
    if (other.handle_) handle_ = openHandle(encoding_.c_str(), wideEncoding);
    if (!handle_) encoding_ = "UTF-8";
}

WideToNarrowConverter::WideToNarrowConverter(WideToNarrowConverter&& other) noexcept
    : encoding_(std::move(other.encoding_)), substitute_(other.substitute_),
      handle_(std::exchange(other.handle_, nullptr)) {
    other.encoding_ = "UTF-8";
}

WideToNarrowConverter& WideToNarrowConverter::operator=(WideToNarrowConverter other) noexcept {
    swap(*this, other);
    return *this;
}

WideToNarrowConverter::~WideToNarrowConverter() {
    closeHandle(handle_);
}

void swap(WideToNarrowConverter& a, WideToNarrowConverter& b) noexcept {
    std::swap(a.encoding_, b.encoding_);
    std::swap(a.substitute_, b.substitute_);
    std::swap(a.handle_, b.handle_);
}

std::string WideToNarrowConverter::convert(const wchar_t* text, size_t length) const {
    if (!text) length = 0;
    std::string out;
    if (!handle_) {
        const long take = substitute_ ? static_cast<long>(length)
                                      : validUtf32Length(text, static_cast<long>(length));
        FlexBuff<char> buffer;
        const long n = utf16ToUtf8(text, take, buffer);
        out.assign(buffer.data(), static_cast<size_t>(n));
        return out;
    }
    // The '?' goes through the descriptor as well, so that a stateful encoding stays in step
    // and an encoding that is not ASCII-based gets its own form of it.
    auto question = [&] {
        static const wchar_t mark = L'?';
        auto cd = static_cast<iconv_t>(handle_);
        char* in = const_cast<char*>(reinterpret_cast<const char*>(&mark));
        size_t inLeft = sizeof mark;
        char bytes[16];
        char* o = bytes;
        size_t oLeft = sizeof bytes;
        iconv(cd, &in, &inLeft, &o, &oLeft);
        out.append(bytes, static_cast<size_t>(o - bytes));
    };
    runIconv(handle_, reinterpret_cast<const char*>(text), length * sizeof(wchar_t),
             sizeof(wchar_t), substitute_, out, question);
    return out;
}

std::wstring toWideString(const std::string& text, const NarrowToWideConverter& converter) {
    return converter.convert(text.data(), text.size());
}

std::string toNarrowString(const std::wstring& text, const WideToNarrowConverter& converter) {
    return converter.convert(text.data(), text.size());
}

} // namespace Tessel
