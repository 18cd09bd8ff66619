#include "model/widget_store.h"

#include <gtest/gtest.h>

#include "tests/support/fakes.h"

namespace orvel {
namespace {

using test::FakeMachine;

std::string record(const std::string& id) {
    return R"({"id":")" + id + R"(","title":"","kind":"note","accentHex":"","symbol":"","createdAt":0})";
}

TEST(WidgetStore, LiesInTheAccountsHome) {
    const struct {
        std::optional<Account> account;
        const char* folder;
    } cases[] = {
        {Account{"/home/ada"}, "/home/ada/Library/Application Support/Orvel/"},
        {std::nullopt, "/process/home/Library/Application Support/Orvel/"},
        {Account{std::nullopt}, "/process/home/Library/Application Support/Orvel/"},
        {Account{""}, "/process/home/Library/Application Support/Orvel/"},
    };
    for (const auto& c : cases) {
        FakeMachine machine;
        machine.accounts.account = c.account;
        EXPECT_EQ(WidgetStore::dir(machine.platform), c.folder);
        EXPECT_TRUE(machine.files.folders.contains(c.folder));
    }
}

TEST(WidgetStore, LoadsEveryRecordInFileOrder) {
    FakeMachine machine;
    machine.storedList() = "[" + record("B") + "," + record("A") + "," + record("B") + "]";
    std::string ids;
    for (const auto& spec : WidgetStore::load(machine.platform)) ids += spec.id;
    EXPECT_EQ(ids, "BAB");
    EXPECT_EQ(machine.files.calls,
              (std::vector<std::string>{std::string("createFolders ") + FakeMachine::storeFolder,
                                        std::string("read ") + FakeMachine::storeFolder + "widgets.json"}));
}

TEST(WidgetStore, AbsorbsEveryFailure) {
    const std::string texts[] = {"", "[]", record("A"), "[" + record("A") + ",{}]", "[" + record("A") + "]]", "\xFF"};
    for (const std::string& text : texts) {
        FakeMachine machine;
        machine.storedList() = text;
        EXPECT_TRUE(WidgetStore::load(machine.platform).empty()) << text;
        EXPECT_EQ(machine.storedList(), text) << "reading changes nothing";
    }

    FakeMachine missing;
    EXPECT_TRUE(WidgetStore::load(missing.platform).empty());
    EXPECT_TRUE(missing.files.contents.empty());

    FakeMachine failing;
    failing.storedList() = "[" + record("A") + "]";
    failing.files.fails = [](const std::string& call) { return call.starts_with("createFolders"); };
    EXPECT_EQ(WidgetStore::load(failing.platform).size(), 1u) << "the folder may be there all the same";
    failing.files.fails = [](const std::string& call) { return call.starts_with("read"); };
    EXPECT_TRUE(WidgetStore::load(failing.platform).empty());
}

TEST(WidgetStore, OutlivesLackOfMemory) {
    class FullMemory final : public Files {
        Result<std::string, FileFailure> read(const std::filesystem::path&) override { throw std::bad_alloc(); }
        Result<Done, FileFailure> replace(const std::filesystem::path&, std::string_view) override { return Done{}; }
        Result<Done, FileFailure> remove(const std::filesystem::path&) override { return Done{}; }
        Result<Done, FileFailure> createFolders(const std::filesystem::path&) override { return Done{}; }
    } files;
    FakeMachine machine;
    const Platform platform{machine.clock, files, machine.accounts, machine.zone, machine.identities};
    EXPECT_TRUE(WidgetStore::load(platform).empty());
}

}  // namespace
}  // namespace orvel
