// Most symbols are glyphs of the first icon font, named like them with "_" for ".". Tables add the names that it spells
// otherwise, and icons of a second font.
#include "platform/symbols/icons.h"

#include <array>
#include <charconv>
#include <cstdint>

#include "platform/symbols/path_data.h"
#include "platform/symbols/symbol_name.h"

namespace orvel {
namespace {

using symbol_name::replaced;
using symbol_name::without;

// Endings that go with a name and its counterpart in a set.
constexpr std::array<std::string_view, 8> firstEndings{"",        ".fill",        ".circle", ".circle.fill",
                                                       ".square", ".square.fill", ".slash",  ".slash.fill"};
constexpr std::array<std::string_view, 2> secondEndings{"", ".fill"};

}  // namespace

std::optional<SymbolOutline> Icons::symbol(std::string_view name) {
    const auto icon = find(name);
    if (!icon) return std::nullopt;
    return icon->font->outline(icon->glyph);
}

std::optional<SymbolOutline> Icons::part(std::string_view name) {
    if (const auto pathData = drawn_.find(name)) return outlineOfPathData(*pathData);
    auto icon = find(name);
    // In the second font, symbols without a filled form often have one in a box.
    const auto outlined = without(".fill", name);
    if (!icon && !(outlined && find(*outlined))) icon = ofSecondFont(replaced(name, '.', '-'));
    if (!icon) return std::nullopt;
    return icon->font->outline(icon->glyph);
}

std::optional<Icons::Icon> Icons::find(std::string_view name) {
    for (const std::string_view ending : firstEndings)
        if (const auto base = without(ending, name))
            if (const auto spelling = respelled_.find(*base))
                if (const auto glyph = first_.named(std::string(*spelling) + replaced(ending, '.', '_')))
                    return Icon{&first_, glyph};
    for (const std::string_view ending : secondEndings)
        if (const auto base = without(ending, name))
            if (const auto found = secondSet_.find(*base))
                return ofSecondFont(std::string(*found) + replaced(ending, '.', '-'));
    const auto glyph = first_.named(replaced(name, '.', '_'));
    if (glyph == IconFont::none) return std::nullopt;
    return Icon{&first_, glyph};
}

std::optional<Icons::Icon> Icons::ofSecondFont(std::string_view name) {
    const auto outlinedName = without("-fill", name);
    const auto code = secondCodes_.find(outlinedName.value_or(name));
    if (!code) return std::nullopt;
    std::uint32_t codePoint = 0;
    std::from_chars(code->data(), code->data() + code->size(), codePoint, 16);
    IconFont& font = outlinedName ? secondFilled_ : second_;
    const auto glyph = font.coded(codePoint);
    if (glyph == IconFont::none) return std::nullopt;
    return Icon{&font, glyph};
}

std::vector<std::string> Icons::symbolNames() {
    std::vector<std::string> names;
    for (const std::string& glyph : first_.glyphNames())
        if (std::string name = replaced(glyph, '_', '.'); symbol_name::isValid(name)) names.push_back(std::move(name));
    const auto add = [&](const NameTable& table, const auto& endings) {
        for (const auto& [base, value] : table.entries())
            for (const std::string_view ending : endings) {
                std::string name = std::string(base) + std::string(ending);
                if (find(name)) names.push_back(std::move(name));
            }
    };
    add(respelled_, firstEndings);
    add(secondSet_, secondEndings);
    return names;
}

}  // namespace orvel
