// Most symbols are glyphs of the first icon font, named like them with "_" for ".". Tables add the names that it spells
// otherwise, icons of a second font, and symbols in a circle or a square.
#include "platform/symbols/symbols.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>

#include "platform/symbols/enclosed.h"
#include "platform/symbols/icon_font.h"
#include "platform/symbols/nearest_name.h"
#include "platform/symbols/symbol_data.h"

namespace orvel {
namespace {

// Both sets shall look equally large: the second one leaves more space around its icons.
constexpr double secondScale = 1.06;

// Endings that go with a name and its counterpart in a set.
constexpr std::array<std::string_view, 8> firstEndings{"",        ".fill",        ".circle", ".circle.fill",
                                                       ".square", ".square.fill", ".slash",  ".slash.fill"};
constexpr std::array<std::string_view, 2> secondEndings{"", ".fill"};
constexpr std::array<std::string_view, 4> enclosures{".circle", ".circle.fill", ".square", ".square.fill"};

bool isName(std::string_view text) {
    constexpr std::size_t longest = 80;
    const auto belongs = [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '.'; };
    // The first font also has the logos of companies.
    if (text.empty() || text.size() > longest || text.starts_with("logo.")) return false;
    return std::ranges::all_of(text, belongs);
}

std::string replaced(std::string_view text, char from, char to) {
    std::string result(text);
    std::ranges::replace(result, from, to);
    return result;
}

std::optional<std::string_view> without(std::string_view ending, std::string_view name) {
    if (!name.ends_with(ending)) return std::nullopt;
    return name.substr(0, name.size() - ending.size());
}

}  // namespace

struct Symbols::State {
    struct Icon {
        IconFont* font;
        IconFont::Glyph glyph;
    };

    std::optional<Icon> icon(std::string_view name) {
        for (const std::string_view ending : firstEndings)
            if (const auto base = without(ending, name))
                if (const auto spelling = respelled.find(*base))
                    if (const auto glyph = first.named(std::string(*spelling) + replaced(ending, '.', '_')))
                        return Icon{&first, glyph};
        for (const std::string_view ending : secondEndings)
            if (const auto base = without(ending, name))
                if (const auto found = secondSet.find(*base))
                    return ofSecondFont(std::string(*found) + replaced(ending, '.', '-'));
        const auto glyph = first.named(replaced(name, '.', '_'));
        if (glyph == IconFont::none) return std::nullopt;
        return Icon{&first, glyph};
    }

    std::optional<Icon> ofSecondFont(std::string_view name) {
        const auto outlinedName = without("-fill", name);
        const auto code = secondCodes.find(outlinedName.value_or(name));
        if (!code) return std::nullopt;
        std::uint32_t codePoint = 0;
        std::from_chars(code->data(), code->data() + code->size(), codePoint, 16);
        IconFont& font = outlinedName ? secondFilled : second;
        const auto glyph = font.coded(codePoint);
        if (glyph == IconFont::none) return std::nullopt;
        return Icon{&font, glyph};
    }

    std::optional<SymbolOutline> load(std::string_view name) {
        if (const auto found = icon(name)) return found->font->outline(found->glyph);
        for (const std::string_view ending : enclosures)
            if (const auto base = without(ending, name))
                if (const auto weight = enclosable.find(*base)) return enclosed(*base, *weight, ending);
        return std::nullopt;
    }

    // Small as it is there, a symbol is clearest filled.
    std::optional<SymbolOutline> enclosed(std::string_view base, std::string_view weight, std::string_view ending) {
        auto symbol = weight == "outlined" ? std::nullopt : icon(std::string(base) + ".fill");
        if (!symbol) symbol = icon(base);
        const auto shape = icon(ending.substr(1));
        if (!symbol || !shape) return std::nullopt;
        return orvel::enclosed(symbol->font->outline(symbol->glyph), shape->font->outline(shape->glyph));
    }

    std::vector<std::string> collectNames() {
        std::vector<std::string> names;
        for (const std::string& glyph : first.glyphNames())
            if (std::string name = replaced(glyph, '_', '.'); isName(name)) names.push_back(std::move(name));
        const auto add = [&](const NameTable& table, const auto& endings) {
            for (const auto& [base, value] : table.entries())
                for (const std::string_view ending : endings) {
                    std::string name = std::string(base) + std::string(ending);
                    if (&table == &enclosable || icon(name)) names.push_back(std::move(name));
                }
        };
        add(respelled, firstEndings);
        add(secondSet, secondEndings);
        add(enclosable, enclosures);
        std::ranges::sort(names);
        names.erase(std::unique(names.begin(), names.end()), names.end());
        return names;
    }

    const std::vector<std::string>& allNames() {
        if (known.empty()) known = collectNames();
        return known;
    }

    IconFont first{symbol_data::firstFont()};
    IconFont second{symbol_data::secondFont(), secondScale};
    IconFont secondFilled{symbol_data::secondFontFilled(), secondScale};
    NameTable secondCodes = symbol_data::secondCodes();
    NameTable respelled = symbol_data::respelled();
    NameTable secondSet = symbol_data::secondSet();
    NameTable enclosable = symbol_data::enclosable();
    std::map<std::string, std::optional<SymbolOutline>, std::less<>> outlines;
    std::vector<std::string> known;  ///< once somebody asked for them
};

Symbols::Symbols() : state_(std::make_unique<State>()) {}

Symbols::~Symbols() = default;

const SymbolOutline* Symbols::outline(std::string_view name) const {
    if (!isName(name)) return nullptr;
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

std::optional<std::string> Symbols::nearest(std::string_view name) const {
    return nearestName(name, state_->allNames());
}

}  // namespace orvel
