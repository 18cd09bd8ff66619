#include "platform/ui/gettext_localizer.h"

#include <libintl.h>

#include "platform/foundation/installation.h"

namespace orvel {
namespace {

constexpr const char* domain = "orvel";

}  // namespace

GettextLocalizer::GettextLocalizer(const std::filesystem::path& directory) {
    ::bindtextdomain(domain, directory.c_str());
    ::bind_textdomain_codeset(domain, "UTF-8");
}

std::string GettextLocalizer::lookUp(std::string_view key) const {
    if (key.empty()) return {};  // a catalogue keeps its header there
    return ::dgettext(domain, std::string(key).c_str());
}

std::filesystem::path GettextLocalizer::installedDirectory() {
    return installedData() / "locale";
}

}  // namespace orvel
