#include "platform/symbols/symbol_name.h"

#include <algorithm>

namespace orvel::symbol_name {

bool isValid(std::string_view text) {
    constexpr std::size_t longest = 80;
    const auto belongs = [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '.'; };
    if (text.empty() || text.size() > longest || text.starts_with("logo.")) return false;
    return std::ranges::all_of(text, belongs);
}

std::optional<std::string_view> without(std::string_view ending, std::string_view name) {
    if (!name.ends_with(ending)) return std::nullopt;
    return name.substr(0, name.size() - ending.size());
}

std::string spelled(std::string_view text) {
    std::string result;
    for (char c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        const bool separates = c == '.' || c == '_' || c == '-' || c == ' ';
        if (!separates)
            result += c;
        else if (!result.empty() && result.back() != '.')
            result += '.';
    }
    if (result.ends_with('.')) result.pop_back();
    return result;
}

std::vector<std::string_view> words(std::string_view name) {
    std::vector<std::string_view> result;
    while (!name.empty()) {
        const std::string_view word = name.substr(0, name.find('.'));
        if (!word.empty()) result.push_back(word);
        name.remove_prefix(std::min(word.size() + 1, name.size()));
    }
    return result;
}

std::string replaced(std::string_view text, char from, char to) {
    std::string result(text);
    std::ranges::replace(result, from, to);
    return result;
}

}  // namespace orvel::symbol_name
