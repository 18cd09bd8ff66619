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
    std::set<std::string> ownerOnly;                ///< files that only the person may read
    std::vector<std::string> calls;                 ///< "read /path", in order
    std::function<bool(const std::string&)> fails;  ///< told of each call; true makes it fail
    std::errc failure = std::errc::io_error;        ///< and this is why
    bool syncs = true;                              ///< whether a replacement is certain to stay

    Result<std::string, FileFailure> read(const std::filesystem::path& path) override {
        if (failing("read " + path.string())) return failed("open");
        if (!contents.contains(path.string())) return missing("open");
        return contents.at(path.string());
    }
    Result<Replaced, FileFailure> replace(const std::filesystem::path& path, std::string_view bytes,
                                          NewFile newFile = NewFile::asUmaskAllows) override {
        if (failing("replace " + path.string())) return failed("write");
        if (newFile == NewFile::ownerOnly && !contents.contains(path.string())) ownerOnly.insert(path.string());
        contents[path.string()] = bytes;
        return syncs ? Replaced{} : Replaced{failed("sync the folder")};
    }
    Result<Done, FileFailure> remove(const std::filesystem::path& path) override {
        if (failing("remove " + path.string())) return failed("delete");
        if (contents.erase(path.string()) == 0) return missing("delete");
        return Done{};
    }
    Result<Done, FileFailure> createFolders(const std::filesystem::path& path) override {
        if (failing("createFolders " + path.string())) return failed("create");
        folders.insert(path.string());
        return Done{};
    }
    Result<std::vector<std::string>, FileFailure> names(const std::filesystem::path& folder) override {
        if (failing("names " + folder.string())) return failed("list");
        std::vector<std::string> names;
        for (const auto& [path, bytes] : contents)
            if (std::filesystem::path(path).parent_path() == (folder / "").parent_path())
                names.push_back(std::filesystem::path(path).filename());
        return names;
    }
    Result<std::unique_ptr<FolderLock>, FileFailure> lock(const std::filesystem::path& folder,
                                                          const LockWait& wait = {}) override {
        if (!failing("lock " + folder.string())) return std::make_unique<FolderLock>();
        if (failure == std::errc::timed_out) wait.tell("process 7 (other)");
        return failed("lock");
    }

private:
    bool failing(const std::string& call) {
        calls.push_back(call);
        return fails && fails(call);
    }
    FileFailure failed(const char* operation) const { return {operation, std::make_error_code(failure)}; }
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
    std::optional<std::string> state = "/state";
    std::optional<std::string> stateDirectory() const override { return state; }
};

/// A zone whose clocks never change.
class FixedZone final : public TimeZone {
public:
    explicit FixedZone(std::chrono::seconds offset) : offset_(offset) {}
    std::optional<std::chrono::seconds> utcOffset(std::chrono::sys_seconds) const override { return offset_; }

private:
    std::chrono::seconds offset_;
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
    FixedZone zone{std::chrono::hours{2}};
    CountingIdentities identities;
    Platform platform{clock, files, accounts, zone, identities};

    static constexpr const char* storeFolder = "/home/ada/Library/Application Support/Orvel/";
    std::string& storedList() { return files.contents[std::string(storeFolder) + "widgets.json"]; }
};

}  // namespace orvel::test
