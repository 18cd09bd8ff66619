// Answers the questions of ask.py, one per line: a word and its arguments, separated by tabs. Texts are UTF-8 in
// hexadecimal digits, targets as they are, instants whole Unix seconds.
//
//   assigned TEXT           1 when the text library knows its one character
//   upper TEXT              the upper-case text
//   decomposed TEXT         its canonical decomposition
//   equivalent TEXT TEXT    1 when they are canonically equivalent
//   remaining ZONE INSTANT [TARGET]    a countdown's value and unit, with a tab between
#include <unictype.h>
#include <unistr.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "format/countdown_math.h"
#include "platform/foundation/unicode.h"

using namespace orvel;

namespace {

using Arguments = std::vector<std::string>;

std::string text(const std::string& digits) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    return bytes;
}

std::string digits(const std::string& text) {
    std::string made;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        made += "0123456789abcdef"[byte >> 4];
        made += "0123456789abcdef"[byte & 0x0F];
    }
    return made;
}

bool isAssigned(const std::string& text) {
    ucs4_t character = 0;
    u8_mbtouc(&character, reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    return !uc_is_general_category(character, UC_UNASSIGNED);
}

std::string remaining(const std::string& zone, double instant, const std::optional<std::string>& target) {
    ::setenv("TZ", zone.c_str(), 1);
    const FixedClock clock{Date::fromUnixTime(instant)};
    const Platform& machine = Platform::system();
    const Platform platform{clock, machine.files, machine.accounts, machine.timeZone, machine.identities};
    const auto [value, unit] = CountdownMath::remaining(target, platform);
    return value + "\t" + unit;
}

const std::map<std::string, std::function<std::string(const Arguments&)>> answers{
    {"assigned", [](const Arguments& a) { return isAssigned(text(a.at(0))) ? "1" : "0"; }},
    {"upper", [](const Arguments& a) { return digits(unicode::uppercased(text(a.at(0)))); }},
    {"decomposed", [](const Arguments& a) { return digits(unicode::decomposed(text(a.at(0)))); }},
    {"equivalent",
     [](const Arguments& a) { return unicode::canonicallyEquivalent(text(a.at(0)), text(a.at(1))) ? "1" : "0"; }},
    {"remaining",
     [](const Arguments& a) {
         return remaining(a.at(0), std::stod(a.at(1)), a.size() > 2 ? std::optional(a[2]) : std::nullopt);
     }},
};

}  // namespace

int main() {
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);  // no flush after every answer
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line + "\t");  // an empty last argument counts
        std::string word;
        std::getline(words, word, '\t');
        Arguments arguments;
        for (std::string argument; std::getline(words, argument, '\t');) arguments.push_back(argument);
        std::cout << answers.at(word)(arguments) << '\n';
    }
}
