#include <grafel/arbor/Token.h>

#include <cstring>
#include <deque>
#include <memory>
#include <mutex>
#include <ostream>
#include <shared_mutex>
#include <string>
#include <unordered_set>

namespace Arbor {
namespace {

// The process-wide table of interned texts. Lookups take a shared lock; only a new text takes
// the exclusive one. The table is never destroyed, so that tokens stay valid during static
// destruction as well.
class InternTable {
public:
    const char* find(std::string_view text) const {
        std::shared_lock lock(mutex_);
        auto it = texts_.find(text);
        return it == texts_.end() ? nullptr : it->data();
    }

    const char* intern(std::string_view text, const char* literal) {
        if (const char* found = find(text)) return found;
        std::unique_lock lock(mutex_);
        auto it = texts_.find(text);
        if (it != texts_.end()) return it->data();
        const char* stored = literal ? literal : copy(text);
        texts_.insert(std::string_view(stored, text.size()));
        return stored;
    }

private:
    // Copies live in large blocks that are never freed, like the tokens that point into them.
    const char* copy(std::string_view text) {
        const size_t need = text.size() + 1;
        if (need > blockFree_) {
            const size_t size = need > blockSize ? need : blockSize;
            blocks_.push_back(std::make_unique<char[]>(size));
            blockNext_ = blocks_.back().get();
            blockFree_ = size;
        }
        char* out = blockNext_;
        std::memcpy(out, text.data(), text.size());
        out[text.size()] = '\0';
        blockNext_ += need;
        blockFree_ -= need;
        return out;
    }

    static constexpr size_t blockSize = 16384;
    mutable std::shared_mutex mutex_;
    std::unordered_set<std::string_view> texts_;
    std::deque<std::unique_ptr<char[]>> blocks_;
    char* blockNext_ = nullptr;
    size_t blockFree_ = 0;
};

InternTable& table() {
    static InternTable* instance = new InternTable;
    return *instance;
}

} // namespace

Token::Token(const char* text, bool copy)
    : text_(text ? table().intern(text, copy ? nullptr : text) : nullptr) {}

Token::Token(std::string_view text) : text_(table().intern(text, nullptr)) {}

Token Token::find(const char* text) noexcept {
    return text ? find(std::string_view(text)) : Token();
}

Token Token::find(std::string_view text) noexcept {
    Token t;
    t.text_ = table().find(text);
    return t;
}

std::ostream& operator<<(std::ostream& out, Token token) {
    if (!token.isNull()) out << token.c_str();
    return out;
}

} // namespace Arbor
