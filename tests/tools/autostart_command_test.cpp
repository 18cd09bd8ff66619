// orvel autostart, on files in memory; tests/package/session_start.sh runs what it turns on.
#include "platform/foundation/installation.h"
#include "tests/tools/command_fixture.h"

namespace orvel::tools {
namespace {

class AutostartCommand : public Command {
protected:
    std::map<std::string, std::string>& files() { return machine.files.contents; }
    void install() { files()[model] = "[Desktop Entry]\nExec=card\n"; }

    const std::string model = (installedData() / "orvel/orvel-widget.desktop").string();
    const std::string entry = "/home/ada/.config/autostart/orvel-widget.desktop";
    const std::string link = "/home/ada/.config/systemd/user/graphical-session.target.wants/orvel-widget.service";
};

TEST_F(AutostartCommand, TurnsItOnAndOffAndPrintsTheCurrentState) {
    install();
    EXPECT_EQ(run({"autostart"}).out, "off\n");
    EXPECT_EQ(run({"autostart", "on"}).code, done);
    EXPECT_TRUE(machine.files.folders.contains("/home/ada/.config/autostart"));
    EXPECT_EQ(files()[entry], files()[model]);
    EXPECT_EQ(run({"autostart"}).out, "on\n");
    EXPECT_EQ(run({"autostart", "off"}).code, done);
    EXPECT_EQ(run({"autostart", "off"}).code, done) << "off already";
    EXPECT_EQ(run({"autostart"}).out, "off\n");
    EXPECT_EQ(files().size(), 1U) << "the installed one stays";

    machine.accounts.configuration = "/settings";
    EXPECT_EQ(run({"autostart", "on"}).code, done);
    EXPECT_TRUE(files().contains("/settings/autostart/orvel-widget.desktop"));
    EXPECT_FALSE(files().contains(entry));
}

TEST_F(AutostartCommand, KnowsWhatOthersTurnOnAndOff) {
    install();
    for (const char* line : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n"}) {
        run({"autostart", "on"});
        files()[entry] += line;
        EXPECT_EQ(run({"autostart"}).out, "off\n") << line;
        run({"autostart", "on"});
        EXPECT_EQ(run({"autostart"}).out, "on\n") << line;
    }
    run({"autostart", "off"});
    files()[link] = "[Unit]\n";
    EXPECT_EQ(run({"autostart"}).out, "on\n") << "enabled by systemctl";
    run({"autostart", "off"});
    EXPECT_FALSE(files().contains(link));
}

TEST_F(AutostartCommand, SaysInOneLineWhatFailed) {
    const Answer notInstalled = run({"autostart", "on"});
    EXPECT_EQ(notInstalled.code, failed);
    EXPECT_EQ(notInstalled.err, "orvel: " + model + ": can't open: No such file or directory; install orvel again\n");
    EXPECT_EQ(run({"autostart", "maybe"}).code, wrongUsage);
    EXPECT_EQ(run({"autostart", "on", "off"}).code, wrongUsage);

    install();
    machine.files.fails = [](const std::string& call) { return call.starts_with("createFolders"); };
    EXPECT_EQ(run({"autostart", "on"}).err, "orvel: /home/ada/.config/autostart: can't create: Input/output error\n");
    machine.files.fails = [](const std::string& call) { return call.starts_with("replace"); };
    const Answer unwritable = run({"autostart", "on"});
    EXPECT_EQ(unwritable.code, failed);
    EXPECT_EQ(unwritable.err, "orvel: " + entry + ": can't write: Input/output error\n");
    EXPECT_EQ(files().size(), 1U);
}

}  // namespace
}  // namespace orvel::tools
