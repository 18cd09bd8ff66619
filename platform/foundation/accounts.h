// The account that the process runs for, and its folders.
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

    /// The home directory in the process's environment. Never empty.
    virtual std::string processHomeDirectory() const = 0;

    /// The settings folder that the process's environment names; absent when it names no absolute path, and the folder
    /// is then ".config" in the home directory.
    virtual std::optional<std::string> configurationDirectory() const { return std::nullopt; }

    /// The same for state that a program keeps between its runs; else it is ".local/state" in the home directory.
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

/// Where a program keeps this person's state between its runs.
inline std::string stateDirectory(const Accounts& accounts) {
    return accounts.stateDirectory().value_or(homeDirectory(accounts) + "/.local/state");
}

}  // namespace orvel
