#include "designer/feeds/command_text.h"

#include <utility>

#include "designer/sharing/command_lines.h"

namespace orvel::designer {
namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Whether "\" before it takes its meaning, between double quotes.
bool isSpecialInQuotes(char c) {
    return c == '"' || c == '\\' || c == '$' || c == '`';
}

}  // namespace

std::optional<std::vector<std::string>> commandWords(std::string_view text) {
    std::vector<std::string> words;
    std::optional<std::string> word;
    char quote = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool hasNext = i + 1 < text.size();
        if (quote == 0 && isBlank(c)) {
            if (word) words.push_back(*std::exchange(word, std::nullopt));
            continue;
        }
        if (!word) word.emplace();
        if (quote == 0 && (c == '\'' || c == '"'))
            quote = c;
        else if (quote != 0 && c == quote)
            quote = 0;
        else if (c == '\\' && hasNext && (quote == 0 || (quote == '"' && isSpecialInQuotes(text[i + 1]))))
            *word += text[++i];
        else
            *word += c;
    }
    if (quote != 0) return std::nullopt;
    if (word) words.push_back(*std::move(word));
    return words;
}

std::string commandText(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + shellWord(word);
    return text;
}

}  // namespace orvel::designer
