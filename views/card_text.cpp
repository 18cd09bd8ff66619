#include "views/card_text.h"

#include "platform/foundation/unicode.h"
#include "views/card_words.h"

namespace orvel {

std::string headlineText(const WidgetSpec& spec, const Localizer& localizer, const Platform& platform) {
    const CardWords words = cardWords(spec, platform);
    if (words.headline) return unicode::onOneLine(*words.headline);
    if (words.percent) return localized(percentKey(*words.percent), localizer);
    const std::size_t count = spec.items ? spec.items->size() : 0;
    return std::to_string(count) + (count == 1 ? " item" : " items");
}

std::string cardText(const WidgetSpec& spec, const Localizer& localizer, const Platform& platform) {
    const CardWords words = cardWords(spec, platform);
    std::string text;
    const auto add = [&](const std::string& line) {
        if (line.empty()) return;
        if (!text.empty()) text += '\n';
        text += unicode::onOneLine(line);
    };
    add(words.title);
    if (words.headline) add(*words.headline);
    if (words.percent) add(localized(percentKey(*words.percent), localizer));
    if (words.secondary) add(*words.secondary);
    for (const auto& row : words.rows) add(row);
    return text;
}

}  // namespace orvel
