#include "platform/render/fallback_faces.h"

#include <fontconfig/fontconfig.h>
#include <pango/pangofc-font.h>
#include <pango/pangofc-fontmap.h>

#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "platform/foundation/release_with.h"
#include "platform/render/typeface.h"

namespace orvel {
namespace {

using PatternPtr = std::unique_ptr<FcPattern, ReleaseWith<FcPatternDestroy>>;
using FontSetPtr = std::unique_ptr<FcFontSet, ReleaseWith<FcFontSetDestroy>>;
using ObjectSetPtr = std::unique_ptr<FcObjectSet, ReleaseWith<FcObjectSetDestroy>>;
using Families = std::set<std::string>;

const FcChar8* bytes(const std::string& text) {
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

std::string string(const FcPattern* pattern, const char* object) {
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, object, 0, &value) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(value);
}

// Only a face's name says what kind of face it is.
Families sansFamilies(FcConfig* config, const std::string& language) {
    const PatternPtr wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_LANG, bytes(language));
    const ObjectSetPtr properties(FcObjectSetBuild(FC_FAMILY, nullptr));
    const FontSetPtr fonts(FcFontList(config, wanted.get(), properties.get()));
    Families families;
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        const std::string family = string(fonts->fonts[i], FC_FAMILY);
        if (family.find("Sans") != family.npos && family.find("Mono") == family.npos) families.insert(family);
    }
    return families;
}

struct Preferences {
    FcConfig* config;
    std::map<std::string, Families> sans;
};

// Bound weakly, and after the families of the configuration, so that its choice and the language's have precedence.
void addSansFamilies(FcPattern* pattern, void* data) {
    auto& preferences = *static_cast<Preferences*>(data);
    const std::string language = string(pattern, FC_LANG);
    if (language.empty() || language == "en" || language == "xx") return;
    auto known = preferences.sans.find(language);
    if (known == preferences.sans.end())
        known = preferences.sans.emplace(language, sansFamilies(preferences.config, language)).first;
    for (const std::string& family : known->second) {
        const FcValue value{FcTypeString, {.s = bytes(family)}};
        FcPatternAddWeak(pattern, FC_FAMILY, value, FcTrue);
    }
}

}  // namespace

void preferSansFaces(PangoFontMap* fonts) {
    auto* const map = PANGO_FC_FONT_MAP(fonts);
    const auto forget = [](void* data) { delete static_cast<Preferences*>(data); };
    pango_fc_font_map_set_default_substitute(map, addSansFamilies,
                                             new Preferences{pango_fc_font_map_get_config(map), {}}, forget);
}

bool isSystemFace(PangoFont* font) {
    FcChar8* family = nullptr;
    FcPatternGetString(pango_fc_font_get_pattern(PANGO_FC_FONT(font)), FC_FAMILY, 0, &family);
    return family && std::strcmp(reinterpret_cast<const char*>(family), systemFont) == 0;
}

}  // namespace orvel
