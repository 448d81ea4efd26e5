#include <grafel/catalogue/StdObjTypes.h>

#include <grafel/catalogue/PropCat.h>
#include <grafel/catalogue/PropInfo.h>
#include <grafel/catalogue/detail/ObjTypeRows.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/ValueVariants.h>
#include <grafel/structure/ObjType.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <thread>

namespace Grafel {

using Arbor::Token;

namespace {

template <class T> T* appended(T* parent, std::initializer_list<PlotElement*> children) {
    bool ended = false;
    for (PlotElement* child : children) {
        if (!child)
            ended = true;
        else if (!ended)
            parent->appendChild(child);
        else
            Tessel::Ref<PlotElement> unused(child); // made for the list, so freed with it
    }
    return parent;
}

// Builds the rows from `row` up to the End of the category that `row` opens.
PropCat* buildCategory(PlotDocument* doc, const detail::ObjTypeRow*& row) {
    PropCat* cat = makePropCat(doc, detail::objTypeCaptions[row->a], {});
    for (++row; row->kind != detail::ObjTypeRow::End; ++row) {
        PlotElement* child = row->kind == detail::ObjTypeRow::Category
                                 ? static_cast<PlotElement*>(buildCategory(doc, row))
                                 : makePropInfo(doc, getToken(row->a), getToken(row->opt),
                                                getToken(row->type), row->recalc);
        cat->appendChild(child);
    }
    return cat;
}

const detail::ObjTypeList* listOf(Token type) {
    for (int i = 0; i < detail::objTypeListCount; ++i)
        if (getToken(detail::objTypeLists[i].typeId) == type) return &detail::objTypeLists[i];
    return nullptr;
}

// The catalogue document, and an index of its entries by the word of their type token, so
// that a later lookup does not walk the Canvas.
class Catalogue {
public:
    Catalogue() {
        Arbor::Ref<Arbor::Element> canvas(doc_->createElement(tok_Canvas));
        doc_->appendChild(canvas.get());
    }

    ObjType* find(Token type) const {
        for (std::size_t i = slotOf(type);; i = (i + 1) % slots_.size()) {
            if (slots_[i].type == type) return slots_[i].entry;
            if (slots_[i].type.isNull()) return nullptr;
        }
    }

    ObjType* build(Token type) {
        Arbor::Element* canvas = doc_->documentElement();
        const detail::ObjTypeList* list = listOf(type);
        if (!canvas || !list || !list->served) return nullptr;
        Arbor::Ref<ObjType> entry(buildObjTypeList(doc_.get(), type));
        canvas->appendChild(entry.get());
        std::size_t i = slotOf(type);
        while (!slots_[i].type.isNull()) i = (i + 1) % slots_.size();
        slots_[i] = {type, entry.get()};
        return entry.get();
    }

private:
    static std::size_t slotOf(Token type) {
        return static_cast<std::size_t>((type.word() >> 3) * 0x9E3779B97F4A7C15ull >> 57);
    }

    struct Slot {
        Token type;
        ObjType* entry;
    };
    Arbor::Ref<PlotDocument> doc_{new PlotDocument};
    // Twice the served types at most, so a probe always meets an empty slot.
    std::array<Slot, 128> slots_{};
};

// The catalogue's lock: a word that one locked exchange takes, so that an uncontended lookup
// costs little more than the index probe. A waiter spins briefly, then yields; it waits long
// only while another thread builds an entry. Constant-initialised, so it exists before any
// caller, and ordinary lock semantics (acquire on taking, release on leaving) guard the tree.
class CatalogueLock {
public:
    void lock() noexcept {
        for (int spins = 0; taken_.exchange(true, std::memory_order_acquire); ++spins) {
            while (taken_.load(std::memory_order_relaxed)) {
                if (++spins > 64) std::this_thread::yield();
            }
        }
    }
    void unlock() noexcept { taken_.store(false, std::memory_order_release); }

private:
    std::atomic<bool> taken_{false};
};

constinit CatalogueLock catalogueLock;

PlotElement* lookupForDocuments(Token type) {
    return getStdObjType(type);
}

// Installs the catalogue behind PlotDocument::getStdObjType as the library loads.
const bool installed = (PlotDocument::setStdObjTypeLookup(&lookupForDocuments), true);

} // namespace

ObjType* getStdObjType(Token type) {
    const std::lock_guard<CatalogueLock> hold(catalogueLock);
    static Catalogue catalogue;
    if (type.isNull()) return nullptr;
    if (ObjType* entry = catalogue.find(type)) return entry;
    return catalogue.build(type);
}

ObjType* makeObjType(PlotDocument* doc, Token type,
                     std::initializer_list<PlotElement*> categories) {
    auto* e = static_cast<ObjType*>(doc->createPlotElement(tok_ObjType));
    e->setAttribute(tok_Type, Arbor::TokenVariant(type));
    return appended(e, categories);
}

PropCat* makePropCat(PlotDocument* doc, const wchar_t* name,
                     std::initializer_list<PlotElement*> children) {
    auto* e = static_cast<PropCat*>(doc->createPlotElement(tok_PropCat));
    e->setAttribute(tok_Name, Arbor::FixedUStringVariant(Tessel::FixedStringBase<wchar_t>(name)));
    return appended(e, children);
}

PropInfo* makePropInfo(PlotDocument* doc, Token dom, Token opt, Token type, bool recalc) {
    auto* e = static_cast<PropInfo*>(doc->createPlotElement(tok_PropInfo));
    e->setAttribute(tok_Dom, Arbor::TokenVariant(dom));
    e->setAttribute(tok_Opt, Arbor::TokenVariant(opt));
    e->setAttribute(tok_Type, Arbor::TokenVariant(type));
    e->setAttribute(tok_Recalc, Arbor::BoolVariant(recalc));
    return e;
}

ObjType* buildObjTypeList(PlotDocument* doc, Token type) {
    const detail::ObjTypeList* list = listOf(type);
    if (!list) return nullptr;
    ObjType* entry = makeObjType(doc, type, {});
    const detail::ObjTypeRow* end = detail::objTypeRows + list->first + list->count;
    for (const detail::ObjTypeRow* row = detail::objTypeRows + list->first; row < end; ++row) {
        PropCat* cat = buildCategory(doc, row);
        entry->appendChild(cat);
    }
    return entry;
}

std::vector<Token> objTypeListTypes() {
    std::vector<Token> out;
    for (int i = 0; i < detail::objTypeListCount; ++i)
        out.push_back(getToken(detail::objTypeLists[i].typeId));
    return out;
}

std::vector<Token> servedObjTypes() {
    std::vector<Token> out;
    for (int i = 0; i < detail::objTypeListCount; ++i)
        if (detail::objTypeLists[i].served) out.push_back(getToken(detail::objTypeLists[i].typeId));
    return out;
}

} // namespace Grafel
