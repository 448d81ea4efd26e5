#include <grafel/tessel/xml/Parser.h>

#include <grafel/tessel/xml/ElementRun.h>
#include <grafel/tessel/xml/Handler.h>
#include <grafel/tessel/xml/PlainText.h>

#include <array>
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

// A position as the C parser counts it: line from 1, column in characters from 0.
struct Position {
    long line;
    long column;
};

// Whether a name can be found in the text as written, without a prefix.
bool isPlainName(const std::string& name) {
    if (name.empty()) return false;
    for (char c : name) {
        const bool ok = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                        (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.';
        if (!ok) return false;
    }
    return true;
}

// Bytes of text taken plain, line feeds apart: those that stand for themselves in character data
// in UTF-8 and keep the line and column count simple.
constexpr std::array<bool, 256> plainTextBytes = [] {
    std::array<bool, 256> table{};
    for (int c = 0x20; c < 0x7f; ++c) table[c] = true;
    table['<'] = table['&'] = table[']'] = false;
    table['\t'] = true;
    return table;
}();

// Whether the C parser's character data always ends in front of this byte, the end of the input
// apart: a line feed, which is reported by itself, or the start of markup, of a reference or of
// a line end. After other bytes the data may go on.
inline bool endsCharacterData(char c) {
    return c == '\n' || c == '<' || c == '&' || c == '\r';
}

// Whether an encoding named in a document or by the caller hands character data over as it
// stands in the input, in one piece per token of the C parser.
bool isUtf8Name(const char* name) {
    if (!name) return true;
    std::string lower(name);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lower == "utf-8" || lower == "us-ascii";
}

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

    // Runs of plain elements (see ElementRun). The C parser never sees the text of a run, so
    // its positions behind a run are shifted here: by the line feeds the run held, and on the
    // line where the C parser stood when the run began, by the columns the run added to it.
    bool runsEnabled = true;
    ElementRunReader* runReader = nullptr; // the handler, when it takes runs
    bool runNamesAsked = false;
    bool attributesDeclared = false;
    std::vector<std::string> runNames;
    std::vector<std::string> runPatterns; // "</name><name>": where a run may start
    std::vector<const char*> runHits;     // the next place of each pattern in the current text
    long long fed = 0;                    // bytes given to the C parser
    Ids lastEndIds = {};
    long long lastEndAt = -1; // byte behind the last end tag the C parser reported
    int lastEndBytes = 0;
    long lineShift = 0;
    long shiftedLine = -1; // a line of the C parser's count on which columnShift applies
    long columnShift = 0;
    ElementRun* run = nullptr; // while a handler takes one
    const char* runStart = nullptr;
    Position runBase = {};      // the true position of runStart
    Position runExpat = {};     // the C parser's position there
    bool positionFixed = false; // a run failed: the position stays that of its failure
    Position fixedPosition = {};

    // Plain text (see PlainTextReader). The C parser is fed up to the end of the start tag of an
    // element whose text the handler takes plain, and when that tag was its last event, the
    // text goes to the handler from here up to the first byte that needs the C parser, which
    // goes on from there. Its positions are shifted as behind a run.
    bool textEnabled = true;
    PlainTextReader* textReader = nullptr; // the handler, when it takes plain text
    bool encodingPlain = true;             // the document's encoding allows plain text
    std::vector<std::string> textPatterns; // the names, searched without their '<', which is
                                           // much more frequent
    std::vector<const char*> textHits;     // the next place of each pattern in the current text
    std::vector<const char*> textSplits;   // behind the start tag found there, or null
    Ids lastStartIds = {};
    long long lastStartEnd = -1; // byte behind the last start tag, while its element is open
    char lastFed[2] = {};        // the last two bytes given to the C parser
    bool inText = false;
    Position textBase = {};  // the true position where the text began
    Position textExpat = {}; // the C parser's position there
    long textLines = 0;      // line feeds taken since
    long textTail = 0;       // bytes taken behind the last of them, or since the start

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
        XML_SetAttlistDeclHandler(xml, &Impl::onAttributeDeclaration);
        XML_SetXmlDeclHandler(xml, &Impl::onXmlDeclaration);
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
        runNamesAsked = false;
        attributesDeclared = false;
        fed = 0;
        lastEndAt = -1;
        lineShift = columnShift = 0;
        shiftedLine = -1;
        run = nullptr;
        positionFixed = false;
        encodingPlain = !hasEncoding || isUtf8Name(encoding.c_str());
        lastStartEnd = -1;
        lastFed[0] = lastFed[1] = 0;
        inText = false;
    }

    Position expatPosition() const {
        return {static_cast<long>(XML_GetCurrentLineNumber(xml)),
                static_cast<long>(XML_GetCurrentColumnNumber(xml))};
    }

    Position position() const {
        if (positionFixed) return fixedPosition;
        if (run) return positionInRun(run->endTag_ ? run->endTag_ : runStart);
        if (inText) return textPosition();
        const Position p = expatPosition();
        return {p.line + lineShift, p.column + (p.line == shiftedLine ? columnShift : 0)};
    }

    // Line feeds in [runStart, at), and the bytes behind the last of them; the bytes of a run
    // are single characters.
    void countLines(const char* at, long& lines, long& tail) const {
        lines = 0;
        const char* lineStart = runStart;
        for (const char* p = runStart;
             (p = static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(at - p))));
             lineStart = ++p)
            ++lines;
        tail = static_cast<long>(at - lineStart);
    }

    Position positionInRun(const char* at) const {
        long lines;
        long tail;
        countLines(at, lines, tail);
        if (lines == 0) return {runBase.line, runBase.column + tail};
        return {runBase.line + lines, tail};
    }

    // The true position reached in plain text.
    Position textPosition() const {
        if (textLines == 0) return {textBase.line, textBase.column + textTail};
        return {textBase.line + textLines, textTail};
    }

    void askRunNames() {
        runNamesAsked = true;
        runNames.clear();
        runPatterns.clear();
        textPatterns.clear();
        textReader = textEnabled ? dynamic_cast<PlainTextReader*>(handler) : nullptr;
        if (textReader)
            for (const std::string& name : textReader->plainTextNames())
                if (isPlainName(name)) textPatterns.push_back(name);
        runReader = dynamic_cast<ElementRunReader*>(handler);
        if (!runReader || !runsEnabled || attributesDeclared) return;
        for (std::string& name : runReader->elementRunNames()) {
            if (!isPlainName(name)) continue;
            runPatterns.push_back("</" + name + "><" + name + ">");
            runNames.push_back(std::move(name));
        }
    }

    XML_Status feed(const char* data, std::size_t length, bool isFinal) {
        fed += static_cast<long long>(length);
        if (length >= 2) {
            lastFed[0] = data[length - 2];
            lastFed[1] = data[length - 1];
        } else if (length == 1) {
            lastFed[0] = lastFed[1];
            lastFed[1] = data[0];
        }
        return XML_Parse(xml, data, static_cast<int>(length), isFinal ? XML_TRUE : XML_FALSE);
    }

    // The next place of the start tag of an element taken plain, at or behind `p`, and where
    // that tag ends; `split` stays null when no end lies in the text.
    const char* findTextTag(std::size_t i, const char* p, const char* end, const char*& split) {
        const std::string& name = textPatterns[i];
        for (const char* from = p;;) {
            split = nullptr;
            const std::size_t at =
                std::string_view(from, static_cast<std::size_t>(end - from)).find(name);
            if (at == std::string_view::npos) return end;
            const char* found = from + at;
            if (found == p || found[-1] != '<') {
                from = found + 1;
                continue;
            }
            const char* hit = found - 1;
            const char* q = hit + 1 + name.size();
            if (q == end) return hit;
            if (*q != '>' && *q != '/' && *q != ' ' && *q != '\t' && *q != '\n' && *q != '\r') {
                from = q; // a longer name
                continue;
            }
            // Attribute values may hold '>' but no '<'; the C parser checks the rest.
            char quote = 0;
            for (; q != end; ++q) {
                if (quote) {
                    if (*q == quote) quote = 0;
                } else if (*q == '"' || *q == '\'') {
                    quote = *q;
                } else if (*q == '>') {
                    split = q + 1;
                    break;
                } else if (*q == '<') {
                    break;
                }
            }
            return hit;
        }
    }

    // The text in pieces cut where a run or plain text may start: when the C parser has just
    // reported the end tag (or start tag) written right there, and the handler takes the run
    // (or the text), the handler reads it, and the C parser goes on behind it.
    XML_Status parseWithSplits(const char* data, std::size_t length, bool isFinal) {
        const char* p = data;
        const char* const end = data + length;
        if (inText) {
            p = takeText(p, end);
            if (stopped) return XML_STATUS_ERROR;
        }
        runHits.assign(runPatterns.size(), nullptr);
        textHits.assign(textPatterns.size(), nullptr);
        textSplits.assign(textPatterns.size(), nullptr);
        for (;;) {
            if (inText) {
                // All the rest was plain text.
                if (!isFinal) return XML_STATUS_OK;
                leaveText();
                return feed(end, 0, true);
            }
            const char* split = nullptr;
            std::size_t which = 0;
            bool isRun = true;
            for (std::size_t i = 0; i < runPatterns.size(); ++i) {
                if (!runHits[i] || runHits[i] < p) {
                    const std::size_t at =
                        std::string_view(p, static_cast<std::size_t>(end - p)).find(runPatterns[i]);
                    runHits[i] = at == std::string_view::npos ? end : p + at;
                }
                if (runHits[i] != end && (!split || runHits[i] < split)) {
                    split = runHits[i];
                    which = i;
                }
            }
            if (split) split += runNames[which].size() + 3;
            for (std::size_t i = 0; i < textPatterns.size(); ++i) {
                if (!textHits[i] || textHits[i] < p)
                    textHits[i] = findTextTag(i, p, end, textSplits[i]);
                if (textSplits[i] && (!split || textSplits[i] < split)) {
                    split = textSplits[i];
                    which = i;
                    isRun = false;
                }
            }
            if (!split) break;
            const XML_Status status = feed(p, static_cast<std::size_t>(split - p), false);
            p = split;
            if (status != XML_STATUS_OK || stopped) return status;
            if (!isRun) {
                if (startText()) p = takeText(p, end);
                if (stopped) return XML_STATUS_ERROR;
                continue;
            }
            const std::size_t endTagBytes = runNames[which].size() + 3;
            if (runPatterns.empty() || lastEndAt != fed ||
                lastEndBytes != static_cast<int>(endTagBytes) || handler->ignoreDepth_ > 0)
                continue;
            p = takeRun(p, end, runNames[which]);
            if (stopped) return XML_STATUS_ERROR;
        }
        const XML_Status status = feed(p, static_cast<std::size_t>(end - p), isFinal);
        // A start tag that ends with the piece: its text comes with the next one.
        if (status == XML_STATUS_OK && !stopped && !isFinal) startText();
        if (stopped) return XML_STATUS_ERROR;
        return status;
    }

    // Whether the handler takes the text behind the start tag the C parser reported last, which
    // ends where it was fed up to; if so, the text begins.
    bool startText() {
        if (!textReader || lastStartEnd != fed || !encodingPlain || handler->ignoreDepth_ > 0)
            return false;
        // A start tag written in single bytes ends in '>' behind anything but a zero byte; in
        // UTF-16 the zero byte of its '>' is on one side or the other.
        if (lastFed[1] != '>' || lastFed[0] == '\0') return false;
        lastStartEnd = -1;
        try {
            if (!textReader->takesPlainText(lastStartIds.namespaceId, lastStartIds.nameId))
                return false;
        } catch (...) {
            exception = std::current_exception();
            stopped = true;
            return false;
        }
        textBase = position();
        textExpat = expatPosition();
        textLines = textTail = 0;
        inText = true;
        return true;
    }

    // Hands the plain text at `p` to the handler in the pieces the C parser would report: the
    // characters up to a line feed, the end of the input or a byte before which its character
    // data always ends, and each line feed by itself. Answers where the C parser goes on, or
    // `end` when the text may go on in the next input; text that ends in front of another
    // byte goes to the C parser, which may report it together with what follows.
    const char* takeText(const char* p, const char* end) {
        while (p != end) {
            const char* q = p;
            if (*q == '\n') {
                ++q;
            } else {
                while (q != end && plainTextBytes[static_cast<unsigned char>(*q)]) ++q;
                if (q == p || (q != end && !endsCharacterData(*q))) {
                    leaveText();
                    return p;
                }
            }
            giveText(p, q);
            if (stopped) return p;
            p = q;
        }
        return end;
    }

    void giveText(const char* from, const char* to) {
        const int length = static_cast<int>(to - from);
        if (handler->ignoreDepth_ == 0) {
            try {
                handler->characterData(from, length);
            } catch (...) {
                exception = std::current_exception();
                stopped = true;
            }
        }
        if (*from == '\n') { // given by itself
            ++textLines;
            textTail = 0;
        } else {
            textTail += length;
        }
        if (stopped) {
            // The C parser, stopped by a handler, stands behind the piece of the event.
            fixedPosition = textPosition();
            positionFixed = true;
        }
    }

    // The C parser goes on behind the plain text: its positions are shifted by what it missed.
    void leaveText() {
        inText = false;
        shiftBehind(textExpat, textLines, textTail);
    }

    // Shifts the C parser's positions behind text it did not see, which began where it stood at
    // `at` and held `lines` line feeds and `tail` bytes behind the last of them.
    void shiftBehind(Position at, long lines, long tail) {
        const long shiftBefore = at.line == shiftedLine ? columnShift : 0;
        if (lines == 0) {
            columnShift = shiftBefore + tail;
        } else {
            lineShift += lines;
            columnShift = tail - at.column;
        }
        shiftedLine = at.line;
    }

    // Hands the run at `at` to the handler, if it takes one; answers where the C parser goes
    // on. A failure is kept as a failure of the C parser would be, at the element's end tag.
    const char* takeRun(const char* at, const char* end, const std::string& name) {
        ElementRun elements(at, end, name);
        runStart = at;
        runExpat = expatPosition();
        runBase = position();
        try {
            if (!runReader->takesElementRun(lastEndIds.namespaceId, lastEndIds.nameId)) return at;
            run = &elements;
            runReader->elementRun(lastEndIds.namespaceId, lastEndIds.nameId, elements);
        } catch (...) {
            // The C parser, stopped by a handler, stands behind the end tag of the event.
            fixedPosition = positionInRun(elements.at_);
            positionFixed = true;
            run = nullptr;
            exception = std::current_exception();
            stopped = true;
            return at;
        }
        run = nullptr;
        const char* stop = elements.at_;
        long lines;
        long tail;
        countLines(stop, lines, tail);
        shiftBehind(runExpat, lines, tail);
        return stop;
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

    // Keeps where the start tag just reported ends. In the text of an entity, it is not in the
    // input, but the element also ends there.
    void noteStart(Ids ids) {
        lastStartIds = ids;
        lastStartEnd = XML_GetCurrentByteIndex(xml) + XML_GetCurrentByteCount(xml);
    }

    // The callbacks of the C parser. None of them lets an exception pass.

    static void XMLCALL onStart(void* data, const XML_Char* name, const XML_Char** atts) {
        auto* self = static_cast<Impl*>(data);
        if (self->stopped) return;
        self->lastStartEnd = -1;
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
            if (self->textReader) self->noteStart(ids);
        } catch (...) {
            self->fail(std::current_exception());
        }
    }

    static void XMLCALL onEnd(void* data, const XML_Char*) {
        auto* self = static_cast<Impl*>(data);
        self->lastStartEnd = -1;
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
            if (!self->runPatterns.empty()) {
                self->lastEndIds = ids;
                self->lastEndAt = XML_GetCurrentByteIndex(self->xml);
                self->lastEndBytes = XML_GetCurrentByteCount(self->xml);
                self->lastEndAt += self->lastEndBytes;
            }
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

    // A declared attribute may have a default value, which every element of its name then
    // carries; a run cannot see it, so a document that declares attributes has no runs.
    static void XMLCALL onAttributeDeclaration(void* data, const XML_Char*, const XML_Char*,
                                               const XML_Char*, const XML_Char*, int) {
        auto* self = static_cast<Impl*>(data);
        self->attributesDeclared = true;
        self->runPatterns.clear();
    }

    static void XMLCALL onXmlDeclaration(void* data, const XML_Char*, const XML_Char* encoding,
                                         int) {
        auto* self = static_cast<Impl*>(data);
        if (!self->hasEncoding && !isUtf8Name(encoding)) self->encodingPlain = false;
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
                                                            : nullptr)) {
    impl_->runsEnabled = other.impl_->runsEnabled;
    impl_->textEnabled = other.impl_->textEnabled;
}

