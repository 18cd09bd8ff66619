// Who the process runs for, as far as a home directory goes.
#pragma once

#include <optional>
#include <string>

namespace orvel {

struct Account {
    /// Absent when the record has no home-directory field.
    std::optional<std::string> homeDirectory;
};

class Accounts {
public:
    virtual ~Accounts() = default;

    /// The user database's record of the process's real user id; absent when there is none.
    virtual std::optional<Account> current() const = 0;

    /// The process's home directory as its surroundings report it. Never empty.
    virtual std::string processHomeDirectory() const = 0;

    /// Where the process's surroundings keep settings; absent when they name no absolute path. Then it is ".config"
    /// in the home directory.
    virtual std::optional<std::string> configurationDirectory() const { return std::nullopt; }

    /// The same for what a program remembers between its runs; then it is ".local/state" in the home directory.
    virtual std::optional<std::string> stateDirectory() const { return std::nullopt; }
};

/// The account's home directory, or the process's when the user database has none.
inline std::string homeDirectory(const Accounts& accounts) {
    const auto account = accounts.current();
    if (account && account->homeDirectory && !account->homeDirectory->empty()) return *account->homeDirectory;
    return accounts.processHomeDirectory();
}

/// Where this person's settings lie (XDG Base Directory).
inline std::string configurationDirectory(const Accounts& accounts) {
    return accounts.configurationDirectory().value_or(homeDirectory(accounts) + "/.config");
}

/// Where a program keeps what it remembers of this person between its runs.
inline std::string stateDirectory(const Accounts& accounts) {
    return accounts.stateDirectory().value_or(homeDirectory(accounts) + "/.local/state");
}

}  // namespace orvel
