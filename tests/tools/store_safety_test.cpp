// What keeps a person from losing designs: refusals, copies, and taking back.
#include <algorithm>
#include <utility>

#include "model/widget_spec_json.h"
#include "tests/tools/store_fixture.h"

namespace orvel::tools {
namespace {

// One of each kind of change.
const std::vector<std::vector<const char*>> changes{{"add", "--kind=note", "--title=t", "--id=N"},
                                                    {"add", "--kind=note", "--title=t", "--id=B"},
                                                    {"add", "--keep-place", "--id=B", "--title=x"},
                                                    {"set", "B", "title=x", "id=X"},
                                                    {"front", "C"},
                                                    {"remove", "C", "A"},
                                                    {"pending", "accept"}};

TEST_F(StoreCommand, ChangesUnderALockAndSaysWhoHoldsIt) {
    store({"A"});
    run({"front", "A"});
    run({"set", "A", "title=x"});
    std::string verbs;
    for (const std::string& call : machine.files.calls) verbs += call.substr(0, call.find(' ') + 1);
    EXPECT_TRUE(verbs.starts_with("createFolders lock ")) << verbs;
    EXPECT_LT(verbs.find("read"), verbs.find("replace"));
    machine.files.fails = [](const std::string& call) { return call.starts_with("lock"); };
    machine.files.failure = std::errc::timed_out;
    const std::string folder = test::FakeMachine::storeFolder;
    EXPECT_EQ(run({"remove", "A", "--wait=2"}).err,
              "orvel: waiting for process 7 (other), which is changing the store\norvel: " + folder +
                  ": process 7 (other) still holds the lock after 2 s; nothing has been changed\n");
    EXPECT_EQ(ids(), "A ");
}

TEST_F(StoreCommand, ChangesNothingWhenTheListCantBeReadOrIsInvalid) {
    bool isPast = false;
    const auto expectRefused = [&](const std::string& why) {
        const auto before = machine.files.contents;
        for (auto command : changes) {
            isPast = false;
            const Answer answer = run(command);
            EXPECT_EQ(answer.code, failed) << command[0] << why;
            EXPECT_NE(answer.err.find("nothing has been changed"), std::string::npos) << answer.err;
        }
        isPast = false;
        EXPECT_EQ(run({"undo"}).code, failed) << why;
        EXPECT_EQ(machine.files.contents, before) << why;
    };
    store({"A", "B", "C"});
    run({"pending", "set", "-"}, record(R"("kind":"note","id":"P")"));
    run({"set", "A", "title=y"});
    machine.files.fails = [&](const std::string& call) {  // for a moment
        return call.starts_with("read") && call.ends_with("widgets.json") && !std::exchange(isPast, true);
    };
    for (const std::errc code :
         {std::errc::io_error, std::errc::permission_denied, std::errc::too_many_files_open,
          std::errc::not_enough_memory, std::errc::no_space_on_device, std::errc::file_too_large}) {
        machine.files.failure = code;
        expectRefused(std::make_error_code(code).message());
        const auto before = machine.files.contents;
        isInteractive = true;
        isPast = false;
        EXPECT_EQ(run({"add", "--kind=note", "--title=t", "--start-over"}, "y\n").code, failed) << "though asked";
        isInteractive = false;
        EXPECT_EQ(machine.files.contents, before);
    }
    machine.files.fails = nullptr;
    for (const char* invalid : {"", "{}", "[{}]", "not json"}) {
        machine.storedList() = invalid;
        expectRefused(invalid);
        EXPECT_EQ(run({"list"}).code, failed);
    }
}

TEST_F(StoreCommand, StartsOverWhenAsked) {
    const struct {
        const char* option;
        const char* answer;  // null: there is nobody to ask
        int code;
    } cases[] = {{"--start-over", nullptr, done},
                 {"--symbol=flag", "y\n", done},
                 {"--symbol=flag", "n\n", failed},
                 {"--symbol=flag", nullptr, failed},
                 {"--symbol=flag", "", failed}};
    const std::string folder = test::FakeMachine::storeFolder;
    for (const auto& c : cases) {
        machine.files.contents.clear();
        machine.storedList() = "not json";
        isInteractive = c.answer != nullptr;
        const Answer answer = run({"add", "--kind=note", "--title=t", c.option}, c.answer ? c.answer : "y\n");
        EXPECT_EQ(answer.code, c.code);
        std::size_t copies = 0;
        for (const auto& [name, bytes] : machine.files.contents) {
            if (!name.starts_with(folder + "widgets.json.invalid-2001")) continue;
            ++copies;
            EXPECT_EQ(bytes, "not json");
            EXPECT_NE(answer.err.find("kept as " + name), std::string::npos) << answer.err;
            EXPECT_TRUE(machine.files.ownerOnly.contains(name));
        }
        EXPECT_EQ(copies, c.code == done ? 1u : 0u);
        EXPECT_EQ(stored().size(), c.code == done ? 1u : 0u);
    }
    isInteractive = false;
    machine.storedList() = "not json";
    const auto before = machine.files.contents;
    for (const int nth : {1, 3}) {  // the copy and the list, with the history between
        int count = 0;
        machine.files.fails = [&](const std::string& call) { return call.starts_with("replace") && ++count == nth; };
        EXPECT_EQ(run({"add", "--kind=note", "--title=t", "--start-over"}).code, failed);
        EXPECT_EQ(machine.files.contents, before) << nth;
    }
    machine.files.fails = nullptr;
    machine.files.syncs = false;
    EXPECT_EQ(run({"add", "--kind=note", "--title=t", "--start-over"}).code, failed) << "a copy that may be lost";
    EXPECT_EQ(machine.files.contents, before);
}

TEST_F(StoreCommand, BringsBackWhatIsKept) {
    const std::string list = std::string(test::FakeMachine::storeFolder) + "widgets.json";
    store({"A", "B"});
    const std::string good = machine.storedList();
    machine.files.contents[list + ".invalid-20010101T000000Z"] = "{}";
    machine.files.contents[list + ".invalid-20010101T000000Z-2"] = "[]";
    machine.files.contents[list + ".invalid-20000101T000000Z-10"] = good;
    machine.files.contents[list + ".tmp-1-2"] = machine.files.contents[list + ".invalid-20000101T000000Z-x"] = "[]";
    EXPECT_EQ(run({"restore"}).out,
              "1  widgets.json.invalid-20010101T000000Z-2   0 designs\n"
              "2  widgets.json.invalid-20010101T000000Z     doesn't load: this is an object; a list of designs, which "
              "is an array […], is wanted\n"
              "3  widgets.json.invalid-20000101T000000Z-10  2 designs\n");
    EXPECT_EQ(run({"restore", "3"}).out, "widgets.json.invalid-20000101T000000Z-10 is in place already: 2 designs\n");
    const auto before = machine.files.contents;
    for (const char* none : {"0", "4", "1x", "", "widgets.json", "widgets.json.tmp-1-2"})
        EXPECT_EQ(run({"restore", none}).code, failed) << none;
    machine.files.fails = [&](const std::string& call) { return call == "replace " + list; };
    EXPECT_EQ(run({"restore", "1"}).code, failed);
    EXPECT_EQ(machine.files.contents, before);
    machine.files.fails = nullptr;

    EXPECT_EQ(run({"restore", "widgets.json.invalid-20010101T000000Z"}).code, done);
    EXPECT_EQ(machine.storedList(), "{}");
    const Answer back = run({"restore", "1"});
    EXPECT_TRUE(back.out.starts_with("widgets.json.replaced-2001")) << back.out << "what was there comes first";
    EXPECT_EQ(machine.storedList(), good);
}

TEST_F(StoreCommand, TakesChangesBack) {
    store({"A", "B", "C"});
    run({"pending", "set", "-"}, record(R"("kind":"note","id":"P")"));
    const auto original = machine.files.contents;
    EXPECT_EQ(run({"undo"}).err, "orvel: there is no change to take back\n");
    for (const auto& change : changes) {
        ASSERT_EQ(run(change).code, done);
        EXPECT_NE(machine.files.contents, original);
        const Answer undone = run({"undo"});
        EXPECT_TRUE(undone.out.starts_with("took back: ")) << undone.err;
        EXPECT_EQ(machine.files.contents, original) << change[0] << " and no history is left";
    }
    for (const auto& change : changes) EXPECT_EQ(run(change).code, done) << change[0];
    for (std::size_t i = 0; i < changes.size(); ++i) EXPECT_EQ(run({"undo"}).code, done);
    EXPECT_EQ(machine.files.contents, original) << "one after the other";
    EXPECT_EQ(machine.files.ownerOnly, std::set<std::string>{"/state/orvel/history"});

    store({"A", "B", "A"});
    EXPECT_EQ(run({"remove", "@1", "B"}).out, "removed \"title\" (A), \"title\" (B); orvel undo brings them back\n");
    EXPECT_EQ(run({"undo"}).out, "took back: removed \"title\" (A), \"title\" (B)\n");
    EXPECT_EQ(ids(), "A B A ");
}

TEST_F(StoreCommand, TakesBackItsFieldsFromADesignThatOthersKeepChanging) {
    const struct {
        std::vector<const char*> change;
        const char* title;  // afterwards; null: it can't be taken back
        const char* ids;
    } cases[] = {
        {{"set", "B", "title=mine"}, "title", "A B "},
        {{"front", "B"}, "title", "A B "},
        {{"set", "B", "title=mine", "primary=mine"}, nullptr, "A B "},
    };
    for (const auto& c : cases) {
        machine.files.contents.clear();
        store({"A", "B"});
        run(c.change);
        auto specs = stored();
        for (WidgetSpec& spec : specs)
            if (spec.id == "B") spec.primary = "others";
        WidgetStore::save(specs, machine.platform);
        const Answer answer = run({"undo"});
        EXPECT_EQ(answer.code, c.title ? done : failed) << answer.err;
        EXPECT_EQ(ids(), c.ids) << c.change[0];
        EXPECT_EQ(stored()[1].primary, "others") << c.change[0];
        EXPECT_EQ(stored()[1].title, c.title ? c.title : "mine") << c.change[0];
    }
}

TEST_F(StoreCommand, TakesBackNothingOfOthers) {
    const struct {
        std::vector<const char*> change;
        std::vector<const char*> others;  // what others store then
        int code;
        bool isForgotten;
        const char* ids;
    } cases[] = {
        {{"remove", "B"}, {"N", "C", "A"}, done, true, "N B C A "},
        {{"front", "C"}, {"N", "A", "C"}, done, true, "N A C "},
        {{"remove", "B"}, {"A", "B", "C"}, failed, true, "A B C "},  // it is back already
        {{"remove", "B", "C"}, {"A", "B"}, failed, false, "A B "},
        {{"set", "B", "title=x"}, {"A", "B", "C"}, failed, true, "A B C "},
        {{"set", "B", "id=X"}, {"A", "C"}, failed, false, "A C "},
        {{"add", "--kind=note", "--title=t", "--id=B"}, {"A", "N"}, failed, false, "A N "},
    };
    for (const auto& c : cases) {
        machine.files.contents.clear();
        store({"A", "B", "C"});
        run(c.change);
        store(c.others);
        const Answer answer = run({"undo"});
        EXPECT_EQ(answer.code, c.code) << c.change[0] << answer.err;
        EXPECT_EQ(ids(), c.ids) << c.change[0];
        EXPECT_EQ(machine.files.contents.contains("/state/orvel/history"), !c.isForgotten) << c.change[0];
    }
    store({"A"});
    run({"pending", "set", "-"}, record(R"("kind":"note","id":"P")"));
    run({"pending", "accept"});
    run({"pending", "set", "-"}, record(R"("kind":"note","id":"Q")"));
    EXPECT_NE(run({"undo"}).err.find("isn't pending again"), std::string::npos);
    EXPECT_EQ(ids() + WidgetStore::pending(machine.platform)->id, "A Q");
}

TEST_F(StoreCommand, KeepsABoundedHistoryAndWorksWithoutOne) {
    store({"A", "B"});
    for (int i = 0; i < 60; ++i) {
        run({"front", "A"});
        run({"front", "B"});
    }
    int undone = 0;
    while (run({"undo"}).code == done) ++undone;
    EXPECT_EQ(undone, 100);
    std::string& history = machine.files.contents["/state/orvel/history"];
    history = std::string(17 << 20, 'x') + "\n";
    run({"set", "A", "title=x"});
    EXPECT_LT(history.size(), 1000u);
    history = "not json\n";
    EXPECT_EQ(run({"undo"}).code, failed);
    EXPECT_EQ(history, "not json\n");

    machine.files.fails = [](const std::string& call) { return call == "replace /state/orvel/history"; };
    const Answer removed = run({"remove", "A"});
    EXPECT_EQ(removed.code, done);
    EXPECT_EQ(removed.out, "removed \"x\" (A)\n");
    EXPECT_NE(removed.err.find("can't take this back"), std::string::npos);
    machine.files.fails = [](const std::string& call) { return call.ends_with("widgets.json") && call[2] == 'p'; };
    const auto before = machine.files.contents;
    EXPECT_EQ(run({"remove", "B"}).code, failed);
    EXPECT_EQ(machine.files.contents, before) << "what failed isn't in the history";
}

TEST_F(StoreCommand, SaysWhatALossOfPowerMayUndo) {
    store({"A", "B", "C"});
    run({"pending", "set", "-"}, record(R"("kind":"note","id":"P")"));
    run({"remove", "A"});
    machine.files.syncs = false;
    for (const std::vector<const char*>& command :
         std::vector<std::vector<const char*>>{{"add", "--kind=note", "--title=t", "--id=N"},
                                               {"set", "B", "title=x"},
                                               {"front", "B"},
                                               {"remove", "B"},
                                               {"undo"},
                                               {"pending", "accept"},
                                               {"render"}}) {
        const auto before = machine.files.contents;
        const Answer answer = run(command);
        EXPECT_EQ(answer.code, doneBut) << command[0];
        EXPECT_NE(answer.err.find("the change is made, but may not survive a loss of power"), std::string::npos);
        EXPECT_NE(machine.files.contents, before) << command[0];
        EXPECT_EQ(answer.out == "N\n", command[0] == std::string("add"));
    }
    EXPECT_NE(WidgetStore::pending(machine.platform), std::nullopt) << "until the list is certain to have it";
}

}  // namespace
}  // namespace orvel::tools
