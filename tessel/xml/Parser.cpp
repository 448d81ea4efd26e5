#include <grafel/tessel/xml/Parser.h>

#include <grafel/tessel/xml/Handler.h>

#include <cstring>
#include <exception>
#include <expat.h>
#include <functional>
#include <new>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Tessel::Xml {
namespace {

// Joins namespace URI and local name in the names the C parser reports. It cannot occur in a
// URI, since XML does not allow it anywhere in a document.
constexpr XML_Char namespaceSeparator = '\x01';

constexpr const char* stoppedText = "stopped by handler";

struct Ids {
    int namespaceId;
    int nameId;
};

struct NameHash {
    using is_transparent = void;
    size_t operator()(std::string_view name) const noexcept {
        return std::hash<std::string_view>()(name);
    }
};

// The mapper's answers by the name as the C parser spells it, looked up without a copy.
using NameCache = std::unordered_map<std::string, Ids, NameHash, std::equal_to<>>;

bool isNamespaceDeclaration(const char* name) {
    return std::strncmp(name, "xmlns", 5) == 0 && (name[5] == '\0' || name[5] == ':');
}

} // namespace

struct Parser::Impl {
    enum class Status { Open, Finished, Failed };

    Handler* userHandler;
    Handler* handler; // userHandler, or `idle` when none was given
    Handler idle;
    bool namespaces;
    bool hasEncoding;
    std::string encoding;

    XML_Parser xml = nullptr;
    Status status = Status::Open;
    bool inParse = false;
    bool stopped = false; // by a handler's refusal or exception, within the current parse()
    const char* error = "";
    std::exception_ptr exception;

    NameCache elementNames;
    NameCache attributeNames;
    // The last name met of each kind: bulk data repeats one tag thousands of times in a row,
    // and a plain comparison is cheaper than hashing the name again.
    std::string lastName[2];
    Ids lastIds[2] = {};
    std::vector<Ids> openElements;
    std::vector<Attribute> attributes; // reused from one start tag to the next

    Impl(Handler* h, bool ns, const char* enc)
        : userHandler(h), handler(h ? h : &idle), namespaces(ns), hasEncoding(enc != nullptr),
          encoding(enc ? enc : "") {
        create();
    }
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;
    ~Impl() { XML_ParserFree(xml); }

    void create() {
        const XML_Char* enc = hasEncoding ? encoding.c_str() : nullptr;
        XML_Parser made =
            namespaces ? XML_ParserCreateNS(enc, namespaceSeparator) : XML_ParserCreate(enc);
        if (!made) throw std::bad_alloc();
        XML_ParserFree(xml);
        xml = made;
        XML_SetUserData(xml, this);
        XML_SetElementHandler(xml, &Impl::onStart, &Impl::onEnd);
        XML_SetCharacterDataHandler(xml, &Impl::onCharacters);
        // Nothing is ever read from outside the text: a reference to an external entity fails
        // the parse instead of being skipped in silence. Parameter entities stay unparsed, so
        // an external DTD is never asked for. Expansion of internal entities keeps the C
        // parser's default bound on amplification.
        XML_SetExternalEntityRefHandler(xml, &Impl::onExternalEntity);
        XML_SetParamEntityParsing(xml, XML_PARAM_ENTITY_PARSING_NEVER);
        status = Status::Open;
        stopped = false;
        error = "";
        exception = nullptr;
        openElements.clear();
    }

    void stop() {
        stopped = true;
        XML_StopParser(xml, XML_FALSE);
    }

    void fail(std::exception_ptr e) {
        if (!exception) exception = std::move(e);
        stop();
    }

    bool mapName(const XML_Char* name, bool element, Ids& ids) {
        // One pass over both texts, which stops at the first difference: a repeated name is
        // neither measured nor hashed.
        std::string& last = lastName[element];
        if (!last.empty() && std::strcmp(name, last.c_str()) == 0) {
            ids = lastIds[element];
            return true;
        }
        const std::string_view key(name);
        NameCache& cache = element ? elementNames : attributeNames;
        if (auto it = cache.find(key); it != cache.end()) {
            ids = it->second;
            last.assign(key);
            lastIds[element] = ids;
            return true;
        }
        std::string uri;
        const char* local = name;
        if (namespaces) {
            if (const char* separator = std::strchr(name, namespaceSeparator)) {
                uri.assign(name, separator);
                local = separator + 1;
            }
        }
        ids = Ids{0, 0};
        const bool known =
            element ? handler->elementName(uri.c_str(), local, ids.namespaceId, ids.nameId)
                    : handler->attributeName(uri.c_str(), local, ids.namespaceId, ids.nameId);
        if (known) cache.emplace(key, ids);
        return known;
    }

