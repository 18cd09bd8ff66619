// String tables from gettext's compiled catalogues: DIRECTORY/LANGUAGE/LC_MESSAGES/orvel.mo, for the language of the
// process's message locale.
#pragma once

#include <filesystem>

#include "platform/ui/localized.h"

namespace orvel {

class GettextLocalizer final : public Localizer {
public:
    explicit GettextLocalizer(const std::filesystem::path& directory);
    std::string lookUp(std::string_view key) const override;

    /// "share/locale" of the prefix in which the running program is installed.
    static std::filesystem::path installedDirectory();
};

}  // namespace orvel
