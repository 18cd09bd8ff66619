// Answers the questions of ask.py, one per line, with a countdown's value and unit. A question is a zone, an instant in
// whole Unix seconds and perhaps a target, an answer two words; there are tabs between all of them.
#include <cstdlib>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>

#include "format/countdown_math.h"

using namespace orvel;

int main() {
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);  // no flush after every answer
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line + "\t");  // an empty target counts
        std::string zone, instant, target;
        std::getline(words, zone, '\t');
        std::getline(words, instant, '\t');
        const bool hasTarget = static_cast<bool>(std::getline(words, target, '\t'));
        ::setenv("TZ", zone.c_str(), 1);
        const FixedClock clock{Date::fromUnixTime(std::stod(instant))};
        const auto [value, unit] =
            CountdownMath::remaining(hasTarget ? std::optional(target) : std::nullopt, Platform::system().with(clock));
        std::cout << value << '\t' << unit << '\n';
    }
}
