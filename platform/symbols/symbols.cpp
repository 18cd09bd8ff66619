// A symbol is an icon, or made of several: by a table's line, or in a circle or a square.
#include "platform/symbols/symbols.h"

#include <algorithm>
#include <array>
#include <map>

#include "platform/symbols/composition.h"
#include "platform/symbols/icons.h"
#include "platform/symbols/name_search.h"
#include "platform/symbols/nearest_name.h"
#include "platform/symbols/symbol_name.h"

namespace orvel {
namespace {

using symbol_name::without;

constexpr std::array<std::string_view, 4> enclosures{".circle", ".circle.fill", ".square", ".square.fill"};
constexpr std::string_view fill = ".fill";

// "doc.badge.plus" is filled under two names.
std::optional<std::string> filledBeforeBadge(std::string_view name) {
    const auto badge = name.find(".badge.");
    if (badge == name.npos) return std::nullopt;
    return std::string(name.substr(0, badge)) + std::string(fill) + std::string(name.substr(badge));
}

std::optional<std::string> outlinedBeforeBadge(std::string_view name) {
    const auto badge = name.find(".fill.badge.");
    if (badge == name.npos) return std::nullopt;
    return std::string(name.substr(0, badge)) + std::string(name.substr(badge + fill.size()));
}

}  // namespace

struct Symbols::State {
    std::optional<SymbolOutline> load(std::string_view name) {
        if (auto icon = icons.symbol(name)) return icon;
        if (auto made = composed(name)) return made;
        for (const std::string_view ending : enclosures)
            if (const auto base = without(ending, name))
                if (const auto weight = enclosable.find(*base)) return enclosed(*base, *weight, ending);
        return std::nullopt;
    }

    std::optional<SymbolOutline> composed(std::string_view name) {
        const auto make = [&](std::string_view row, SymbolWeight weight) -> std::optional<SymbolOutline> {
            const auto parts = compositions.find(row);
            if (!parts) return std::nullopt;
            return orvel::composed(*parts, weight, [&](std::string_view part) { return icons.part(part); });
        };
        if (auto made = make(name, SymbolWeight::outlined)) return made;
        if (const auto outlined = without(fill, name))
            if (auto made = make(*outlined, SymbolWeight::filled)) return made;
        if (const auto outlined = outlinedBeforeBadge(name)) return make(*outlined, SymbolWeight::filled);
        return std::nullopt;
    }

    // A symbol that is drawn this small is clearest when it is filled.
    std::optional<SymbolOutline> enclosed(std::string_view base, std::string_view weight, std::string_view ending) {
        auto symbol = weight == "outlined" ? std::nullopt : load(std::string(base) + std::string(fill));
        if (!symbol) symbol = load(base);
        if (!symbol) return std::nullopt;
        return orvel::composed("shape * symbol", SymbolWeight::outlined, [&](std::string_view part) {
            return part == "symbol" ? symbol : icons.symbol(ending.substr(1));
        });
    }

    std::vector<std::string> collectNames() {
        std::vector<std::string> names = icons.symbolNames();
        for (const auto& [name, parts] : compositions.entries()) {
            names.emplace_back(name);
            const std::string first(parts.substr(0, parts.find_first_of(" @")));
            if (!icons.part(first + std::string(fill))) continue;
            names.push_back(std::string(name) + std::string(fill));
            if (auto filled = filledBeforeBadge(name)) names.push_back(*std::move(filled));
        }
        for (const auto& [base, weight] : enclosable.entries())
            for (const std::string_view ending : enclosures) names.push_back(std::string(base) + std::string(ending));
        std::ranges::sort(names);
        names.erase(std::unique(names.begin(), names.end()), names.end());
        return names;
    }

    const std::vector<std::string>& allNames() {
        if (known.empty()) known = collectNames();
        return known;
    }

    Icons icons;
    NameTable compositions = symbol_data::composed();
    NameTable enclosable = symbol_data::enclosable();
    NameTable synonyms = symbol_data::synonyms();
    std::map<std::string, std::optional<SymbolOutline>, std::less<>> outlines;
    std::vector<std::string> known;  ///< empty until they are first needed
};

Symbols::Symbols() : state_(std::make_unique<State>()) {}

Symbols::~Symbols() = default;

const SymbolOutline* Symbols::outline(std::string_view name) const {
    if (!symbol_name::isValid(name)) return nullptr;
    auto found = state_->outlines.find(name);
    if (found == state_->outlines.end()) {
        constexpr std::size_t mostRemembered = 64;
        if (state_->outlines.size() >= mostRemembered) state_->outlines.clear();
        found = state_->outlines.emplace(name, state_->load(name)).first;
    }
    return found->second ? &*found->second : nullptr;
}

std::vector<std::string> Symbols::names() const {
    return state_->allNames();
}

std::vector<std::string> Symbols::search(std::string_view words) const {
    return searchNames(words, state_->allNames(), state_->synonyms);
}

std::optional<std::string> Symbols::nearest(std::string_view name) const {
    if (auto synonymous = synonymousName(name, state_->allNames(), state_->synonyms)) return synonymous;
    return nearestName(name, state_->allNames());
}

}  // namespace orvel
