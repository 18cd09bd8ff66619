// The commands that keep the designs.
#include <algorithm>
#include <utility>

#include "model/widget_spec_json.h"
#include "tests/tools/store_fixture.h"

namespace orvel::tools {
namespace {

TEST_F(StoreCommand, AddsFromOptionsAndReplacesTheSameId) {
    const Answer added = run({"add", "--kind", "list", "--title", "Food", "--item", "a", "--item", "b c", "--symbol",
                              "cart", "--accent", "#0af", "--secondary", "s", "--primary", "p", "--progress", "0.25"});
    EXPECT_EQ(added.out, "ID-1\n");
    for (const char* hidden : {"symbol", "secondary", "primary", "progress"})
        EXPECT_NE(added.err.find(std::string("a list card doesn't show its ") + hidden), std::string::npos) << hidden;
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
                                        "progress":2,"createdAt":5,"accentHex":"#fff","primry":""})");
    EXPECT_EQ(limited.err,
              "orvel: warning: 6 items, of which 5 are kept\n"
              "orvel: warning: progress 2 is kept as 1; did you mean 2%, which is 0.02?\n"
              "orvel: warning: \"primry\" is no field of a design and is ignored; did you mean \"primary\"?\n"
              "orvel: warning: a list card doesn't show its progress\n");
    EXPECT_EQ(stored()[0].createdAt, Date{5});
    const char* const whole =
        R"({"id":"W","title":"t","kind":"note","accentHex":"#fff","symbol":"flag.fill","primary":"p",)"
        R"("secondary":"s","items":["i"],"progress":0.5,"targetISO8601":"2026-01-01","createdAt":5})";
    EXPECT_EQ(run({"add", "--json", "-"}, whole).code, done);
    EXPECT_EQ(WidgetSpecJSON::encode(stored()[0]), whole);
    const Answer bad = run({"add", "--json", "-"}, R"({"kind":"note"})");
    EXPECT_EQ(bad.err, "orvel: standard input:1:1: \"title\" is missing\n");
    EXPECT_EQ(bad.code, failed);
    EXPECT_EQ(ids(), "W A ID-1 ");
}

