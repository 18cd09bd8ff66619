// Texts that are special to roff or to a shell, in descriptions made up for it; the real ones are tested in
// documentation_test.sh.
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

#include "tools/documentation.h"

namespace orvel::tools {
namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class Documentation : public testing::Test {
protected:
    Documentation() { app.set_version_flag("--version", "orvel 1.2-3", "Print the version"); }

    std::string text;
    std::vector<std::string> texts;
    CLI::App app{"Cards.", "orvel"};
};

TEST_F(Documentation, ManualPageEscapesWhatRoffWouldTake) {
    app.add_option("--at", text, ".hidden 'file' C:\\new ~ \"now\" – ü …");
    app.add_option("--to", text, "'Tis a-b.");
    app.add_subcommand("say", "Says")->add_option("text", text, "Of the name's own type");
    const std::string page = manualPage(app);
    EXPECT_TRUE(page.starts_with(".TH \"ORVEL\" 1 \"\" \"orvel 1.2\\-3\" \"User Commands\"\n")) << page;
    EXPECT_TRUE(contains(page, "\norvel \\- Cards\n")) << page;
    EXPECT_TRUE(contains(page,
                         "\n\\fB\\-\\-at\\fR \\fITEXT\\fR\n"
                         "\\&.hidden \\(aqfile\\(aq C:\\(rsnew \\(ti \\(dqnow\\(dq \\[u2013] \\[u00FC] \\[u2026]\n"))
        << page;
    EXPECT_TRUE(contains(page, "\n\\fItext\\fR\nOf the name\\(aqs own type.\n")) << page;
    EXPECT_TRUE(contains(page, "\n\\(aqTis a\\-b.\n")) << page;
}

TEST_F(Documentation, ShellScriptsQuoteTexts) {
    app.add_option("--at", text, "It's C:\\new [now]")->type_name("TIME");
    app.add_option("--each", texts, "All")->type_name("NAME");
    EXPECT_TRUE(contains(zshCompletion(app), R"z('(--at)--at=[It'\''s C\:\\new \[now\]]:TIME: ')z"))
        << zshCompletion(app);
    EXPECT_TRUE(contains(zshCompletion(app), "'*--each=[All]:NAME: '")) << zshCompletion(app);
    EXPECT_TRUE(contains(fishCompletion(app), R"( -l at -r -f -d 'It\'s C:\\new [now]')")) << fishCompletion(app);
}

}  // namespace
}  // namespace orvel::tools
