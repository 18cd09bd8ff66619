// One side of a flexible frame: the length that it proposes to its content, and its own length.
#pragma once

#include <algorithm>
#include <optional>

namespace orvel {

struct FlexibleLength {
    std::optional<double> minimum;
    std::optional<double> ideal;
    std::optional<double> maximum;

    std::optional<double> offered(std::optional<double> proposal) const {
        const auto wanted = proposal ? proposal : ideal;
        if (!wanted) return std::nullopt;
        return limited(*wanted);
    }

    double chosen(std::optional<double> proposal, double content) const {
        const double wanted = proposal ? *proposal : ideal.value_or(content);
        if (minimum && maximum) return limited(wanted);
        if (maximum) return std::min(std::max(wanted, content), *maximum);
        if (minimum) return std::max(std::min(wanted, content), *minimum);
        return content;
    }

private:
    double limited(double wanted) const {
        if (maximum) wanted = std::min(wanted, *maximum);
        if (minimum) wanted = std::max(wanted, *minimum);
        return wanted;
    }
};

}  // namespace orvel
