#include "platform/symbols/nearest_name.h"

#include <algorithm>

#include "platform/symbols/symbol_name.h"

namespace orvel {
namespace {

// The edit distance between two sequences, by replacing, inserting and deleting.
template <class Sequence, class Replacing>
std::size_t editDistance(const Sequence& a, const Sequence& b, std::size_t insertion, Replacing replacing) {
    std::vector<std::size_t> costs(b.size() + 1);
    for (std::size_t j = 0; j < costs.size(); ++j) costs[j] = j * insertion;
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = costs[0];
        costs[0] += insertion;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t above = costs[j + 1];
            costs[j + 1] = std::min({above + insertion, costs[j] + insertion, diagonal + replacing(a[i], b[j])});
            diagonal = above;
        }
    }
    return costs.back();
}

std::size_t letterDistance(std::string_view a, std::string_view b) {
    return editDistance(a, b, 1, [](char x, char y) { return x == y ? 0u : 1u; });
}

using Words = std::vector<std::string_view>;

std::size_t wordDistance(const Words& a, const Words& b) {
    constexpr std::size_t insertion = 3;
    constexpr std::size_t shortest = 3;  // letters that tell which word it is
    return editDistance(a, b, insertion, [](std::string_view x, std::string_view y) -> std::size_t {
        if (x == y) return 0;
        const bool cutShort = std::min(x.size(), y.size()) >= shortest && (x.starts_with(y) || y.starts_with(x));
        return cutShort ? 1 : letterDistance(x, y);
    });
}

}  // namespace

std::optional<std::string> nearestName(std::string_view name, const std::vector<std::string>& known) {
    constexpr std::size_t longest = 64;
    if (name.size() > longest) return std::nullopt;
    const std::string spelled = symbol_name::spelled(name);
    const Words spelledWords = symbol_name::words(spelled);
    const std::string* nearest = nullptr;
    std::size_t least = spelled.size() / 3 + 1;
    for (const std::string& candidate : known) {
        const std::size_t distance =
            std::min(letterDistance(spelled, candidate), wordDistance(spelledWords, symbol_name::words(candidate)));
        if (distance < least) {
            least = distance;
            nearest = &candidate;
        }
    }
    if (!nearest) return std::nullopt;
    return *nearest;
}

}  // namespace orvel
