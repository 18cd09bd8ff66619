#include "platform/render/font_report.h"

#include <pango/pangocairo.h>

#include "platform/render/handles.h"

namespace orvel {
namespace {

struct Sample {
    const char* script;
    gunichar character;
};

constexpr Sample samples[]{{"Arabic", 0x0639}, {"Chinese", 0x6F22},  {"Devanagari", 0x0928}, {"emoji", 0x1F951},
                           {"Hebrew", 0x05D0}, {"Japanese", 0x304B}, {"Korean", 0xD55C},     {"Thai", 0x0E01}};

}  // namespace

FontReport reportFonts(const std::string& systemFont) {
    FontReport report{systemFont, {}, {}};
    const ObjectPtr<PangoFontMap> fonts(pango_cairo_font_map_new());
    const ObjectPtr<PangoContext> context(pango_font_map_create_context(fonts.get()));
    const PangoFontDescriptionPtr wanted(pango_font_description_from_string((systemFont + " 12").c_str()));
    const ObjectPtr<PangoFontset> set(
        pango_font_map_load_fontset(fonts.get(), context.get(), wanted.get(), pango_language_get_default()));
    if (!set) return report;

    const auto fontOf = [&](gunichar character) {
        return ObjectPtr<PangoFont>(pango_fontset_get_font(set.get(), character));
    };
    if (const auto font = fontOf('n')) {
        const PangoFontDescriptionPtr found(pango_font_describe(font.get()));
        if (const char* const family = pango_font_description_get_family(found.get())) report.family = family;
    }
    for (const auto& [script, character] : samples) {
        const auto font = fontOf(character);
        if (!font || !pango_font_has_char(font.get(), character)) report.missing.emplace_back(script);
    }
    return report;
}

}  // namespace orvel
