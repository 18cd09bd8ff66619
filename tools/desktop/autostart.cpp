#include "tools/desktop/autostart.h"

#include <optional>
#include <sstream>
#include <string_view>

#include "platform/foundation/installation.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel::tools {
namespace {

using std::filesystem::path;

constexpr const char* entryName = "orvel-widget.desktop";

path configuration(const Platform& platform) {
    return configurationDirectory(platform.accounts);
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

// The program that the entry starts, when it isn't there.
std::optional<std::string> missingProgram(const std::string& entry, const Platform& platform) {
    constexpr std::string_view key = "TryExec=";
    std::istringstream lines(entry);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with(key)) continue;
        std::string program;
        for (std::size_t i = key.size(); i < line.size(); ++i) {
            if (line[i] == '\\' && i + 1 < line.size()) ++i;
            program += line[i];
        }
        const auto found = platform.files.read(program);
        if (!found && isMissing(found.failure())) return program;
    }
    return std::nullopt;
}

}  // namespace

Outcome<Autostart> autostart(const Platform& platform) {
    const auto own = readIfThere(entry(platform), platform);
    if (!own) return own.failure();
    const auto unit = readIfThere(unitLink(platform), platform);
    if (!unit) return unit.failure();
    Autostart state{*own && !isTurnedOff(**own)};
    if (const auto program = state.isOn ? missingProgram(**own, platform) : std::nullopt)
        state.warning = sentence("{0} starts {1}, which is gone; orvel autostart on mends it", entry(platform).string(),
                                 unicode::onOneLine(*program));
    state.isOn = state.isOn || *unit;
    return state;
}

Outcome<Done> showAutostart(const Platform& platform, Console& console) {
    const auto state = autostart(platform);
    if (!state) return state.failure();
    if (state->warning) warn(*state->warning, console);
    console.out << (state->isOn ? "on\n" : "off\n");
    return Done{};
}

Outcome<Done> turnAutostartOn(const Platform& platform) {
    const path installed = installedData() / "orvel" / entryName;
    const auto model = platform.files.read(installed);
    if (!model) return Failure{clauses(failure(installed, model.failure()).reason, sentence("install orvel again"))};
    const path own = entry(platform);
    const auto created = platform.files.createFolders(own.parent_path());
    if (!created) return failure(own.parent_path(), created.failure());
    const auto written = platform.files.replace(own, *model);
    if (!written) return failure(own, written.failure());
    if (written->unsynced) return doneForNow(failure(own, *written->unsynced).reason);
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