TEST_F(StoreCommand, TurnsAPersonsTargetsIntoFullTimes) {
    const auto add = [&](const char* target) {
        return run({"add", "--kind=countdown", "--title=T", "--symbol=flag.fill", "--accent=blue", "--target", target});
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
    EXPECT_EQ(run({"set", "B", "prim=1"}).err, "orvel: no field is called \"prim\"; did you mean \"primary\"?\n");
    EXPECT_EQ(run({"set", "B"}).code, wrongUsage);
    EXPECT_EQ(machine.storedList(), before);
}

TEST_F(StoreCommand, UnderstandsWhatAPersonWritesAlikeInAddAndSet) {
    const struct {
        const char* field;
        const char* given;
        const char* stored;  // the end of the record before createdAt; null when it is refused
        const char* warning = "";
    } cases[] = {
        {"progress", "0.38", R"("progress":0.38)"},
        {"progress", "38%", R"("progress":0.38)"},
        {"progress", "38 %", R"("progress":0.38)"},
        {"progress", "19/50", R"("progress":0.38)"},
        {"progress", "38", R"("progress":1)", "progress 38 is kept as 1; did you mean 38%, which is 0.38?"},
        {"progress", "-1", R"("progress":0)", "progress -1 is kept as 0"},
        {"progress", "half", nullptr, "a number from 0 to 1 is wanted, such as 0.38, 38% or 19/50"},
        {"progress", "1/0", nullptr},
        {"progress", "%", nullptr},
        {"item", "a,b", R"("items":["a,b"])"},
        {"accent", "Orange", R"("accentHex":"#FF9F0A")"},
        {"accent", "orenge", R"("accentHex":"orenge")", "did you mean orange, which is #FF9F0A?"},
        {"accent", "0x0A84FFCC", R"("accentHex":"0x0A84FFCC")", "did you mean \"#0A84FF\"?"},
        {"accent", "#777", R"("accentHex":"#777")"},
        {"accent", "#555", R"("accentHex":"#555")", "its contrast is 2.4 : 1"},
    };
    for (const auto& c : cases) {
        store({"A"});
        const std::string option = std::string("--") + c.field + "=" + c.given;
        const std::string assignment = std::string(c.field) + "=" + c.given;
        for (const Answer& answer : {run({"set", "A", assignment.c_str()}),
                                     run({"add", "--kind=note", "--title=t", "--id=A", option.c_str()})}) {
            EXPECT_EQ(answer.code, c.stored ? done : wrongUsage) << assignment;
            EXPECT_NE(answer.err.find(c.warning), std::string::npos) << answer.err;
            const std::string stored = c.stored ? c.stored : "";
            EXPECT_NE(machine.storedList().find(stored), std::string::npos) << machine.storedList();
        }
    }
    EXPECT_EQ(run({"set", "A", "items=a, b"}).code, done);
    EXPECT_EQ(stored()[0].items, (std::vector<std::string>{"a", "b"}));
}

TEST_F(StoreCommand, FindsDesignsByIdBeginningAndPosition) {
    const struct {
        std::vector<const char*> stored;
        const char* reference;
        const char* remaining;  // after its removal
    } cases[] = {
        {{"AB", "AC", "B"}, "AB", "AC B "}, {{"AB", "AC", "B"}, "b", "AB AC "}, {{"AB", "AC", "B"}, "@2", "AB B "},
        {{"A", "AB"}, "A", "AB "},  // whole before beginning
        {{"@2", "X", "Y"}, "@2", "X Y "},   {{"A", "B", "A"}, "@3", "A B "},    {{"é"}, "e\u0301", ""},
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
    store({"A", "A", "AB"});
    for (const char* command : {"front", "remove"})
        EXPECT_EQ(run({command, "A"}).err,
                  "orvel: \"A\" is the id of several designs; name one by its position: @1 A (title), @2 A (title)\n");
    EXPECT_EQ(ids(), "A A AB ");
    store({"BA", "BB", "C"});
    EXPECT_EQ(run({"front", "b"}).err, "orvel: \"b\" is the beginning of several ids: @1 BA (title), @2 BB (title)\n");
}

TEST_F(StoreCommand, KeepsIdsApart) {
    const struct {
        std::vector<const char*> command;
        int code;
        const char* ids;
    } cases[] = {{{"set", "B", "id=A"}, failed, "A B é "},
                 {{"set", "B", "id=e\u0301"}, failed, "A B é "},
                 {{"set", "B", "id="}, wrongUsage, "A B é "},
                 {{"add", "--kind=note", "--title=t", "--id="}, wrongUsage, "A B é "},
                 {{"set", "B", "id=C", "title=x"}, done, "A C é "},
                 {{"set", "é", "id=e\u0301"}, done, "A B e\u0301 "}};
    for (const auto& c : cases) {
        store({"A", "B", "é"});
        EXPECT_EQ(run(c.command).code, c.code) << c.command[2];
        EXPECT_EQ(ids(), c.ids) << c.command[2];
    }
    EXPECT_EQ(run({"add", "--json", "-"}, record(R"("kind":"note","id":"")")).code, failed);
    EXPECT_EQ(run({"pending", "set", "-"}, record(R"("kind":"note","id":"")")).code, done) << "it may be mended there";
    EXPECT_EQ(run({"pending", "accept"}).code, failed);
}

TEST_F(StoreCommand, UpdatesInPlaceOrAdds) {
    const struct {
        std::vector<const char*> command;
        int code;
        const char* ids;
        const char* primary;
    } cases[] = {
        {{"add", "--keep-place", "--id=B", "--primary=2"}, done, "A B C ", "2"},
        {{"add", "--keep-place", "--id=N", "--kind=note", "--title=t", "--primary=2"}, done, "N A B C ", "text"},
        {{"add", "--keep-place", "--id=N", "--kind=note", "--primary=2"}, wrongUsage, "A B C ", "text"},
        {{"add", "--keep-place", "--primary=2", "--kind=note", "--title=t"}, wrongUsage, "A B C ", "text"},
        {{"set", "--create", "B", "primary=2"}, done, "A B C ", "2"},
        {{"set", "--create", "N", "primary=2", "kind=note", "title=t"}, done, "N A B C ", "text"},
        {{"set", "--create", "N", "primary=2"}, wrongUsage, "A B C ", "text"},
        {{"set", "--create", "b", "primary=2", "kind=note", "title=t"}, done, "b A B C ", "text"}};
    for (const auto& c : cases) {
        store({"A", "B", "C"});
        EXPECT_EQ(run(c.command).code, c.code) << c.command[1] << c.command[2];
        EXPECT_EQ(ids(), c.ids) << c.command[1] << c.command[2];
        const auto all = stored();
        const WidgetSpec& b = all.at(all.size() - 2);
        EXPECT_EQ(b.primary, c.primary) << c.command[1] << c.command[2];
        EXPECT_EQ(b.title + b.symbol, "titleflag.fill") << "what isn't given stays";
    }
    store({"A", "B"});
    const auto before = machine.files.contents;
    for (const std::vector<const char*>& same : std::vector<std::vector<const char*>>{
             {"add", "--keep-place", "--id=B", "--primary=text"}, {"set", "B", "title=title"}, {"front", "A"}})
        EXPECT_EQ(run(same).code, done);
    for (const auto& call : machine.files.calls) EXPECT_FALSE(call.starts_with("replace")) << call;
    EXPECT_EQ(machine.files.contents, before);
    const Answer limited = run({"add", "--keep-place", "--id=B", "--progress=7"});
    EXPECT_TRUE(limited.err.starts_with("orvel: warning: progress 7 is kept as 1; did you mean 7%")) << limited.err;
    EXPECT_EQ(stored()[1].progress, 1);
}

}  // namespace
}  // namespace orvel::tools
