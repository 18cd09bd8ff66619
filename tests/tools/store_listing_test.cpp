// The commands that say what is kept.
#include <algorithm>
#include <utility>

#include "model/widget_spec_json.h"
#include "tests/tools/store_fixture.h"

namespace orvel::tools {
namespace {

TEST_F(StoreCommand, LetsNoTextOfADesignReachATerminalRaw) {
    // Cursor movements in both forms, three line ends, a change of direction, the end of markup, and ill-formed UTF-8.
    const std::string hostile = "a\x1B[2J\u009B2J\u007F\r\n\u2028\u202E</b>&amp;\"'$(x)\u0000z";
    const char* const json = R"(a\u001b[2J\u009b2J\u007f\r\n\u2028\u202e</b>&amp;\"'$(x)\u0000z)";
    std::string records;
    for (const char* kind : {"note", "list", "progress", "countdown"}) {
        std::string record = R"({"id":"T","title":"T","kind":")" + std::string(kind) +
                             R"(","accentHex":"T","symbol":"T","primary":"T","secondary":"T","items":["T"],)"
                             R"("targetISO8601":"T","createdAt":0,"T":0})";
        for (auto at = record.find("\"T\""); at != record.npos; at = record.find("\"T\"", at))
            record.replace(at + 1, 1, json);
        records += (records.empty() ? "[" : ",") + record;
    }
    machine.storedList() = records + "]";
    const std::string pending = records.substr(1, records.find("},"));
    machine.files.contents[std::string(machine.storeFolder) + "widget_pending.json"] = pending;
    for (const std::vector<const char*>& arguments : {std::vector{"list"},
                                                      {"list", "--ids"},
                                                      {"list", "--json"},
                                                      {"pending"},
                                                      {"pending", "--json"},
                                                      {"check"},
                                                      {"show", "@1"},
                                                      {"show", "@2"},
                                                      {"show", "@2", "--json"},
                                                      {"show", "@1", "--waybar"},
                                                      {"timeline"},
                                                      {"inspect", "@1"},
                                                      {"remove", hostile.c_str()},
                                                      {"set", "@1", "title=t"},
                                                      {"add", "--json", "-"},
                                                      {"set", "@1", hostile.c_str()},
                                                      {"check", hostile.c_str()},
                                                      {"symbols", hostile.c_str()},
                                                      {hostile.c_str()},
                                                      {"render", "--family", hostile.c_str()}}) {
        const Answer answer = run(arguments, pending);
        const std::string said = answer.out + answer.err;
        EXPECT_NE(said.find("2J"), std::string::npos) << arguments[0] << said;
        for (const char* raw : {"\x1B", "\u009B", "\u007F", "\r", "\u2028", "\u202E"})
            EXPECT_EQ(said.find(raw), std::string::npos) << arguments[0] << ": " << said;
        EXPECT_EQ(said.find('\0'), std::string::npos) << arguments[0];
    }
    EXPECT_EQ(run({"show", "@1", "--waybar"}).out.find("</b>"), std::string::npos);
}

TEST_F(StoreCommand, ListsAsTableRecordsAndIds) {
    EXPECT_NE(run({"list"}).out.find("this makes one: orvel add"), std::string::npos);
    EXPECT_EQ(run({"list", "--ids"}).out, "");
    store({"A", "B\x1B[2J", "é牛"});
    EXPECT_EQ(run({"list"}).out,
              "      ID     KIND  TITLE  HEADLINE\n"
              "* @1  A      note  title  text\n"
              "  @2  B [2J  note  title  text\n"
              "  @3  é牛    note  title  text\n");
    EXPECT_EQ(run({"list", "--ids"}).out, "A\nB [2J\né牛\n");
    columns = 40;
    EXPECT_EQ(run({"set", "A", "title=a long title of ever so many words", "primary=漢字漢字漢字漢字漢字漢字"}).code,
              done);
    EXPECT_EQ(run({"list"}).out,
              "      ID     KIND  TITLE      HEADLINE\n"
              "* @1  A      note  a long t…  漢字漢字…\n"
              "  @2  B [2J  note  title      text\n"
              "  @3  é牛    note  title      text\n");
    EXPECT_NE(run({"add", "--kind=note", "--title=t"}).err.find("orvel desktop puts it on the desktop"),
              std::string::npos);
    EXPECT_EQ(run({"gallery", "-o", "-"}).out, "") << "a PNG is nothing for a terminal";
    columns.reset();
    store({"A", "B\x1B[2J"});
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
    machine.files.fails = [](const std::string& call) { return call.starts_with("remove"); };
    const auto before = machine.files.contents;
    EXPECT_EQ(run({"pending", "accept"}).code, failed);
    EXPECT_EQ(machine.files.contents[std::string(test::FakeMachine::storeFolder) + "widgets.json"],
              before.at(std::string(test::FakeMachine::storeFolder) + "widgets.json"))
        << "not stored when it can't be cleared";
    machine.files.fails = nullptr;
    EXPECT_EQ(run({"pending", "accept"}).out, "P\n");
    EXPECT_EQ(ids(), "P A ");
    EXPECT_EQ(WidgetStore::pending(machine.platform), std::nullopt);
}

TEST_F(StoreCommand, ChecksWhatLoadsAndWhatWontShow) {
    EXPECT_EQ(run({"check"}).code, done);
    const std::string good = record(R"("kind":"metric","primary":"1")");
    const Answer bad = run({"check", "-"}, "[" + good + ",\n  {\"title\":\"é\", \"id\":7}]");
    EXPECT_EQ(bad.code, failed);
    EXPECT_EQ(bad.err, "orvel: standard input:2:22: design @2: \"id\" is a number; a string is wanted\n");
    EXPECT_TRUE(run({"check", "-"}, "\xEF\xBB\xBF[\n{\"x\":\n tru}]").err.starts_with("orvel: standard input:3:2: "));

    machine.storedList() = "[" + good;
    for (const char* fields :
         {R"("kind":"countdown","accentHex":"red","symbol":"flag.fil","targetISO8601":"2026-01-01T09:00")",
          R"("kind":"countdown","id":"C","targetISO8601":"soon")",
          R"("kind":"list","id":"L","symbol":"?","items":["","","","","",""],"progress":9)",
          R"("kind":"progress","id":"P","progress":38,"accentHex":"#3D2A9A","secondary":"","x":1)",
          R"("kind":"list","id":"M","title":" ","items":[],"x":1)"})
        machine.storedList() += "," + record(fields);
    machine.storedList() += "]";
    const Answer warned = run({"check"});
    EXPECT_EQ(warned.code, done);
    EXPECT_EQ(warned.out,
              R"(design @2: accent "red" is no colour; the standard accent is used; did you mean red, which is #FF453A?
design @2: symbol "flag.fil" can't be drawn; the nearest is "flag.fill"
design @2: target "2026-01-01T09:00" counts to local midnight; its time of day is dropped
design @2: the id "A" is design @1's too
design @3: target "soon" is no date; the card shows "—"
design @4: a list card doesn't show its symbol
design @4: 6 items, of which 5 are shown
design @4: a list card doesn't show its progress
design @5: "x" is no field of a design and is ignored
design @5: accent "#3D2A9A" is hard to see on the card: its contrast is 1.7 : 1, and 3 : 1 is wanted; #6657AF has that
design @5: a progress card doesn't show its secondary
design @5: progress 38 is not from 0 to 1; did you mean 38%, which is 0.38?
design @6: the title is empty
design @6: a list card doesn't show its symbol
design @6: a list without items shows its title alone
/home/ada/Library/Application Support/Orvel/widgets.json: 6 designs load
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
