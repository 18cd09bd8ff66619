#include "platform/ui/language.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>

namespace orvel {
namespace {

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// The language as font libraries write it: "zh-tw". They distinguish kinds of Chinese only by region.
std::string tag(std::string_view language) {
    std::string tag(language.substr(0, language.find_first_of(".@")));
    for (char& c : tag) {
        if (c == '_') c = '-';
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    if (tag == "zh" || tag.starts_with("zh-hans")) return "zh-cn";
    if (tag.starts_with("zh-hant")) return "zh-tw";
    return tag;
}

}  // namespace

bool isLanguage(std::string_view text) {
    text = text.substr(0, text.find_first_of(".@"));
    const auto isPart = [](char c) { return isLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '-'; };
    const auto letters = std::find_if_not(text.begin(), text.end(), isLetter) - text.begin();
    return (letters == 2 || letters == 3) && std::all_of(text.begin(), text.end(), isPart);
}

void useLanguage(const std::string& language) {
    const std::string fonts = tag(language);
    ::setenv("FC_LANG", fonts.c_str(), 1);
    ::setenv("PANGO_LANGUAGE", fonts.c_str(), 1);
    ::setenv("LANGUAGE", language.substr(0, language.find_first_of(".@")).c_str(), 1);
    // When the message locale names no language, gettext ignores the list of languages. With newer versions of glibc,
    // C.UTF-8 names none either, though it is the one locale that is always there.
    const char* const messages = std::setlocale(LC_MESSAGES, nullptr);
    const std::string_view name = messages ? messages : "C";
    if (name == "C" || name == "POSIX" || name.starts_with("C."))
        if (!std::setlocale(LC_MESSAGES, "en_US.UTF-8")) std::setlocale(LC_MESSAGES, "C.UTF-8");
}

}  // namespace orvel
