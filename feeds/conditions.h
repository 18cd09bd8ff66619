// What a feed may wait for: mains power, and a route to other machines.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/events/event_loop.h"

namespace orvel {

/// A battery of the machine's own is being discharged (sysfs's class power_supply).
bool isOnBattery(const std::filesystem::path& supplies = "/sys/class/power_supply");

/// There is a default route (the tables "route" and "ipv6_route" of proc).
bool isOnline(const std::filesystem::path& tables = "/proc/net");

/// Calls when either may have changed, as the kernel tells (netlink).
class ConditionWatch {
public:
    ConditionWatch(EventLoop& loop, EventLoop::Handler changed);
    ~ConditionWatch();

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace orvel
