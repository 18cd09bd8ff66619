// Stand-ins for the machine: a clock that ticks at each reading, files in memory that can fail, an account, a zone.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/platform.h"

namespace orvel::test {

/// Every reading is a second later than the one before.
class TickingClock final : public Clock {
public:
    explicit TickingClock(Date first) : next_(first) {}
    Date now() const override {
        ++readings;
        return std::exchange(next_, next_.addingTimeInterval(1));
    }
    mutable int readings = 0;

private:
    mutable Date next_;
};

class MemoryFiles : public Files {
public:
    std::map<std::string, std::string> contents;
    std::set<std::string> folders;
    std::vector<std::string> calls;                 ///< "read /path", in order
    std::function<bool(const std::string&)> fails;  ///< told of each call; true makes it fail

    Result<std::string, FileFailure> read(const std::filesystem::path& path) override {
        if (failing("read " + path.string()) || !contents.contains(path.string())) return missing("open");
        return contents.at(path.string());
    }
    Result<Done, FileFailure> replace(const std::filesystem::path& path, std::string_view bytes) override {
        if (failing("replace " + path.string())) return missing("write");
        contents[path.string()] = bytes;
        return Done{};
    }
    Result<Done, FileFailure> remove(const std::filesystem::path& path) override {
        if (failing("remove " + path.string()) || contents.erase(path.string()) == 0) return missing("delete");
        return Done{};
    }
    Result<Done, FileFailure> createFolders(const std::filesystem::path& path) override {
        if (failing("createFolders " + path.string())) return missing("create");
        folders.insert(path.string());
        return Done{};
    }
    Result<std::unique_ptr<FolderLock>, FileFailure> lock(const std::filesystem::path& folder) override {
        if (failing("lock " + folder.string())) return missing("lock");
        return std::make_unique<FolderLock>();
    }

private:
    bool failing(const std::string& call) {
        calls.push_back(call);
        return fails && fails(call);
    }
    static FileFailure missing(const char* operation) {
        return {operation, std::make_error_code(std::errc::no_such_file_or_directory)};
    }
};

class FakeAccounts final : public Accounts {
public:
    std::optional<Account> account = Account{"/home/ada"};
    std::optional<Account> current() const override { return account; }
    std::string processHomeDirectory() const override { return "/process/home"; }
    std::optional<std::string> configuration = {};
    std::optional<std::string> configurationDirectory() const override { return configuration; }
};

/// A zone given by its changes: each offset holds from its instant on, the first one since ever.
class TableZone final : public TimeZone {
public:
    explicit TableZone(std::chrono::seconds offset) : changes_{{std::chrono::sys_seconds::min(), offset}} {}
    TableZone(std::chrono::seconds before, std::chrono::sys_seconds change, std::chrono::seconds after)
        : changes_{{std::chrono::sys_seconds::min(), before}, {change, after}} {}
    std::optional<std::chrono::seconds> utcOffset(std::chrono::sys_seconds instant) const override {
        return std::prev(changes_.upper_bound(instant))->second;
    }

private:
    std::map<std::chrono::sys_seconds, std::chrono::seconds> changes_;
};

class CountingIdentities final : public IdentitySource {
public:
    std::string uuid() const override { return "ID-" + std::to_string(++count_); }

private:
    mutable int count_ = 0;
};

/// A whole machine. The store's files lie in `storeFolder`.
struct FakeMachine {
    TickingClock clock{Date{1000}};
    MemoryFiles files;
    FakeAccounts accounts;
    TableZone zone{std::chrono::hours{2}};
    CountingIdentities identities;
    Platform platform{clock, files, accounts, zone, identities};

    static constexpr const char* storeFolder = "/home/ada/Library/Application Support/Orvel/";
    std::string& storedList() { return files.contents[std::string(storeFolder) + "widgets.json"]; }
};

}  // namespace orvel::test
