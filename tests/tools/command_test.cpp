// The commands that draw and explain.
#include <gtest/gtest.h>

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
        {"a.png", "\x89PNG"}, {"a.svg", "width=\"364pt\" height=\"170pt\""}, {"a.pdf", "(20010101000000Z)"}};
    for (const auto& [file, part] : formats) {
        const auto draw = [&, file = file] {
            EXPECT_EQ(run({"render", "-o", file, "--family", "medium", "--at", "2001-01-01T00:00:00Z"}).code, done);
            return files[file];
        };
        const std::string once = draw();
        EXPECT_NE(once.find(part), std::string::npos) << file;
        EXPECT_EQ(draw(), once) << file;
    }
    EXPECT_EQ(run({"gallery", "--scale", "1", "-o", "one.png"}).code, done);
    EXPECT_EQ(run({"gallery", "--scale", "1", "-o", "two.png"}).code, done);
    EXPECT_FALSE(files["one.png"].empty());
    EXPECT_EQ(files["one.png"], files["two.png"]) << "the same every day";
}

TEST_F(Command, SaysInOneLineWhatFailedAndWritesNothing) {
    const std::string broken = std::string("[") + design + R"(,{"id":"B"}])";
    const struct {
        std::vector<const char*> arguments;
        int code;
        std::string error;
        std::string input = {};
    } cases[] = {
        {{"render", "--design", "-"}, failed, "standard input: design @2: \"title\" is missing", broken},
        {{"inspect", "--design", "-"}, failed, "design @2", broken},
        {{"render", "--design", "/no/such/file"}, failed, "/no/such/file: can't open: No such file"},
        {{"render", "--design", "/"}, failed, "/: can't read: Is a directory"},
        {{"render", "--design", "-"}, failed, "standard input: not valid JSON"},
        {{"render", "-o", "card.jpg"}, failed, "card.jpg: the ending must be"},
        {{"gallery", "-o", "gallery"}, failed, "gallery: the ending must be"},
        {{}, wrongUsage, "A subcommand is required"},
        {{"paint"}, wrongUsage, "paint"},
        {{"render", "--scale", "0.5"}, wrongUsage, "--scale"},
        {{"render", "--scale", "9"}, wrongUsage, "--scale"},
        {{"render", "--scale", "nan"}, wrongUsage, "--scale"},
        {{"render", "--family", "large"}, wrongUsage, "--family"},
        {{"render", "--at", "yesterday"}, wrongUsage, "--at"},
        {{"timeline", "extra"}, wrongUsage, "extra"},
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
    EXPECT_EQ(unwritable.err, "orvel: widget.png: can't write: No such file or directory\n");
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
