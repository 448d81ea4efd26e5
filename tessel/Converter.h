// Converters between narrow text in a named encoding and wide text. UTF-8 is converted here
// directly; any other encoding goes through the C library's iconv.
#pragma once

#include <cstddef>
#include <string>

namespace Tessel {

/// Converts narrow text in one encoding into wide text. Built once per place of use; one
/// converter must not be used by two threads at the same time (it keeps the conversion state).
/// An encoding that the C library does not know (or a null or empty name) falls back to UTF-8;
/// encoding() tells which one is in use.
class NarrowToWideConverter {
public:
    /// With `substitute` set, each malformed input unit becomes U+FFFD and conversion goes on;
    /// otherwise conversion stops at the first malformed unit and keeps what came before.
    NarrowToWideConverter(const char* encoding, bool substitute);
    NarrowToWideConverter(const NarrowToWideConverter& other);
    NarrowToWideConverter(NarrowToWideConverter&& other) noexcept;
    NarrowToWideConverter& operator=(NarrowToWideConverter other) noexcept;
    ~NarrowToWideConverter();

    /// Converts `length` bytes at `text`. Throws only std::bad_alloc.
    std::wstring convert(const char* text, size_t length) const;
    /// The encoding in use: the name given, or "UTF-8".
    const std::string& encoding() const noexcept { return encoding_; }
    bool substitutes() const noexcept { return substitute_; }

    friend void swap(NarrowToWideConverter& a, NarrowToWideConverter& b) noexcept;

private:
    std::string encoding_;
    bool substitute_;
    void* handle_ = nullptr; // the iconv descriptor; null for UTF-8
};

/// Converts wide text into narrow text in one encoding. The same rules as for
/// NarrowToWideConverter apply; a substituted unit becomes '?', except in UTF-8, which can
/// represent U+FFFD and uses it.
class WideToNarrowConverter {
public:
    /// With `substitute` set, each unit that is invalid or that the encoding cannot represent
    /// is replaced and conversion goes on; otherwise conversion stops there and keeps what came
    /// before.
    WideToNarrowConverter(const char* encoding, bool substitute);
    WideToNarrowConverter(const WideToNarrowConverter& other);
    WideToNarrowConverter(WideToNarrowConverter&& other) noexcept;
    WideToNarrowConverter& operator=(WideToNarrowConverter other) noexcept;
    ~WideToNarrowConverter();

    /// Converts `length` wide units at `text`. Throws only std::bad_alloc.
    std::string convert(const wchar_t* text, size_t length) const;
    /// The encoding in use: the name given, or "UTF-8".
    const std::string& encoding() const noexcept { return encoding_; }
    bool substitutes() const noexcept { return substitute_; }

    friend void swap(WideToNarrowConverter& a, WideToNarrowConverter& b) noexcept;

private:
    std::string encoding_;
    bool substitute_;
    void* handle_ = nullptr; // the iconv descriptor; null for UTF-8
};

/// The wide form of `text`, which may hold NUL bytes.
std::wstring toWideString(const std::string& text, const NarrowToWideConverter& converter);

/// The narrow form of `text`, which may hold NUL units.
std::string toNarrowString(const std::wstring& text, const WideToNarrowConverter& converter);

} // namespace Tessel
