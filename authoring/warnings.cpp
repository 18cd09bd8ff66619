#include "authoring/warnings.h"

#include <map>
#include <sstream>

#include "authoring/color_names.h"
#include "authoring/contrast.h"
#include "authoring/field_texts.h"
#include "authoring/number_text.h"
#include "format/hex_color.h"
#include "model/widget_fields.h"
#include "platform/foundation/iso8601.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"
#include "views/card_color.h"

namespace orvel {
namespace {

using Text = std::optional<std::string>;

// A warning but for its field.
struct Said {
    std::string name;
    std::string text;
    std::vector<std::string> values = {};
};
using Fault = std::optional<Said>;

std::string inShort(std::string_view text) {
    constexpr std::size_t longest = 60;
    const auto shown = unicode::prefix(text, longest);
    return unicode::onOneLine(shown) + (shown.size() < text.size() ? "…" : "");
}

std::string inShort(double number) {
    std::ostringstream text;
    text << number;
    return text.str();
}

bool isBlank(const std::string& text) {
    return unicode::trimmingWhitespace(unicode::onOneLine(text)).empty();
}

Fault aboutTitle(const std::string& title) {
    if (!isBlank(title)) return std::nullopt;
    return Said{"titleEmpty", sentence("the title is empty")};
}

Fault aboutAccent(const std::string& accent) {
    const auto color = HexColor::hexString(accent);
    if (!color)
        return Said{"accentUnknown",
                    clauses(sentence("accent \"{0}\" is no colour; the standard accent is used", inShort(accent)),
                            nearColor(accent)),
                    {inShort(accent)}};
    const double ratio = contrast(*color, cardBackground);
    if (ratio >= leastContrast) return std::nullopt;
    const std::string better = hexText(lightened(*color, cardBackground)).substr(0, 7);
    std::ostringstream shown;
    shown.precision(1);
    shown << std::fixed << ratio;
    return Said{"accentFaint",
                sentence("accent \"{0}\" is hard to see on the card: its contrast is {1} : 1, and 3 : 1 is wanted; {2} "
                         "has that",
                         inShort(accent), shown.str(), better),
                {better}};
}

Fault aboutTarget(const Text& target) {
    if (!target) return Said{"targetMissing", sentence("a countdown without a target shows \"—\"")};
    if (iso8601::dateTime(*target) || iso8601::fullDate(*target)) return std::nullopt;
    if (iso8601::fullDate(unicode::prefix(*target, 10)))
        return Said{"targetDay",
                    sentence("target \"{0}\" counts to local midnight; its time of day is dropped", inShort(*target)),
                    {inShort(*target)}};
    return Said{"targetUnknown",
                sentence("target \"{0}\" is no date; the card shows \"—\"", inShort(*target)),
                {inShort(*target)}};
}

Fault aboutSymbol(const std::string& symbol, const Symbols& symbols) {
    if (symbols.contains(symbol)) return std::nullopt;
    const std::string cantBeDrawn = sentence("symbol \"{0}\" can't be drawn", inShort(symbol));
    if (const auto nearest = symbols.nearest(symbol))
        return Said{"symbolNear",
                    clauses(cantBeDrawn, sentence("the nearest is \"{0}\"", *nearest)),
                    {inShort(symbol), *nearest}};
    return Said{"symbolUnknown", cantBeDrawn, {inShort(symbol)}};
}

Fault aboutProgress(const std::optional<double>& progress) {
    if (!progress) return Said{"progressMissing", sentence("a progress card without progress shows 0 %")};
    if (*progress >= 0 && *progress <= 1) return std::nullopt;
    return Said{"progressOutside",
                clauses(sentence("progress {0} is not from 0 to 1", inShort(*progress)), perCentMeant(*progress)),
                {inShort(*progress)}};
}

Fault aboutItems(const std::optional<std::vector<std::string>>& items) {
    constexpr std::size_t most = widget_limits::mostItems;
    if (!items || items->empty()) return Said{"itemsMissing", sentence("a list without items shows its title alone")};
    if (items->size() <= most) return std::nullopt;
    const std::string count = std::to_string(items->size());
    return Said{"itemsMany",
                counted("{0} item, of which {1} are shown", "{0} items, of which {1} are shown", items->size(), most),
                {count, std::to_string(most)}};
}

Fault aboutPrimary(const Text& primary) {
    if (!primary) return Said{"primaryMissing", sentence("without a primary text the card shows \"—\"")};
    if (isBlank(*primary))
        return Said{"primaryEmpty", sentence("the primary text is empty, and so is its place on the card")};
    return std::nullopt;
}

// What to say of a field that the design's kind shows.
Fault aboutShown(WidgetField field, const WidgetSpec& spec, const Symbols& symbols) {
    using enum WidgetField;
    switch (field) {
        case title: return aboutTitle(spec.title);
        case accentHex: return aboutAccent(spec.accentHex);
        case symbol: return aboutSymbol(spec.symbol, symbols);
        case primary: return aboutPrimary(spec.primary);
        case items: return aboutItems(spec.items);
        case progress: return aboutProgress(spec.progress);
        case targetISO8601: return aboutTarget(spec.targetISO8601);
        case id:
        case kind:
        case secondary:
        case createdAt: break;
    }
    return std::nullopt;
}

// Whether somebody has set it, as far as that shows.
template <class Row>
bool isGiven(const Row& row, const WidgetSpec& spec) {
    if constexpr (Row::field == WidgetField::symbol) {
        static const std::string standard = WidgetSpec::Fields{.title = "", .kind = {}}.symbol;
        return !spec.symbol.empty() && spec.symbol != standard;
    } else if constexpr (requires { row.in(spec).has_value(); }) {
        return row.in(spec).has_value();
    } else {
        return false;
    }
}

}  // namespace

std::vector<Warning> warnings(const WidgetSpec& spec, const Symbols& symbols) {
    std::vector<Warning> found;
    forEachWidgetField([&](const auto& row) {
        if (shows(spec.kind, row.field)) {
            if (auto said = aboutShown(row.field, spec, symbols))
                found.push_back(
                    {std::string(row.name), std::move(said->text), std::move(said->name), std::move(said->values)});
        } else if (isGiven(row, spec)) {
            const std::string said(typedName(row.field));
            found.push_back(
                {std::string(row.name), sentence("a {0} card doesn't show its {1}", rawValue(spec.kind), said)});
        }
    });
    return found;
}

std::vector<DesignWarning> warnings(const std::vector<WidgetSpec>& specs, const Symbols& symbols) {
    std::vector<DesignWarning> found;
    std::map<std::string, std::size_t> firstWithId;
    for (std::size_t i = 0; i < specs.size(); ++i) {
        for (Warning& warning : warnings(specs[i], symbols)) found.push_back({i, std::move(warning)});
        const auto [first, isNew] = firstWithId.try_emplace(unicode::decomposed(specs[i].id), i);
        if (!isNew)
            found.push_back(
                {i, {"id", sentence("the id \"{0}\" is design @{1}'s too", inShort(specs[i].id), first->second + 1)}});
    }
    return found;
}

}  // namespace orvel
