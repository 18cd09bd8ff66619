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

TEST(Documentation, MakesAManualPageOfADocument) {
    const std::pair<const char*, const char*> cases[] = {
        {"# Title\n\nOne *two*\n  `th-ree`.\n", "\n.SH \"DESCRIPTION\"\nOne \\fItwo\\fR \\fBth\\-ree\\fR\\&.\n.SH"},
        {"a\n\n.b\n", "DESCRIPTION\"\na\n.PP\n\\&.b\n"},
        {"## One *more*\ntext\n### Below\n- a\n  b\n- c\n",
         "\n.SH \"ONE *MORE*\"\ntext\n.SS \"Below\"\n.IP \\(bu 2\na b\n.IP \\(bu 2\nc\n"},
        {"10. ten\n1. one\n", ".IP 10. 4\nten\n.IP 1. 4\none\n"},
        {"[the `store`](store.md#here) and [1] (2)\n", "\nthe \\fBstore\\fR and [1] (2)\n"},
        {"2 * 3, `open and *shut\n", "\n2 * 3, \\(gaopen and *shut\n"},
        {"```sh\n- 'a'\n\n```\nb\n", ".RS 4\n.nf\n\\- \\(aqa\\(aq\n\n.fi\n.RE\n.PP\nb\n"},
        {"    code\ntext\n", ".nf\ncode\n.fi\n.RE\n.PP\ntext\n"},
        {"| a | | |\n|---|---|---|\n| `x` | number | *y* |\n", "\n.TP\n\\fBx\\fR (number)\n\\fIy\\fR\n.SH"},
        {"| a | |\n|---|---|\n| x | y |\nafter\n", "\n.TP\nx\ny\n.PP\nafter\n"},
        {"", ".TH \"NAME\" 5 \"\" \"1.2\" \"File Formats\"\n.SH \"NAME\"\nname \\- what it is\n.SH"},
    };
    for (const auto& [document, part] : cases) {
        const std::string page = manualPage({"name", 5, "1.2", "what it is"}, document);
        EXPECT_NE(page.find(part), std::string::npos) << document << page;
    }
}

}  // namespace
}  // namespace orvel::tools