    // The callbacks of the C parser. None of them lets an exception pass.

    static void XMLCALL onStart(void* data, const XML_Char* name, const XML_Char** atts) {
        auto* self = static_cast<Impl*>(data);
        if (self->stopped) return;
        try {
            Handler& handler = *self->handler;
            if (handler.ignoreDepth_ > 0) {
                ++handler.ignoreDepth_;
                return;
            }
            Ids ids;
            if (!self->mapName(name, true, ids)) return self->stop();
            self->attributes.clear();
            for (; *atts; atts += 2) {
                // With namespaces on, the C parser keeps declarations to itself already.
                if (!self->namespaces && isNamespaceDeclaration(atts[0])) continue;
                Ids attribute;
                if (!self->mapName(atts[0], false, attribute)) return self->stop();
                self->attributes.push_back({attribute.namespaceId, attribute.nameId, atts[1]});
            }
            self->openElements.push_back(ids);
            handler.startElement(ids.namespaceId, ids.nameId, self->attributes);
        } catch (...) {
            self->fail(std::current_exception());
        }
    }

    static void XMLCALL onEnd(void* data, const XML_Char*) {
        auto* self = static_cast<Impl*>(data);
        if (self->stopped || self->openElements.empty()) return;
        try {
            Handler& handler = *self->handler;
            const Ids ids = self->openElements.back();
            if (handler.ignoreDepth_ > 0) {
                if (--handler.ignoreDepth_ > 0) return;
                self->openElements.pop_back();
                handler.endIgnoreElement();
                return;
            }
            self->openElements.pop_back();
            handler.endElement(ids.namespaceId, ids.nameId);
        } catch (...) {
            self->fail(std::current_exception());
        }
    }

    static void XMLCALL onCharacters(void* data, const XML_Char* text, int length) {
        auto* self = static_cast<Impl*>(data);
        if (self->stopped || self->handler->ignoreDepth_ > 0) return;
        try {
            self->handler->characterData(text, length);
        } catch (...) {
            self->fail(std::current_exception());
        }
    }

    static int XMLCALL onExternalEntity(XML_Parser, const XML_Char*, const XML_Char*,
                                        const XML_Char*, const XML_Char*) {
        return XML_STATUS_ERROR;
    }
};

Parser::Parser(Handler* handler, bool namespaces, const char* encoding)
    : impl_(std::make_unique<Impl>(handler, namespaces, encoding)) {}

Parser::Parser(const Parser& other)
    : impl_(std::make_unique<Impl>(other.impl_->userHandler, other.impl_->namespaces,
                                   other.impl_->hasEncoding ? other.impl_->encoding.c_str()
                                                            : nullptr)) {}

Parser& Parser::operator=(const Parser& other) {
    if (this != &other) {
        // Made before the old one goes, so that a failure leaves this parser as it was.
        auto fresh = std::make_unique<Impl>(other.impl_->userHandler, other.impl_->namespaces,
                                            other.impl_->hasEncoding ? other.impl_->encoding.c_str()
                                                                     : nullptr);
        impl_ = std::move(fresh);
    }
    return *this;
}

Parser::~Parser() = default;

bool Parser::parse(const char* data, int length, bool isFinal) {
    Impl& s = *impl_;
    if (s.inParse || s.status == Impl::Status::Failed) return false;
    if (s.status == Impl::Status::Finished) {
        s.error = XML_ErrorString(XML_ERROR_FINISHED);
        return false;
    }
    s.inParse = true;
    const XML_Status result = XML_Parse(s.xml, data, length, isFinal ? XML_TRUE : XML_FALSE);
    s.inParse = false;
    if (result == XML_STATUS_OK && !s.stopped) {
        if (isFinal) s.status = Impl::Status::Finished;
        return true;
    }
    s.status = Impl::Status::Failed;
    s.error = s.stopped ? stoppedText : XML_ErrorString(XML_GetErrorCode(s.xml));
    if (!s.error) s.error = "error";
    std::exception_ptr thrown = std::exchange(s.exception, nullptr);
    s.handler->cleanup();
    if (thrown) std::rethrow_exception(thrown);
    return false;
}

long Parser::currentLine() const {
    return static_cast<long>(XML_GetCurrentLineNumber(impl_->xml));
}

long Parser::currentColumn() const {
    return static_cast<long>(XML_GetCurrentColumnNumber(impl_->xml)) + 1;
}

const char* Parser::errorText() const {
    return impl_->error;
}

void Parser::reset() {
    if (impl_->inParse) return;
    impl_->create();
    impl_->handler->ignoreDepth_ = 0;
}

Handler* Parser::handler() const {
    return impl_->userHandler;
}

} // namespace Tessel::Xml
