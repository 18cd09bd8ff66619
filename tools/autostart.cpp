#include "tools/autostart.h"

#include <sstream>

#include "platform/foundation/installation.h"

namespace orvel::tools {
namespace {

using std::filesystem::path;

constexpr const char* entryName = "orvel-widget.desktop";

path configuration(const Platform& platform) {
    if (const auto directory = platform.accounts.configurationDirectory()) return *directory;
    return path(homeDirectory(platform.accounts)) / ".config";
}

path entry(const Platform& platform) {
    return configuration(platform) / "autostart" / entryName;
}

// The link by which `systemctl --user enable` has the session start the unit.
path unitLink(const Platform& platform) {
    return configuration(platform) / "systemd/user/graphical-session.target.wants/orvel-widget.service";
}

Failure failure(const path& file, const FileFailure& failure) {
    return {file.string() + ": " + failure.message()};
}

bool isMissing(const FileFailure& failure) {
    return failure.code == std::errc::no_such_file_or_directory || failure.code == std::errc::not_a_directory;
}

// Absent when there is no such file.
Outcome<std::optional<std::string>> readIfThere(const path& file, const Platform& platform) {
    auto text = platform.files.read(file);
    if (text) return std::optional(*std::move(text));
    if (isMissing(text.failure())) return std::optional<std::string>();
    return failure(file, text.failure());
}

// Desktops' own settings turn an entry off by a line of it.
bool isTurnedOff(const std::string& entry) {
    std::istringstream lines(entry);
    for (std::string line; std::getline(lines, line);)
        if (line == "Hidden=true" || line == "X-GNOME-Autostart-enabled=false") return true;
    return false;
}

}  // namespace

Outcome<Done> showAutostart(const Platform& platform, Console& console) {
    const auto own = readIfThere(entry(platform), platform);
    if (!own) return own.failure();
    const auto unit = readIfThere(unitLink(platform), platform);
    if (!unit) return unit.failure();
    console.out << ((*own && !isTurnedOff(**own)) || *unit ? "on\n" : "off\n");
    return Done{};
}

Outcome<Done> turnAutostartOn(const Platform& platform) {
    const path installed = installedData() / "orvel" / entryName;
    const auto model = platform.files.read(installed);
    if (!model) return Failure{"orvel isn't installed whole: " + failure(installed, model.failure()).reason};
    const path own = entry(platform);
    const auto created = platform.files.createFolders(own.parent_path());
    if (!created) return failure(own.parent_path(), created.failure());
    const auto written = platform.files.replace(own, *model);
    if (!written) return failure(own, written.failure());
    return Done{};
}

Outcome<Done> turnAutostartOff(const Platform& platform) {
    for (const path& file : {entry(platform), unitLink(platform)}) {
        const auto removed = platform.files.remove(file);
        if (!removed && !isMissing(removed.failure())) return failure(file, removed.failure());
    }
    return Done{};
}

}  // namespace orvel::tools
