// The commands that keep the designs, and those that say what is kept.
#include <algorithm>

#include "model/widget_store.h"
#include "tests/tools/command_fixture.h"

namespace orvel::tools {
namespace {

class StoreCommand : public Command {
protected:
    // Designs with these ids, each a note whose title is its id in small letters.
    void store(const std::vector<const char*>& ids) {
        std::vector<WidgetSpec> specs;
        for (std::string id : ids) {
            std::string title = id;
            std::ranges::transform(title, title.begin(), [](char c) { return c < 'A' || c > 'Z' ? c : char(c + 32); });
            specs.push_back(WidgetSpec({.id = id,
                                        .title = title,
                                        .kind = WidgetSpec::Kind::note,
                                        .symbol = "flag.fill",
                                        .primary = "text",
                                        .createdAt = Date{}}));
        }
        WidgetStore::save(specs, machine.platform);
        machine.files.calls.clear();
    }
    std::vector<WidgetSpec> stored() { return WidgetStore::load(machine.platform); }
    std::string ids() {
        std::string ids;
        for (const auto& spec : stored()) ids += spec.id + " ";
        return ids;
    }
};

TEST_F(StoreCommand, AddsFromOptionsAndReplacesTheSameId) {
    const Answer added = run({"add", "--kind", "list", "--title", "Food", "--item", "a", "--item", "b c", "--symbol",
                              "cart", "--accent", "#0af", "--secondary", "s", "--primary", "p", "--progress", "0.25"});
    EXPECT_EQ(added.out, "ID-1\n");
    EXPECT_EQ(added.err, "");
    EXPECT_EQ(stored().at(0), WidgetSpec({.id = "ID-1",
                                          .title = "Food",
                                          .kind = WidgetSpec::Kind::list,
                                          .accentHex = "#0af",
                                          .symbol = "cart",
                                          .primary = "p",
                                          .secondary = "s",
                                          .items = std::vector<std::string>{"a", "b c"},
                                          .progress = 0.25,
                                          .createdAt = stored().at(0).createdAt}));
    EXPECT_EQ(run({"add", "--kind", "metric", "--title", "T", "--id", "X", "--primary", "1"}).code, done);
    EXPECT_EQ(run({"add", "--kind", "metric", "--title", "U"}).code, done);
    EXPECT_EQ(run({"add", "--kind", "metric", "--title", "T", "--id", "X", "--primary", "2"}).out, "X\n");
    EXPECT_EQ(ids(), "X ID-2 ID-1 ");
    EXPECT_EQ(stored()[0].primary, "2");
}

TEST_F(StoreCommand, AddsRecordsAndFillsInWhatIsMissing) {
    EXPECT_EQ(run({"add", "--json", "-"}, R"({"kind":"note","title":"t"})").out, "ID-1\n");
    EXPECT_EQ(stored()[0].accentHex, "#3D2A9A");
    EXPECT_EQ(stored()[0].symbol, "square.grid.2x2");
    const Answer limited = run({"add", "--json", "-"},
                               R"({"id":"A","kind":"list","title":"t","symbol":"","items":["1","2","3","4","5","6"],
                                        "progress":2,"createdAt":5,"accentHex":"#fff"})");
    EXPECT_EQ(limited.err, "orvel: warning: 6 items, of which 5 are kept\norvel: warning: progress 2 is kept as 1\n");
    EXPECT_EQ(stored()[0].createdAt, Date{5});
    const Answer bad = run({"add", "--json", "-"}, R"({"kind":"note"})");
    EXPECT_EQ(bad.err, "orvel: standard input: \"title\" is missing\n");
    EXPECT_EQ(bad.code, failed);
    EXPECT_EQ(ids(), "A ID-1 ");
}

TEST_F(StoreCommand, TurnsAPersonsTargetsIntoFullTimes) {
    // The fake machine's zone is two hours east; its clock begins at 2001-01-01T00:16:40Z.
    const struct {
        const char* given;
        std::optional<std::string> stored;
        bool warns;
    } cases[] = {
        {"2026-12-24T18:00:00Z", "2026-12-24T18:00:00Z", false},
        {"2026-12-24", "2026-12-24", false},
        {"2026-12-24 18:00", "2026-12-24T18:00:00+02:00", false},
        {"2026-12-24T18:00", "2026-12-24T18:00", true},
        {"+3d", "2001-01-04T02:16:40+02:00", false},
        {"+1.5h", "2001-01-01T03:46:40+02:00", false},
        {"2026-12-24 25:00", std::nullopt, false},
        {"+d", std::nullopt, false},
        {"+3w", std::nullopt, false},
        {"soon", std::nullopt, false},
    };
    for (const auto& c : cases) {
        machine.files.contents.clear();
        const Answer answer =
            run({"add", "--kind", "countdown", "--title", "T", "--symbol", "flag.fill", "--target", c.given});
        EXPECT_EQ(answer.code, c.stored ? done : wrongUsage) << c.given;
        EXPECT_EQ(answer.err.starts_with("orvel: warning: "), c.warns) << answer.err;
        if (!c.stored) {
            EXPECT_TRUE(stored().empty()) << c.given;
            continue;
        }
        // The clock has ticked a few seconds on its way.
        EXPECT_EQ(stored()[0].targetISO8601->substr(0, 16), c.stored->substr(0, 16)) << c.given;
        EXPECT_EQ(stored()[0].targetISO8601->size(), c.stored->size()) << c.given;
    }
}

TEST_F(StoreCommand, ChangesFieldsInPlace) {
    store({"A", "B", "C"});
    EXPECT_EQ(run({"set", "B", "title=new = title", "kind=list", "item=x", "item=", "accent=#fff", "progress=0.5",
                   "createdAt=2001-01-01T00:00:01Z", "secondary="})
                  .code,
              done);
    EXPECT_EQ(ids(), "A B C ");
    const WidgetSpec spec = stored()[1];
    EXPECT_EQ(spec.title, "new = title");
    EXPECT_EQ(spec.items, (std::vector<std::string>{"x", ""}));
    EXPECT_EQ(spec.secondary, "");
    EXPECT_EQ(spec.createdAt, Date{1});
    EXPECT_EQ(run({"set", "B", "--unset", "items", "--unset", "secondary"}).code, done);
    EXPECT_FALSE(stored()[1].items || stored()[1].secondary);

    const std::string before = machine.storedList();
    for (const std::vector<const char*>& wrong : {std::vector<const char*>{"set", "B", "title"},
                                                  {"set", "B", "size=3"},
                                                  {"set", "B", "kind=Note"},
                                                  {"set", "B", "progress=half"},
                                                  {"set", "B", "progress=inf"},
                                                  {"set", "B", "title=x", "target=soon"},
                                                  {"set", "B"},
                                                  {"set", "B", "--unset", "title"}})
        EXPECT_EQ(run(wrong).code, wrongUsage) << wrong.back();
    EXPECT_EQ(machine.storedList(), before);
}

TEST_F(StoreCommand, FindsDesignsByIdBeginningAndPosition) {
    const struct {
        std::vector<const char*> stored;
        const char* reference;
        const char* remaining;  // after its removal; null when that fails
    } cases[] = {
        {{"AB", "AC", "B"}, "AB", "AC B "},
        {{"AB", "AC", "B"}, "b", "AB AC "},
        {{"AB", "AC", "B"}, "@2", "AB B "},
        {{"A", "AB"}, "A", "AB "},  // whole before beginning
        {{"@2", "X", "Y"}, "@2", "X Y "},
        {{"A", "B", "A"}, "A", "B "},
        {{"A", "B", "A"}, "@3", "A B "},
        {{"é"}, "e\u0301", ""},
        {{"AB", "AC"}, "A", nullptr},
        {{"AB"}, "", nullptr},
        {{"AB"}, "@0", nullptr},
        {{"AB"}, "@2", nullptr},
        {{"AB"}, "@1x", nullptr},
        {{"AB"}, "ABC", nullptr},
        {{}, "A", nullptr},
    };
    for (const auto& c : cases) {
        store(c.stored);
        const std::string before = ids();
        const Answer answer = run({"remove", c.reference});
        EXPECT_EQ(answer.code, c.remaining ? done : failed) << c.reference;
        EXPECT_EQ(ids(), c.remaining ? c.remaining : before) << c.reference;
        EXPECT_EQ(answer.err.empty(), c.remaining != nullptr) << c.reference;
    }
    store({"A", "B", "C", "D"});
    EXPECT_EQ(run({"remove", "D", "nobody"}).code, failed);
    EXPECT_EQ(ids(), "A B C D ") << "all or none";
    EXPECT_EQ(run({"remove", "@1", "@3"}).code, done);
    EXPECT_EQ(ids(), "B D ");
    EXPECT_EQ(run({"front", "@2"}).code, done);
    EXPECT_EQ(ids(), "D B ");
    store({"A", "A"});
    EXPECT_EQ(run({"front", "A"}).code, failed) << "which of the two?";
}

TEST_F(StoreCommand, ChangesUnderALockAndNeverOverAnUnreadableStore) {
    store({"A"});
    run({"front", "A"});
    const auto& calls = machine.files.calls;
    const auto at = [&](const char* beginning) {
        return std::ranges::find_if(calls, [&](const std::string& call) { return call.starts_with(beginning); });
    };
    EXPECT_LT(at("lock"), at("read"));
    EXPECT_NE(at("replace"), calls.end());

    for (const char* invalid : {"", "[{}]", "not json"}) {
        machine.files.contents.clear();
        machine.storedList() = invalid;
        EXPECT_EQ(run({"list"}).code, failed);
        const Answer first = run({"add", "--kind", "note", "--title", "t"});
        EXPECT_EQ(first.code, done);
        EXPECT_NE(first.err.find("kept as "), std::string::npos) << first.err;
        EXPECT_EQ(stored().size(), 1u);
        machine.storedList() = std::string(invalid) + " ";
        EXPECT_EQ(run({"remove", "X"}).code, failed);
        const auto kept = std::ranges::count_if(machine.files.contents, [&](const auto& file) {
            return file.first.find("widgets.json.invalid-") != std::string::npos && file.second.starts_with(invalid);
        });
        EXPECT_EQ(kept, 2) << "each under a name of its own";
    }

    machine.files.fails = [](const std::string& call) { return call.find("invalid-") != std::string::npos; };
    machine.storedList() = "not json";
    EXPECT_EQ(run({"add", "--kind", "note", "--title", "t"}).code, failed);
    EXPECT_EQ(machine.storedList(), "not json") << "what can't be kept isn't overwritten";
    machine.files.fails = [](const std::string& call) { return call.starts_with("lock"); };
    store({"A"});
    EXPECT_EQ(run({"remove", "A"}).code, failed);
    EXPECT_EQ(ids(), "A ");
}

TEST_F(StoreCommand, ListsAsTableRecordsAndIds) {
    EXPECT_EQ(run({"list"}).out, "");
    store({"A", "B\x1B[2J"});
    EXPECT_EQ(run({"list"}).out,
              "    ID     KIND  TITLE  HEADLINE\n"
              "@1  A      note  a      text\n"
              "@2  B [2J  note  b [2j  text\n");
    EXPECT_EQ(run({"list", "--ids"}).out, "A\nB [2J\n");
    EXPECT_EQ(run({"list", "--json"}).out, machine.storedList() + "\n");
}

TEST_F(StoreCommand, KeepsAPendingDesignAndAcceptsIt) {
    store({"A"});
    EXPECT_EQ(run({"pending"}).code, failed);
    EXPECT_EQ(run({"pending", "--json"}).out, "null\n");
    EXPECT_EQ(run({"pending", "accept"}).code, failed);
    EXPECT_EQ(run({"pending", "clear"}).code, done);
    EXPECT_EQ(run({"pending", "set", "-"}, R"({"id":"P","kind":"note","title":"t","primary":"p"})").code, done);
    EXPECT_EQ(run({"pending"}).out, "t\np\n");
    EXPECT_EQ(ids(), "A ");
    machine.files.fails = [](const std::string& call) {
        return call.ends_with("widgets.json") && call.starts_with("replace");
    };
    EXPECT_EQ(run({"pending", "accept"}).code, failed);
    EXPECT_EQ(WidgetStore::pending(machine.platform)->id, "P") << "not cleared before it is stored";
    machine.files.fails = nullptr;
    EXPECT_EQ(run({"pending", "accept"}).out, "P\n");
    EXPECT_EQ(ids(), "P A ");
    EXPECT_EQ(WidgetStore::pending(machine.platform), std::nullopt);
}

TEST_F(StoreCommand, ChecksWhatLoadsAndWhatWontShow) {
    EXPECT_EQ(run({"check"}).code, done);
    const std::string good =
        R"({"id":"A","title":"é","kind":"metric","accentHex":"#fff","symbol":"flag.fill","createdAt":0})";
    const Answer bad = run({"check", "-"}, "[" + good + ",\n  {\"title\":\"é\", \"id\":7}]");
    EXPECT_EQ(bad.code, failed);
    EXPECT_EQ(bad.err, "orvel: standard input:2:22: design @2: \"id\" has the wrong JSON type\n");
    EXPECT_NE(run({"check", "-"}, "[\n" + good + "\n").err.find("standard input:"), std::string::npos);

    machine.storedList() =
        "[" + good + "," +
        R"({"id":"A","title":"","kind":"countdown","accentHex":"red","symbol":"flag.fil","targetISO8601":"2026-01-01T09:00","createdAt":0},)"
        R"({"id":"C","title":"","kind":"countdown","accentHex":"#fff","symbol":"flag.fill","targetISO8601":"soon","createdAt":0},)"
        R"({"id":"L","title":"","kind":"list","accentHex":"#fff","symbol":"?","items":["","","","","",""],"progress":9,"createdAt":0},)"
        R"({"id":"P","title":"","kind":"progress","accentHex":"#fff","symbol":"flag.fill","progress":-0.5,"createdAt":0}])";
    const Answer warned = run({"check"});
    EXPECT_EQ(warned.code, done);
    EXPECT_EQ(warned.out, R"(design @2: accent "red" is no colour; the standard accent is used
design @2: symbol "flag.fil" can't be drawn; the nearest is "flag.fill"
design @2: target "2026-01-01T09:00" counts to local midnight; its time of day is dropped
design @2: the id "A" is design @1's too
design @3: target "soon" is no date; the card shows "—"
design @4: 6 items, of which 5 are shown
design @5: progress -0.5 is not from 0 to 1
/home/ada/Library/Application Support/Orvel/widgets.json: 5 designs load
)");
}

TEST_F(StoreCommand, ShowsTheCardAsWords) {
    const auto shown = [&](const char* form, const std::string& fields) {
        const std::string design = R"([{"id":"A","accentHex":"","symbol":"","createdAt":0,)" + fields + "}]";
        std::vector<const char*> arguments{"show", "--design", "-", "--at", "2026-01-01T00:00:00Z"};
        if (*form) arguments.push_back(form);
        return run(arguments, design).out;
    };
    const std::string note = R"("kind":"note","title":"T","primary":"a <b> & c","secondary":"s")";
    EXPECT_EQ(shown("", note), "T\na <b> & c\ns\n");
    EXPECT_EQ(shown("--json", note), R"({"kind":"note","title":"T","headline":"a <b> & c","secondary":"s"})"
                                     "\n");
    EXPECT_EQ(shown("--waybar", note),
              R"({"text":"a &lt;b&gt; &amp; c","tooltip":"T\na &lt;b&gt; &amp; c\ns","class":"note"})"
              "\n");
    const std::string progress = R"("kind":"progress","title":"T","progress":1.7)";
    EXPECT_EQ(shown("", progress), "T\n170%\n");
    EXPECT_EQ(shown("--waybar", progress), R"({"text":"170%","tooltip":"T\n170%","class":"progress","percentage":100})"
                                           "\n");
    const std::string list = R"("kind":"list","title":"T","items":["1","2","3","4","5","6"])";
    EXPECT_EQ(shown("", list), "T\n1\n2\n3\n4\n5\n");
    EXPECT_EQ(shown("--json", list), R"({"kind":"list","title":"T","rows":["1","2","3","4","5"]})"
                                     "\n");
    EXPECT_EQ(shown("", R"("kind":"countdown","title":"T","targetISO8601":"2026-01-03")"), "T\n2 days\n");
    EXPECT_EQ(run({"show"}).out, "Design one in Orvel\n");
    EXPECT_EQ(run({"show", "--json"}).out, "null\n");
    EXPECT_EQ(run({"show", "--waybar"}).out, R"({"text":"","tooltip":"Design one in Orvel","class":"empty"})"
                                             "\n");
}

}  // namespace
}  // namespace orvel::tools
