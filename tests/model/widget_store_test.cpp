#include "model/widget_store.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/fakes.h"

namespace orvel {
namespace {

using test::FakeMachine;

std::string record(const std::string& id) {
    return R"({"id":")" + id + R"(","title":"","kind":"note","accentHex":"","symbol":"","createdAt":0})";
}

std::string ids(const std::vector<WidgetSpec>& specs) {
    std::string ids;
    for (const auto& spec : specs) ids += spec.id;
    return ids;
}

TEST(WidgetStore, LiesInTheProcesssHomeWhenTheAccountHasNone) {
    const std::string folder = "/process/home/Library/Application Support/Orvel/";
    FakeMachine machine;
    for (const auto& account : {std::optional<Account>(), std::optional(Account{}), std::optional(Account{""})}) {
        machine.accounts.account = account;
        machine.files.folders.clear();
        EXPECT_EQ(WidgetStore::dir(machine.platform), folder);
        EXPECT_TRUE(machine.files.folders.contains(folder));
    }
}

TEST(WidgetStore, LoadsEveryRecordInFileOrder) {
    FakeMachine machine;
    machine.storedList() = "[" + record("B") + "," + record("A") + "," + record("B") + "]";
    EXPECT_EQ(ids(WidgetStore::load(machine.platform)), "BAB");
    const std::string folder = FakeMachine::storeFolder;
    EXPECT_EQ(machine.files.calls, (std::vector{"createFolders " + folder, "read " + folder + "widgets.json"}));
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
    class FullMemory final : public test::MemoryFiles {
        Result<std::string, FileFailure> read(const std::filesystem::path&) override { throw std::bad_alloc(); }
    } files;
    FakeMachine machine;
    const Platform platform{machine.clock, files, machine.accounts, machine.zone, machine.identities};
    EXPECT_TRUE(WidgetStore::load(platform).empty());
}

WidgetSpec design(const std::string& id, const std::string& title = "") {
    return WidgetSpec({.id = id, .title = title, .kind = WidgetSpec::Kind::note, .createdAt = Date{}});
}

WidgetSpec unwritable() {
    WidgetSpec spec = design("X");
    spec.progress = std::numeric_limits<double>::infinity();
    return spec;
}

TEST(WidgetStore, AddsAtTheFrontInPlaceOfTheSameId) {
    FakeMachine machine;
    WidgetStore::save({design("A"), design("B"), design("C")}, machine.platform);
    EXPECT_EQ(ids(WidgetStore::add(design("D"), machine.platform)), "DABC");
    EXPECT_EQ(ids(WidgetStore::add(design("B", "changed"), machine.platform)), "BDAC");
    EXPECT_EQ(WidgetStore::load(machine.platform).front().title, "changed");

    machine.storedList() = "[" + record("A") + "," + record("é") + "," + record("A") + "]";
    EXPECT_EQ(ids(WidgetStore::add(design("A"), machine.platform)), "Aé");
    EXPECT_EQ(ids(WidgetStore::add(design("e\u0301"), machine.platform)), "e\u0301A") << "canonically the same id";

    for (const char* invalid : {"", "{}", "[{}]"}) {
        machine.storedList() = invalid;
        WidgetStore::add(design("A"), machine.platform);
        EXPECT_EQ(ids(WidgetStore::load(machine.platform)), "A") << invalid;
    }
    machine.files.fails = [](const std::string& call) { return call.starts_with("replace"); };
    EXPECT_EQ(ids(WidgetStore::add(design("B"), machine.platform)), "BA") << "saved or not";
    EXPECT_EQ(ids(WidgetStore::load(machine.platform)), "A");
}

TEST(WidgetStore, RemovesAndSavesWhateverCanBeEncoded) {
    FakeMachine machine;
    WidgetStore::save({unwritable()}, machine.platform);
    EXPECT_TRUE(machine.files.calls.empty()) << "not even the folder";
    WidgetStore::save({design("A"), design("B"), design("A")}, machine.platform);
    WidgetStore::remove("A", machine.platform);
    EXPECT_EQ(ids(WidgetStore::load(machine.platform)), "B");
    machine.storedList() = " " + machine.storedList();
    WidgetStore::remove("none", machine.platform);
    EXPECT_TRUE(machine.storedList().starts_with("[{")) << "rewritten";
    machine.storedList() = "invalid";
    WidgetStore::remove("A", machine.platform);
    EXPECT_EQ(machine.storedList(), "[]");
}

TEST(WidgetStore, KeepsOnePendingDesign) {
    FakeMachine machine;
    EXPECT_EQ(WidgetStore::pending(machine.platform), std::nullopt);
    WidgetStore::setPending(std::nullopt, machine.platform);
    EXPECT_TRUE(machine.files.contents.empty());

    WidgetStore::setPending(design("A", "kept"), machine.platform);
    EXPECT_EQ(WidgetStore::pending(machine.platform), design("A", "kept"));
    EXPECT_EQ(WidgetStore::pending(machine.platform), design("A", "kept")) << "reading leaves it";
    EXPECT_TRUE(machine.files.contents.contains(std::string(FakeMachine::storeFolder) + "widget_pending.json"));
    EXPECT_TRUE(WidgetStore::load(machine.platform).empty());

    machine.files.fails = [](const std::string& call) { return call.starts_with("replace"); };
    WidgetStore::setPending(design("B"), machine.platform);
    EXPECT_EQ(WidgetStore::pending(machine.platform)->id, "A") << "a failed write changes nothing";
    machine.files.fails = nullptr;
    WidgetStore::setPending(unwritable(), machine.platform);
    EXPECT_TRUE(machine.files.contents.empty()) << "what can't be encoded counts as none";
    WidgetStore::setPending(design("A"), machine.platform);
    WidgetStore::setPending(std::nullopt, machine.platform);
    EXPECT_TRUE(machine.files.contents.empty());

    machine.files.contents[std::string(FakeMachine::storeFolder) + "widget_pending.json"] = "[" + record("A") + "]";
    EXPECT_EQ(WidgetStore::pending(machine.platform), std::nullopt);
}

}  // namespace
}  // namespace orvel
