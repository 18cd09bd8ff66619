// Texts that are special to roff or to a shell, in descriptions made up for it; the real ones are tested in
// documentation_test.sh.
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

#include "tools/documentation/documentation.h"

namespace orvel::tools {
namespace {

TEST(Documentation, EscapesWhatItsReadersWouldTake) {
    std::string text;
    std::vector<std::string> texts;
    CLI::App app("Cards.", "orvel");
    app.set_version_flag("--version", "orvel 1.2-3", "Print the version");
    app.add_option("--at", text, ".hidden 'file' C:\\new [now] ~ \"now\" – ü …")->type_name("TIME");
    app.add_option("--to", text, "'Tis a-b.");
    app.add_option("--each", texts, "All")->type_name("NAME");
    app.add_subcommand("say", "Says")->add_option("text", text, "Of the name's own type");
    const std::string page = manualPage(app);
    const std::string zsh = zshCompletion(app);
    const std::string fish = fishCompletion(app);
    const std::pair<const std::string&, std::string> cases[] = {
        {page, ".TH \"ORVEL\" 1 \"\" \"orvel 1.2\\-3\" \"User Commands\"\n"},
        {page, "\norvel \\- Cards\n"},
        {page,
         "\n\\fB\\-\\-at\\fR \\fITIME\\fR\n\\&.hidden \\(aqfile\\(aq C:\\(rsnew [now] \\(ti \\(dqnow\\(dq \\[u2013] "
         "\\[u00FC] \\[u2026]\n"},
        {page, "\n\\fItext\\fR\nOf the name\\(aqs own type.\n"},
        {page, "\n\\(aqTis a\\-b.\n"},
        {zsh, R"z('(--at)--at=[.hidden '\''file'\'' C\:\\new \[now\] ~ "now" – ü …]:TIME: ')z"},
        {zsh, "'*--each=[All]:NAME: '"},
        {fish, R"( -l at -r -f -d '.hidden \'file\' C:\\new [now] ~ "now" – ü …')"},
    };
    for (const auto& [document, part] : cases) EXPECT_NE(document.find(part), std::string::npos) << part << document;
}

}  // namespace
}  // namespace orvel::tools
