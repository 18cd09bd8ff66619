#include "platform/render/word_dictionary.h"

#include <dlfcn.h>
#include <unicode/ubrk.h>
#include <unicode/uvernum.h>

#include <memory>

namespace orvel {
namespace {

// ICU's headers give every function the version's own name.
#define ORVEL_TEXT_OF(name) #name
#define ORVEL_EXPANDED(name) ORVEL_TEXT_OF(name)

struct BreakIterators {
    decltype(&ubrk_open) open = nullptr;
    decltype(&ubrk_next) next = nullptr;
    decltype(&ubrk_close) close = nullptr;

    BreakIterators() {
        void* const library = ::dlopen("libicuuc.so." U_ICU_VERSION_SHORT, RTLD_LAZY | RTLD_LOCAL);
        if (!library) return;
        next = reinterpret_cast<decltype(next)>(::dlsym(library, ORVEL_EXPANDED(ubrk_next)));
        close = reinterpret_cast<decltype(close)>(::dlsym(library, ORVEL_EXPANDED(ubrk_close)));
        if (next && close) open = reinterpret_cast<decltype(open)>(::dlsym(library, ORVEL_EXPANDED(ubrk_open)));
    }
};

}  // namespace

std::vector<std::size_t> dictionaryBreaks(std::u16string_view text) {
    static const BreakIterators icu;
    std::vector<std::size_t> breaks;
    if (!icu.open) return breaks;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UBreakIterator, decltype(&ubrk_close)> iterator(
        icu.open(UBRK_LINE, "en", text.data(), static_cast<int>(text.size()), &status), icu.close);
    if (U_FAILURE(status)) return breaks;
    for (int at = icu.next(iterator.get()); at != UBRK_DONE; at = icu.next(iterator.get()))
        breaks.push_back(static_cast<std::size_t>(at));
    return breaks;
}

}  // namespace orvel
