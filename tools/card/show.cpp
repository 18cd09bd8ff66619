#include "tools/card/show.h"

#include <algorithm>

#include "model/widget_kind.h"
#include "platform/foundation/json_writer.h"
#include "platform/foundation/markup.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"
#include "platform/ui/gettext_localizer.h"
#include "tools/card/follow.h"
#include "tools/core/input_output.h"
#include "views/card_text.h"
#include "views/card_words.h"

namespace orvel::tools {
namespace {

void writeWords(json::Writer& writer, const WidgetSpec& spec, const Platform& platform) {
    const CardWords words = cardWords(spec, platform);
    writer.beginObject().key("kind").string(rawValue(spec.kind)).key("title").string(words.title);
    if (words.headline) writer.key("headline").string(*words.headline);
    if (words.percent) writer.key("percent").integer(*words.percent);
    if (words.secondary) writer.key("secondary").string(*words.secondary);
    if (shows(spec.kind, WidgetField::items)) {
        writer.key("rows").beginArray();
        for (const auto& row : words.rows) writer.string(row);
        writer.endArray();
    }
    writer.endObject();
}

// A bar reads both texts as markup.
void writeForBar(json::Writer& writer, const std::string& text, const std::string& tooltip, std::string_view sort) {
    writer.key("text").string(escapedForMarkup(text)).key("tooltip").string(escapedForMarkup(tooltip));
    writer.key("class").string(sort);
}

std::optional<std::string> forBar(const Outcome<ShownEntry>& shown, const Localizer& localizer,
                                  const Platform& platform) {
    json::Writer writer;
    writer.beginObject();
    // Waybar hides a module without text.
    if (!shown || shown->complaint) {
        writeForBar(writer, "⚠", unicode::onOneLine(shown ? *shown->complaint : shown.failure().reason), "error");
    } else if (const auto& spec = shown->entry.spec; !spec) {
        writeForBar(writer, "", localized(emptyStateKey(), localizer), "empty");
    } else {
        const bool isList = shows(spec->kind, WidgetField::items);
        const std::string text = isList ? unicode::onOneLine(spec->title) : headlineText(*spec, localizer, platform);
        writeForBar(writer, text, cardText(*spec, localizer, platform), rawValue(spec->kind));
        if (const auto percent = cardWords(*spec, platform).percent)
            writer.key("percentage").integer(std::clamp<std::int64_t>(*percent, 0, 100));
    }
    return writer.endObject().finish();
}

std::optional<std::string> asJson(const std::optional<WidgetSpec>& spec, const Platform& platform) {
    json::Writer writer;
    if (spec)
        writeWords(writer, *spec, platform);
    else
        writer.null();
    return writer.finish();
}

class ShownWords {
public:
    ShownWords(const ShowChoices& choices, const Platform& platform, Console& console)
        : choices_(choices), platform_(platform), console_(console) {}

    /// Prints the words as they are now, unless they were printed last.
    Outcome<Done> update() {
        const auto shown = shownEntry(choices_.design, platform_, console_);
        if (choices_.form == WordsForm::waybar) return print(forBar(shown, localizer_, platform_));
        if (!shown) return shown.failure();
        const auto& spec = shown->entry.spec;
        const auto printed = print(choices_.form == WordsForm::json ? asJson(spec, platform_)
                                   : spec                           ? cardText(*spec, localizer_, platform_)
                                                                    : localized(emptyStateKey(), localizer_));
        if (!printed) return printed.failure();
        return unlessComplaint(shown->complaint);
    }

private:
    Outcome<Done> print(const std::optional<std::string>& words) {
        if (words && words == printed_) return Done{};
        if (choices_.form != WordsForm::text) {
            const auto printed = printJson(words, toTranslate("the card"), console_);
            if (!printed) return printed.failure();
        } else {
            console_.out << (printed_ ? "\n" : "") << words.value_or("") << '\n' << std::flush;
        }
        printed_ = words;
        return Done{};
    }

    const ShowChoices& choices_;
    const Platform& platform_;
    Console& console_;
    GettextLocalizer localizer_{GettextLocalizer::installedDirectory()};
    std::optional<std::string> printed_;
};

}  // namespace

Outcome<Done> show(const ShowChoices& choices, const Platform& platform, Console& console) {
    ShownWords words(choices, platform, console);
    if (!choices.follow) return words.update();
    return follow(choices.design, platform, console, [&] { return words.update(); });
}

}  // namespace orvel::tools
