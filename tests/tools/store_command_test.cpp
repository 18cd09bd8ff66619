// The commands that keep the designs, and those that say what is kept.
#include <algorithm>

#include "model/widget_spec_json.h"
#include "model/widget_store.h"
#include "tests/tools/command_fixture.h"

namespace orvel::tools {
namespace {

class StoreCommand : public Command {
protected:
    // Designs with these ids, all of them notes.
    void store(const std::vector<const char*>& ids) {
        std::vector<WidgetSpec> specs;
        for (const char* id : ids)
            specs.push_back(WidgetSpec({.id = id,
                                        .title = "title",
                                        .kind = WidgetSpec::Kind::note,
                                        .symbol = "flag.fill",
                                        .primary = "text",
                                        .createdAt = Date{}}));
        WidgetStore::save(specs, machine.platform);
        machine.files.calls.clear();
    }
    // A whole record with these fields; where it has a field twice, the first one counts.
    static std::string record(const std::string& fields) {
        return "{" + fields + R"(,"id":"A","title":"é","accentHex":"#fff","symbol":"flag.fill","createdAt":0})";
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
    EXPECT_TRUE(machine.storedList().starts_with(
        R"([{"id":"ID-1","title":"Food","kind":"list","accentHex":"#0af","symbol":"cart","primary":"p",)"
        R"("secondary":"s","items":["a","b c"],"progress":0.25,"createdAt":)"))
        << machine.storedList();
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
    const auto add = [&](const char* target) {
        return run({"add", "--kind=countdown", "--title=T", "--symbol=flag.fill", "--target", target});
    };
    // The fake machine's zone is two hours east; its clock begins at 2001-01-01T00:16:40Z, and ticks a few seconds.
    const struct {
        const char* given;
        const char* stored;
        bool warns = false;
    } cases[] = {{"2026-12-24T18:00:00Z", "2026-12-24T18:00:00Z"},
                 {"2026-12-24", "2026-12-24"},
                 {"2026-12-24 18:00", "2026-12-24T18:00:00+02:00"},
                 {"2026-12-24T18:00", "2026-12-24T18:00", true},
                 {"+3d", "2001-01-04T02:16:4_+02:00"},
                 {"+1.5h", "2001-01-01T03:46:4_+02:00"}};
    for (const auto& c : cases) {
        EXPECT_EQ(add(c.given).err.starts_with("orvel: warning: "), c.warns) << c.given;
        std::string target = *stored().at(0).targetISO8601;
        if (*c.given == '+') target.at(18) = '_';
        EXPECT_EQ(target, c.stored);
    }
    const std::string before = machine.storedList();
    for (const char* refused : {"2026-12-24 25:00", "+d", "+3w", "soon"}) EXPECT_EQ(add(refused).code, wrongUsage);
    EXPECT_EQ(machine.storedList(), before);
}

TEST_F(StoreCommand, ChangesFieldsInPlace) {
    store({"A", "B", "C"});
    EXPECT_EQ(run({"set", "B", "title=new = title", "kind=list", "item=x", "item=", "accent=#fff", "progress=0.5",
                   "createdAt=2001-01-01T00:00:01Z", "secondary="})
                  .code,
              done);
    EXPECT_EQ(ids(), "A B C ");
    EXPECT_EQ(
        WidgetSpecJSON::encode(stored()[1]),
        R"({"id":"B","title":"new = title","kind":"list","accentHex":"#fff","symbol":"flag.fill","primary":"text",)"
        R"("secondary":"","items":["x",""],"progress":0.5,"createdAt":1})");
    EXPECT_EQ(run({"set", "B", "--unset", "items", "--unset", "secondary"}).code, done);
    EXPECT_FALSE(stored()[1].items || stored()[1].secondary);

    const std::string before = machine.storedList();
    for (const char* change :
         {"title", "size=3", "kind=Note", "progress=half", "progress=inf", "target=soon", "--unset=title"})
        EXPECT_EQ(run({"set", "B", "title=x", change}).code, wrongUsage) << change;
    EXPECT_EQ(run({"set", "B"}).code, wrongUsage);
    EXPECT_EQ(machine.storedList(), before);
}

TEST_F(StoreCommand, FindsDesignsByIdBeginningAndPosition) {
    const struct {
        std::vector<const char*> stored;
        const char* reference;
        const char* remaining;  // after its removal
    } cases[] = {
        {{"AB", "AC", "B"}, "AB", "AC B "}, {{"AB", "AC", "B"}, "b", "AB AC "},
        {{"AB", "AC", "B"}, "@2", "AB B "}, {{"A", "AB"}, "A", "AB "},  // whole before beginning
        {{"@2", "X", "Y"}, "@2", "X Y "},   {{"A", "B", "A"}, "A", "B "},
        {{"A", "B", "A"}, "@3", "A B "},    {{"é"}, "e\u0301", ""},
    };
    for (const auto& c : cases) {
        store(c.stored);
        EXPECT_EQ(run({"remove", c.reference}).code, done) << c.reference;
        EXPECT_EQ(ids(), c.remaining) << c.reference;
    }
    store({"AB", "AC"});
    for (const char* reference : {"A", "", "@0", "@3", "@1x", "ABC"}) {
        EXPECT_EQ(run({"remove", "AB", reference}).code, failed) << reference;
        EXPECT_EQ(ids(), "AB AC ") << "all or none";
    }
    store({"A", "B", "C", "D"});
    EXPECT_EQ(run({"remove", "@1", "@3"}).code, done);
    EXPECT_EQ(run({"front", "@2"}).code, done);
    EXPECT_EQ(ids(), "D B ");
    store({"A", "A"});
    EXPECT_EQ(run({"front", "A"}).code, failed) << "which of the two?";
}

TEST_F(StoreCommand, ChangesUnderALockAndNeverOverAnUnreadableStore) {
    store({"A"});
    run({"front", "A"});
    std::string verbs;
    for (const std::string& call : machine.files.calls) verbs += call.substr(0, call.find(' ') + 1);
    EXPECT_LT(verbs.find("lock"), verbs.find("read"));
    EXPECT_LT(verbs.find("read"), verbs.find("replace"));

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

    const std::pair<const char*, std::string> failures[] = {{"replace", "not json"}, {"lock", "[]"}};
    for (const auto& [verb, before] : failures) {
        machine.storedList() = before;
        machine.files.fails = [verb = verb](const std::string& call) { return call.starts_with(verb); };
        EXPECT_EQ(run({"add", "--kind", "note", "--title", "t"}).code, failed);
        EXPECT_EQ(machine.storedList(), before) << verb;
    }
}

TEST_F(StoreCommand, ListsAsTableRecordsAndIds) {
    EXPECT_EQ(run({"list"}).out, "");
    store({"A", "B\x1B[2J"});
    EXPECT_EQ(run({"list"}).out,
              "    ID     KIND  TITLE  HEADLINE\n"
              "@1  A      note  title  text\n"
              "@2  B [2J  note  title  text\n");
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
    machine.files.fails = [](const std::string& call) { return call.starts_with("replace"); };
    EXPECT_EQ(run({"pending", "accept"}).code, failed);
    EXPECT_EQ(run({"pending"}).out, "t\np\n") << "not cleared before it is stored";
    machine.files.fails = nullptr;
    EXPECT_EQ(run({"pending", "accept"}).out, "P\n");
    EXPECT_EQ(ids(), "P A ");
    EXPECT_EQ(WidgetStore::pending(machine.platform), std::nullopt);
}

TEST_F(StoreCommand, ChecksWhatLoadsAndWhatWontShow) {
    EXPECT_EQ(run({"check"}).code, done);
    const std::string good = record(R"("kind":"metric")");
    const Answer bad = run({"check", "-"}, "[" + good + ",\n  {\"title\":\"é\", \"id\":7}]");
    EXPECT_EQ(bad.code, failed);
    EXPECT_EQ(bad.err, "orvel: standard input:2:22: design @2: \"id\" has the wrong JSON type\n");
    EXPECT_TRUE(run({"check", "-"}, "\xEF\xBB\xBF[\n{\"x\":\n tru}]").err.starts_with("orvel: standard input:3:2: "));

    machine.storedList() = "[" + good;
    for (const char* fields :
         {R"("kind":"countdown","accentHex":"red","symbol":"flag.fil","targetISO8601":"2026-01-01T09:00")",
          R"("kind":"countdown","id":"C","targetISO8601":"soon")",
          R"("kind":"list","id":"L","symbol":"?","items":["","","","","",""],"progress":9)",
          R"("kind":"progress","id":"P","progress":-0.5)"})
        machine.storedList() += "," + record(fields);
    machine.storedList() += "]";
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
    const char* const note = R"("kind":"note","title":"T","primary":"a <b> & c","secondary":"s")";
    const char* const progress = R"("kind":"progress","title":"T","progress":1.7)";
    const char* const list = R"("kind":"list","title":"T","items":["1","2","3","4","5","6"])";
    const char* const countdown = R"("kind":"countdown","title":"T","targetISO8601":"2026-01-03")";
    const struct {
        const char* form;
        const char* fields;  // null for no design at all
        const char* words;
    } cases[] = {
        {"", note, "T\na <b> & c\ns"},
        {"--json", note, R"({"kind":"note","title":"T","headline":"a <b> & c","secondary":"s"})"},
        {"--waybar", note, R"({"text":"a &lt;b&gt; &amp; c","tooltip":"T\na &lt;b&gt; &amp; c\ns","class":"note"})"},
        {"", progress, "T\n170%"},
        {"--waybar", progress, R"({"text":"170%","tooltip":"T\n170%","class":"progress","percentage":100})"},
        {"", list, "T\n1\n2\n3\n4\n5"},
        {"--json", list, R"({"kind":"list","title":"T","rows":["1","2","3","4","5"]})"},
        {"", countdown, "T\n2 days"},
        {"", nullptr, "Design one in Orvel"},
        {"--json", nullptr, "null"},
        {"--waybar", nullptr, R"({"text":"","tooltip":"Design one in Orvel","class":"empty"})"},
    };
    for (const auto& c : cases) {
        std::vector<const char*> arguments{"show", "--design", "-", "--at", "2026-01-01T00:00:00Z"};
        if (*c.form) arguments.push_back(c.form);
        EXPECT_EQ(run(arguments, c.fields ? record(c.fields) : "[]").out, std::string(c.words) + "\n");
    }
}

}  // namespace
}  // namespace orvel::tools