Parser& Parser::operator=(const Parser& other) {
    if (this != &other) {
        // Made before the old one goes, so that a failure leaves this parser as it was.
        auto fresh = std::make_unique<Impl>(other.impl_->userHandler, other.impl_->namespaces,
                                            other.impl_->hasEncoding ? other.impl_->encoding.c_str()
                                                                     : nullptr);
        fresh->runsEnabled = other.impl_->runsEnabled;
        fresh->textEnabled = other.impl_->textEnabled;
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
    XML_Status result;
    try {
        if (!s.runNamesAsked) s.askRunNames();
        if (s.inText ||
            ((!s.runPatterns.empty() || !s.textPatterns.empty()) && length > 0 && data)) {
            result =
                s.parseWithSplits(data, length > 0 ? static_cast<std::size_t>(length) : 0, isFinal);
        } else {
            // Counted all the same: a run must find the count exact whenever it is asked.
            if (length > 0) s.fed += length;
            result = XML_Parse(s.xml, data, length, isFinal ? XML_TRUE : XML_FALSE);
        }
    } catch (...) {
        s.inParse = false;
        throw;
    }
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
    return impl_->position().line;
}

long Parser::currentColumn() const {
    return impl_->position().column + 1;
}

void Parser::setElementRuns(bool on) {
    if (impl_->inParse) return;
    impl_->runsEnabled = on;
    impl_->runNamesAsked = false;
}

bool Parser::elementRuns() const {
    return impl_->runsEnabled;
}

void Parser::setPlainText(bool on) {
    if (impl_->inParse) return;
    impl_->textEnabled = on;
    impl_->runNamesAsked = false;
}

bool Parser::plainText() const {
    return impl_->textEnabled;
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
