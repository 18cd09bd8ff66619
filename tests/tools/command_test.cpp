// The commands that draw and explain.
#include <gtest/gtest.h>

#include <cerrno>
#include <streambuf>

#include "model/widget_spec.h"
#include "platform/foundation/json_reader.h"
#include "tests/tools/command_fixture.h"

namespace orvel::tools {
namespace {

constexpr const char* design =
    R"({"id":"A","title":"first","kind":"metric","accentHex":"#f00","symbol":"flag.fill","primary":"42","createdAt":0})";

constexpr const char* second =
    R"({"id":"B","title":"","kind":"note","accentHex":"","symbol":"","progress":1.7,"createdAt":0})";

TEST_F(Command, RendersTheStoreOrADesignInEveryFormat) {
    machine.storedList() = std::string("[") + design + "]";
    auto& files = machine.files.contents;
    EXPECT_EQ(run({"render"}).code, done);
    EXPECT_TRUE(files["widget.png"].starts_with("\x89PNG"));
    EXPECT_EQ(run({"render", "--design", "-", "-o", "other.PNG"}, design).code, done);
    EXPECT_EQ(files["other.PNG"], files["widget.png"]);
    EXPECT_EQ(run({"render", "-o", "-"}).out, files["widget.png"]);

    const std::pair<const char*, const char*> formats[] = {
        {"a.png", "\x89PNG"}, {"a.svg", "width=\"364px\" height=\"170px\""}, {"a.pdf", "%PDF-"}};
    for (const auto& [file, part] : formats) {
        const auto draw = [&, file = file](const char* moment) {
            EXPECT_EQ(run({"render", "-o", file, "--family", "medium", "--at", moment}).code, done);
            return files[file];
        };
        const std::string once = draw("2001-01-01T00:00:00Z");
        EXPECT_NE(once.find(part), std::string::npos) << file;
        EXPECT_EQ(draw("2001-01-01T00:00:00Z"), once) << file;
        EXPECT_EQ(draw("2002-01-01T00:00:00Z") == once, once.front() != '%') << file << ": a PDF tells of the moment";
    }
    EXPECT_EQ(files["a.svg"].find("</text>"), std::string::npos);
    EXPECT_EQ(run({"render", "--text", "-o", "a.svg"}).code, done);
    EXPECT_NE(files["a.svg"].find(">42</text>\n"), std::string::npos);
    EXPECT_EQ(run({"render", "--scale", "8", "-o", "-"}).out.substr(16, 8), std::string("\0\0\5\x50\0\0\5\x50", 8))
        << "1360 pixels to a side";
}

TEST_F(Command, GalleryShowsEveryKindInBothSizesTheSameEveryDay) {
    auto& files = machine.files.contents;
    for (const char* file : {"gallery.svg", "again.svg", "gallery.pdf", "again.pdf"})
        EXPECT_EQ(run({"gallery", "-o", file}).code, done);
    std::string& svg = files["gallery.svg"];
    EXPECT_EQ(svg, files["again.svg"]);
    EXPECT_EQ(files["gallery.pdf"], files["again.pdf"]);
    std::erase(svg, ' ');  // newer versions of Cairo have some in colours
    const auto count = [&](const std::string& part) {
        int found = 0;
        for (auto at = svg.find(part); at != svg.npos; at = svg.find(part, at + 1)) ++found;
        return found;
    };
    constexpr int cards = 2 * (static_cast<int>(WidgetSpec::allCases.size()) + 1);
    EXPECT_EQ(count("rgb(8.627451%,8.627451%,9.803922%)"), cards) << "a background each";
}

TEST_F(Command, SaysInOneLineWhatFailedAndWritesNothing) {
    const std::string broken = std::string("[") + design + R"(,{"id":"B"}])";
    const struct {
        std::vector<const char*> arguments;
        int code;
        std::string error;
        std::string input = {};
    } cases[] = {
        {{"render", "--design", "-"}, failed, "standard input:1:114: design @2: \"title\" is missing", broken},
        {{"inspect", "--design", "-"}, failed, "design @2", broken},
        {{"render", "--design", "/no/such/file"}, failed, "/no/such/file: can't open: No such file"},
        {{"render", "--design", "/"}, failed, "/: can't read: Is a directory"},
        {{"render", "--design", "-"}, failed, "standard input:1:1: not valid JSON: there is nothing in it"},
        {{"render", "-o", "card.jpg"}, failed, "card.jpg: the ending must be"},
        {{"gallery", "-o", "gallery"}, failed, "gallery: the ending must be"},
        {{}, wrongUsage, "a command is required (orvel help lists the commands)"},
        {{"rendr"}, wrongUsage, "there is no command \"rendr\"; did you mean \"render\"?"},
        {{"add", "--knd", "note"}, wrongUsage, "no option \"--knd\"; did you mean \"--kind\"? (orvel add --help lists"},
        {{"add", "--kind", "nte", "--title", "t"}, wrongUsage, "did you mean \"note\"?"},
        {{"add", "--kind", "note"}, wrongUsage, "a design needs --kind and --title, or --json"},
        {{"pending", "akcept"}, wrongUsage, "did you mean \"accept\"? (orvel pending --help lists its options)"},
        {{"help", "pending", "sit"}, wrongUsage, "there is no command \"pending sit\""},
        {{"set", "@1", "title"}, wrongUsage, "\"title\": a field and its value are wanted"},
        {{"set"}, wrongUsage, "ID is missing (orvel set --help lists its options)"},
        {{"show", "--json", "--waybar"}, wrongUsage, "--json doesn't go with --waybar"},
        {{"render", "@1", "--design", "-"}, wrongUsage, "doesn't go with"},
        {{"render", "@1"}, failed, "@1: no designs are stored"},
        {{"render", "--watch", "-o", "-"}, wrongUsage, "--watch draws into a file"},
        {{"show", "--follow", "--design", "-"}, wrongUsage, "standard input can't be followed"},
        {{"show", "--design", "-"}, failed, "this is a string; a design, which is an object {…}, is wanted", "\"x\""},
        {{"render", "--scale", "0.5"}, wrongUsage, "--scale"},
        {{"render", "--scale", "9"}, wrongUsage, "--scale"},
        {{"render", "--scale", "nan"}, wrongUsage, "--scale"},
        {{"render", "--scale"}, wrongUsage, "--scale needs a value"},
        {{"render", "--family", "large"}, wrongUsage, "--family"},
        {{"render", "--at", "yesterday"}, wrongUsage, "--at"},
        {{"timeline", "extra"}, wrongUsage, "\"extra\" is one argument too many"},
        {{"inspect", "--lang", "Japanese"}, wrongUsage, "such as ja"},
    };
    for (const auto& c : cases) {
        const Answer result = run(c.arguments, c.input);
        EXPECT_EQ(result.code, c.code) << result.err;
        EXPECT_NE(result.err.find(c.error), std::string::npos) << result.err;
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
        EXPECT_TRUE(result.out.empty());
    }
    EXPECT_TRUE(machine.files.contents.empty());

    machine.files.fails = [](const std::string& call) { return call.starts_with("replace"); };
    const Answer unwritable = run({"render", "--design", "-"}, design);
    EXPECT_EQ(unwritable.code, failed);
    EXPECT_EQ(unwritable.err, "orvel: widget.png: can't write: Input/output error\n");
}

TEST_F(Command, ShowsTheEmptyStateOfAStoreThatDoesntLoadAndSaysWhy) {
    const std::string where = std::string(machine.storeFolder) + "widgets.json:2:3: ";
    const std::string why = where + "design @1: \"title\" is a number; a string is wanted";
    machine.storedList() = "[{\"id\":\"A\",\"title\":\n  7}]";
    const std::pair<std::vector<const char*>, const char*> cases[] = {
        {{"render", "-o", "-"}, "\x89PNG"},
        {{"show"}, "Design one in Orvel\n"},
        {{"show", "--json"}, "null\n"},
        {{"inspect"}, R"({"family":"small")"},
        {{"timeline"}, R"({"placeholder":{"date":)"},
    };
    for (const auto& [arguments, begin] : cases) {
        const Answer answer = run(arguments);
        EXPECT_EQ(answer.code, failed) << arguments[0];
        EXPECT_TRUE(answer.out.starts_with(begin)) << answer.out;
        EXPECT_EQ(answer.err, "orvel: " + why + "\n");
    }
    for (const std::vector<const char*>& arguments : {std::vector{"show", "@1"}, {"render", "A"}}) {
        const Answer chosen = run(arguments);
        EXPECT_EQ(chosen.out, "") << "there is no telling what it is";
        EXPECT_EQ(chosen.err, "orvel: " + why + "\n");
    }
    const Answer bar = run({"show", "--waybar"});
    EXPECT_EQ(bar.code, done) << "a bar shows nothing of a command that fails";
    EXPECT_EQ(bar.err, "");
    EXPECT_NE(bar.out.find(R"(design @1: \"title\" is a number; a string is wanted","class":"error"})"),
              std::string::npos)
        << bar.out;
}

TEST_F(Command, DoctorSaysWhatToDo) {
    const auto has = [&](const Answer& answer, const std::string& part) {
        EXPECT_NE(answer.out.find(part), std::string::npos) << part << " in " << answer.out;
    };
    has(run({"doctor"}), "widgets.json: no designs yet\n               -> orvel add --kind");
    machine.storedList() = "[";
    const Answer broken = run({"doctor", "--json"});
    EXPECT_EQ(broken.code, failed);
    EXPECT_TRUE(broken.err.starts_with("orvel: there ")) << broken.err;
    has(broken, R"({"check":"renderer","health":"good","found":"loaded","advice":null})");
    has(broken, R"("check":"store","health":"problem","found":"\/home\/ada)");
    has(broken, R"(widgets.json:1:1: not valid JSON)");
    machine.storedList() = std::string("[") + design + "]";
    has(run({"doctor"}), "  store        /home/ada/Library/Application Support/Orvel/widgets.json: 1 design\n");
    has(run({"doctor"}), "  places       none: the first design is shown at the top right\n");
    EXPECT_EQ(run({"place", "@1"}).err, "");
    EXPECT_EQ(run({"place", "@2"}).err, "orvel: no design is stored at @2 now; its card appears when there is one\n");
    has(run({"doctor"}), "- places       2 places, 1 without a stored design\n               -> orvel place shows");
}

TEST_F(Command, ShowsAnyStoredDesignAndDrafts) {
    machine.storedList() = std::string("[") + second + "," + design + "]";
    for (const char* reference : {"@2", "A", "a"}) EXPECT_EQ(run({"show", reference}).out, "first\n42\n") << reference;
    const std::string draft = R"({"title":"T","kind":"progress","progress":1.7})";
    EXPECT_EQ(run({"show", "--design", "-"}, draft).out, "T\n170%\n") << "as it would be shown from the store";
    EXPECT_NE(run({"inspect", "B", "--at", "2001-01-01T00:00:00Z"}).out, run({"inspect", "@2"}).out);
}

TEST_F(Command, SaysThatItCantPrint) {
    struct Full : std::streambuf {
        explicit Full(int code) : code_(code) {}
        int overflow(int) override {
            errno = code_;
            return EOF;
        }
        int code_;
    };
    machine.storedList() = std::string("[") + design + "]";
    for (const std::vector<const char*>& arguments : {std::vector{"orvel", "list"},
                                                      {"orvel", "show"},
                                                      {"orvel", "check"},
                                                      {"orvel", "symbols"},
                                                      {"orvel", "timeline"},
                                                      {"orvel", "inspect"},
                                                      {"orvel", "--help"},
                                                      {"orvel", "render", "-o", "-"}})
        for (const int why : {ENOSPC, EPIPE}) {
            Full buffer(why);
            std::istringstream in;
            std::ostream out(&buffer);
            std::ostringstream err;
            EXPECT_EQ(
                tools::run(static_cast<int>(arguments.size()), arguments.data(), machine.platform, {in, out, err}),
                failed);
            EXPECT_EQ(err.str(), why == EPIPE ? "" : "orvel: standard output: can't write: No space left on device\n")
                << arguments[1];
        }
}

TEST_F(Command, InspectListsTreeAndMarks) {
    const Answer result = run({"inspect", "--design", "-", "--family", "medium"}, design);
    ASSERT_EQ(result.code, done) << result.err;
    EXPECT_FALSE(json::read(result.out, [](json::Value&) { return true; }));
    // Symbol 16, headline 42, caption 12 high, in a column from 16 to 154.
    for (const char* part :
         {R"({"family":"medium","size":[364,170],"background":"#161619FF","tree":{"view":"containerBackground",)",
          R"("marks":[{"mark":"symbol","frame":[16,16,16,16],"name":"flag.fill","color":"#FF0000FF"},)",
          R"({"mark":"text","frame":[16,100,)",
          R"(,42],"text":"42","font":{"size":34,"weight":800},"color":"#FFFFFFD9","baseline":133.)",
          R"(,12],"text":"FIRST","font":{"size":9.5,"weight":700},"color":"#FFFFFF8C","baseline":)"})
        EXPECT_NE(result.out.find(part), std::string::npos) << part << "\n" << result.out;
}

TEST_F(Command, TimelineShowsTheThreeAnswers) {
    EXPECT_EQ(run({"timeline"}).out, R"({"placeholder":{"date":1000,"spec":null},"snapshot":{"date":1001,"spec":null},)"
                                     R"("timeline":{"entries":[{"date":1002,"spec":null}],"reload":4603}})"
                                     "\n");
    machine.storedList() = std::string("[") + design + "," + second + "]";
    const std::string entry = std::string(R"({"date":0.25,"spec":)") + design + "}";
    EXPECT_EQ(run({"timeline", "--at", "2001-01-01T00:00:00.25Z"}).out,
              "{\"placeholder\":" + entry + ",\"snapshot\":" + entry + ",\"timeline\":{\"entries\":[" + entry +
                  "],\"reload\":3600.25}}\n");
}

}  // namespace
}  // namespace orvel::tools
