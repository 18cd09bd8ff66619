// What the machine says of its power and its network, and what the service writes of its feeds.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "feeds/conditions.h"
#include "feeds/status.h"
#include "tests/support/fakes.h"

namespace orvel {
namespace {

namespace fs = std::filesystem;

class Machine : public testing::Test {
protected:
    Machine() { fs::create_directory(folder); }
    ~Machine() override { fs::remove_all(folder); }
    void write(const std::string& file, const std::string& text) {
        fs::create_directories((folder / file).parent_path());
        std::ofstream(folder / file) << text;
    }
    const fs::path folder = fs::temp_directory_path() / ("orvel-machine-" + std::to_string(::getpid()));
};

TEST_F(Machine, IsOnBatteryWhenOneOfItsOwnIsDischarged) {
    EXPECT_FALSE(isOnBattery(folder / "missing"));
    write("AC/type", "Mains\n");
    write("AC/status", "Discharging\n");
    write("mouse/type", "Battery\n");
    write("mouse/scope", "Device\n");
    write("mouse/status", "Discharging\n");
    EXPECT_FALSE(isOnBattery(folder));
    write("BAT0/type", "Battery\n");
    for (const auto& [status, isIt] : {std::pair{"Charging", false}, {"Full", false}, {"Discharging", true}}) {
        write("BAT0/status", std::string(status) + "\n");
        EXPECT_EQ(isOnBattery(folder), isIt) << status;
    }
}

TEST_F(Machine, IsOnlineWithADefaultRoute) {
    const std::string head = "Iface\tDestination\tGateway \tFlags\tRefCnt\tUse\tMetric\tMask\t\tMTU\tWindow\tIRTT\n";
    const std::string zeros(32, '0');
    const auto v6 = [&](const std::string& destination, const char* device) {
        return destination + " 00 " + zeros +
               " 00 fe800000000000000000000000000001 00000400 00000001 00000000 00000003 " + device + "\n";
    };
    const struct {
        std::string v4;
        std::string v6;
        bool isIt;
        const char* why;
    } rows[] = {
        {head, "", false, "no route"},
        {head + "eth0\t0002A8C0\t00000000\t0001\t0\t0\t0\t00FFFFFF\t0\t0\t0\n", "", false, "the own network alone"},
        {head + "eth0\t00000000\t0102A8C0\t0003\t0\t0\t0\t00000000\t0\t0\t0\n", "", true, "a gateway"},
        {head + "eth0\t00000000\t0102A8C0\t0002\t0\t0\t0\t00000000\t0\t0\t0\n", "", false, "one that is down"},
        {head, v6(zeros, "lo"), false, "what the kernel answers unreachable with"},
        {head, v6(zeros, "eth0"), true, "a gateway of IPv6"},
        {head, v6("2001" + zeros.substr(4), "eth0"), false, "a network of IPv6"},
    };
    for (const auto& row : rows) {
        write("route", row.v4);
        write("ipv6_route", row.v6);
        EXPECT_EQ(isOnline(folder), row.isIt) << row.why;
    }
}

TEST_F(Machine, KeepsTheStatusForTheSessionAndAtItsEndForTheNext) {
    test::FakeMachine machine;
    ::setenv("XDG_RUNTIME_DIR", "/run/user/7", 1);
    FeedStatus status{.last = Date{1000}, .seconds = 0.25, .failure = "a \"b\"", .failures = 3, .news = Date{900}};
    Statuses::write({{"disk", status}, {"été", {}}}, Statuses::Until::endOfSession, machine.platform);
    ASSERT_EQ(machine.files.contents.size(), 1U);
    EXPECT_TRUE(machine.files.contents.begin()->first.starts_with("/run/user/7/"));
    Statuses::write(Statuses::read(machine.platform), Statuses::Until::nextSession, machine.platform);
    machine.files.contents.erase(machine.files.contents.begin());  // as when the session's folder is removed
    const FeedStatuses read = Statuses::read(machine.platform);
    ASSERT_EQ(read.size(), 2U);
    EXPECT_EQ(Statuses::text(read), Statuses::text({{"disk", status}, {"été", {}}}));
    EXPECT_EQ(read.at("disk").failure, status.failure);
    EXPECT_EQ(read.at("disk").news, status.news);
    EXPECT_FALSE(read.at("été").last);
    EXPECT_TRUE(Statuses::fromText("[1]").empty());
    EXPECT_TRUE(Statuses::fromText("{\"a\":{\"last\":\"20").empty());
}

}  // namespace
}  // namespace orvel
