// Interned names: every element name, attribute name and keyword of a document is a Token, so
// that comparing two names is comparing two words.
#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string_view>

namespace Arbor {

/// One machine word: the address of an interned, NUL-terminated UTF-8 text, or 0 for the null
/// token. Equal texts give equal words, so tokens compare, order and hash as words. Interned
/// texts live until the process ends. Interning is safe from any thread.
class Token {
public:
    constexpr Token() noexcept = default;
    /// Interns `text`. With `copy` false the text is a literal that stays valid for ever and is
    /// used in place when it is new; with `copy` true it is transient and copied when new. A null
    /// `text` gives the null token.
    Token(const char* text, bool copy);
    /// Interns the first `length` bytes of `text` (always copied when new).
    explicit Token(std::string_view text);

    /// The token of a text that was interned before, or the null token. Never interns.
    static Token find(const char* text) noexcept;
    static Token find(std::string_view text) noexcept;

    /// The text, or null for the null token.
    constexpr const char* c_str() const noexcept { return text_; }
    /// The text, with the null token read as the empty text.
    const char* text() const noexcept { return text_ ? text_ : ""; }
    /// Lets a token stand where a C string is expected: in a "%s" argument or a comparison.
    constexpr operator const char*() const noexcept { return text_; }
    std::string_view view() const noexcept {
        return text_ ? std::string_view(text_) : std::string_view();
    }
    constexpr bool isNull() const noexcept { return text_ == nullptr; }
    std::uintptr_t word() const noexcept {
        return reinterpret_cast<std::uintptr_t>(text_);
    }

    friend constexpr bool operator==(Token a, Token b) noexcept { return a.text_ == b.text_; }
    friend constexpr bool operator!=(Token a, Token b) noexcept { return a.text_ != b.text_; }
    /// Orders by word, not by text.
    friend bool operator<(Token a, Token b) noexcept { return a.word() < b.word(); }
    friend bool operator>(Token a, Token b) noexcept { return a.word() > b.word(); }

private:
    const char* text_ = nullptr;
};

/// Writes the token's text; the null token writes nothing.
std::ostream& operator<<(std::ostream& out, Token token);

} // namespace Arbor

template <> struct std::hash<Arbor::Token> {
    size_t operator()(Arbor::Token t) const noexcept {
        return std::hash<std::uintptr_t>()(t.word());
    }
};
