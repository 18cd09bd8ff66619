#include "feeds/conditions.h"

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>

#include <array>
#include <fstream>
#include <list>
#include <sstream>
#include <string>

#include "platform/foundation/descriptor.h"

namespace orvel {
namespace {

std::string lineOf(const std::filesystem::path& file) {
    std::string line;
    std::getline(std::ifstream(file), line);
    return line;
}

// "eth0 00000000 0102A8C0 0003 …": destination zero, and the route is up.
bool isDefaultV4(const std::string& line) {
    std::istringstream words(line);
    std::string device, destination, gateway;
    unsigned flags = 0;
    words >> device >> destination >> gateway >> std::hex >> flags;
    return words && destination == "00000000" && (flags & 1U);
}

// Ten columns: the destination and its prefix first, the flags ninth, the device last. A route that refuses is on lo.
bool isDefaultV6(const std::string& line) {
    std::istringstream words(line);
    std::array<std::string, 10> columns;
    for (std::string& column : columns) words >> column;
    return words && columns[0] == std::string(32, '0') && columns[1] == "00" && columns[9] != "lo";
}

bool anyLine(const std::filesystem::path& file, bool (*isIt)(const std::string&)) {
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);)
        if (isIt(line)) return true;
    return false;
}

Descriptor openNetlink(int protocol, unsigned groups) {
    Descriptor link(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, protocol));
    sockaddr_nl address{};
    address.nl_family = AF_NETLINK;
    address.nl_groups = groups;
    if (!link || ::bind(link.get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) return Descriptor();
    return link;
}

}  // namespace

bool isOnBattery(const std::filesystem::path& supplies) {
    std::error_code code;
    for (std::filesystem::directory_iterator entry(supplies, code), end; !code && entry != end; entry.increment(code)) {
        const auto& supply = entry->path();
        const bool isMachines = lineOf(supply / "type") == "Battery" && lineOf(supply / "scope") != "Device";
        if (isMachines && lineOf(supply / "status") == "Discharging") return true;
    }
    return false;
}

bool isOnline(const std::filesystem::path& tables) {
    return anyLine(tables / "route", isDefaultV4) || anyLine(tables / "ipv6_route", isDefaultV6);
}

struct ConditionWatch::State {
    struct Link {
        Descriptor descriptor;
        EventLoop::Watch watch;
    };
    std::list<Link> links;
};

ConditionWatch::ConditionWatch(EventLoop& loop, EventLoop::Handler changed) : state_(std::make_unique<State>()) {
    constexpr unsigned kernelEvents = 1;
    Descriptor links[] = {openNetlink(NETLINK_ROUTE, RTMGRP_IPV4_ROUTE | RTMGRP_IPV6_ROUTE),
                          openNetlink(NETLINK_KOBJECT_UEVENT, kernelEvents)};
    for (Descriptor& link : links) {
        if (!link) continue;
        const int descriptor = link.get();
        auto watch = loop.watch(descriptor, [descriptor, changed] {
            std::array<char, 8192> message;
            while (::recv(descriptor, message.data(), message.size(), 0) > 0) {
            }
            changed();
        });
        state_->links.push_back({std::move(link), std::move(watch)});
    }
}

ConditionWatch::~ConditionWatch() = default;

}  // namespace orvel
