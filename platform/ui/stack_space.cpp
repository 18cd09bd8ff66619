#include "platform/ui/stack_space.h"

#include <algorithm>
#include <numeric>

#include "platform/ui/geometry.h"

namespace orvel {
namespace {

double flexibility(const StackChild& child) {
    return child.maximum == child.minimum ? 0 : child.maximum - child.minimum;  // both may be infinite
}

/// What remains of a space; an infinite one stays infinite.
double without(double length, double space) {
    return space == infinity ? infinity : space - length;
}

// Highest priority first; within a priority the least flexible first.
std::vector<std::size_t> servingOrder(std::span<const StackChild> children) {
    std::vector<std::size_t> order(children.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        if (children[a].priority != children[b].priority) return children[a].priority > children[b].priority;
        return flexibility(children[a]) < flexibility(children[b]);
    });
    return order;
}

}  // namespace

std::vector<double> shareSpace(std::optional<double> available, std::span<const StackChild> children,
                               FunctionRef<double(std::size_t, std::optional<double>)> choose) {
    std::vector<double> lengths(children.size());
    const auto order = servingOrder(children);
    double left = available.value_or(0);
    for (auto begin = order.begin(); begin != order.end();) {
        const double priority = children[*begin].priority;
        const auto end =
            std::find_if(begin, order.end(), [&](std::size_t child) { return children[child].priority != priority; });
        const double reserved = std::accumulate(
            end, order.end(), 0.0, [&](double sum, std::size_t child) { return sum + children[child].minimum; });

        double groupLeft = without(reserved, left);
        for (auto it = begin; it != end; ++it) {
            const auto sharers = static_cast<double>(end - it);
            const auto offer = available ? std::optional(std::max(groupLeft / sharers, 0.0)) : std::nullopt;
            lengths[*it] = choose(*it, offer);
            groupLeft = without(lengths[*it], groupLeft);
            left = without(lengths[*it], left);
        }
        begin = end;
    }
    return lengths;
}

}  // namespace orvel
