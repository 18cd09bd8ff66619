#include "platform/language/sentence.h"

#include <libintl.h>

#include <atomic>

namespace orvel {
namespace {

constexpr const char* domain = "orvel-command";

// As the locale and gettext's catalogues, a matter of the whole process.
std::atomic<bool> isTranslating = false;

}  // namespace

void translateSentences(const std::filesystem::path& directory) {
    ::bindtextdomain(domain, directory.c_str());
    ::bind_textdomain_codeset(domain, "UTF-8");
    ::bind_textdomain_codeset("libc", "UTF-8");  // the system's reasons
    isTranslating = true;
}

void keepSentencesEnglish() {
    isTranslating = false;
}

std::string filled(std::string_view pattern, std::initializer_list<std::string> values) {
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const std::size_t value = i + 2 < pattern.size() && pattern[i] == '{' && pattern[i + 2] == '}'
                                      ? static_cast<std::size_t>(pattern[i + 1] - '0')
                                      : values.size();
        if (value < values.size()) {
            text += values.begin()[value];
            i += 2;
        } else {
            text += pattern[i];
        }
    }
    return text;
}

std::string clauses(std::string_view first, std::string_view second) {
    if (second.empty()) return std::string(first);
    return sentence("{0}; {1}", first, second);
}

namespace sentences {

// An empty text would be the catalogue's header.
std::string translated(std::string_view english) {
    std::string text(english);
    return isTranslating && !text.empty() ? ::dgettext(domain, text.c_str()) : text;
}

std::string translated(std::string_view one, std::string_view several, std::size_t count) {
    const std::string first(one);
    const std::string other(several);
    if (!isTranslating) return count == 1 ? first : other;
    return ::dngettext(domain, first.c_str(), other.c_str(), count);
}

}  // namespace sentences
}  // namespace orvel
