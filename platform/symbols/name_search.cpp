#include "platform/symbols/name_search.h"

#include <algorithm>

#include "platform/symbols/symbol_name.h"

namespace orvel {
namespace {

using Words = std::vector<std::string_view>;

// How well a name matches the searched text, the best first.
enum class Fit { exact, words, synonym, part };

struct Rank {
    Fit fit;
    std::size_t place;  ///< among those that fit as well
    auto operator<=>(const Rank&) const = default;
};

using MaybeRank = std::optional<Rank>;

std::optional<std::string_view> singular(std::string_view word) {
    constexpr std::size_t shortest = 4;
    return word.size() >= shortest ? symbol_name::without("s", word) : std::nullopt;
}

bool isSameWord(std::string_view a, std::string_view b) {
    return a == b || singular(a) == b || singular(b) == a;
}

Words split(std::string_view text) {
    Words result;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        result.push_back(word);
        text.remove_prefix(std::min(word.size() + 1, text.size()));
    }
    return result;
}

Words synonymsOf(std::string_view text, const NameTable& synonyms) {
    auto found = synonyms.find(text);
    if (const auto one = singular(text); !found && one) found = synonyms.find(*one);
    return split(found.value_or(""));
}

// Where the words stand in the name, one after the other.
std::optional<std::size_t> position(const Words& words, const Words& name) {
    const auto found = std::search(name.begin(), name.end(), words.begin(), words.end(), isSameWord);
    if (words.empty() || found == name.end()) return std::nullopt;
    return static_cast<std::size_t>(found - name.begin());
}

struct Searched {
    std::string_view text;  ///< one or more words
    Words words;
    std::vector<Words> synonyms;
};

Searched searched(std::string_view text, const NameTable& synonyms) {
    Searched result{text, symbol_name::words(text), {}};
    for (const std::string_view synonym : synonymsOf(text, synonyms))
        result.synonyms.push_back(symbol_name::words(synonym));
    return result;
}

MaybeRank rank(const std::string& name, const Words& nameWords, const Searched& searched) {
    if (name == searched.text) return Rank{Fit::exact, 0};
    if (const auto at = position(searched.words, nameWords)) return Rank{Fit::words, *at > 0 ? 1u : 0u};
    // The synonyms themselves come first, then what begins with one of them, then what only has it.
    MaybeRank best;
    for (std::size_t i = 0; i < searched.synonyms.size(); ++i)
        if (const auto at = position(searched.synonyms[i], nameWords)) {
            const bool isItself = nameWords.size() == searched.synonyms[i].size();
            const std::size_t place = i + searched.synonyms.size() * (isItself ? 0 : *at == 0 ? 1 : 2);
            if (!best || place < best->place) best = {Fit::synonym, place};
        }
    if (best) return best;
    if (name.find(searched.text) != name.npos) return Rank{Fit::part, 0};
    return std::nullopt;
}

// Of several words, each by itself: the worst counts.
MaybeRank rank(const std::string& name, const Words& nameWords, const std::vector<Searched>& words) {
    MaybeRank worst;
    for (const Searched& word : words) {
        const MaybeRank one = rank(name, nameWords, word);
        if (!one) return std::nullopt;
        if (!worst || *worst < *one) worst = one;
    }
    if (words.size() > 1 && worst && worst->fit == Fit::part) worst->place = 1;  // the text as it stands is better
    return worst;
}

}  // namespace

std::vector<std::string> searchNames(std::string_view words, const std::vector<std::string>& known,
                                     const NameTable& synonyms) {
    constexpr std::size_t longest = 80;
    if (words.size() > longest) return {};
    const std::string text = symbol_name::spelled(words);
    if (text.empty()) return known;
    const Searched whole = searched(text, synonyms);
    std::vector<Searched> single;
    for (const std::string_view word : whole.words) single.push_back(searched(word, synonyms));

    struct Found {
        Rank rank;
        std::size_t wordCount;
        const std::string* name;
    };
    std::vector<Found> found;
    for (const std::string& name : known) {
        const Words nameWords = symbol_name::words(name);
        const MaybeRank asWhole = rank(name, nameWords, whole), byWord = rank(name, nameWords, single);
        const MaybeRank better = asWhole && (!byWord || *asWhole <= *byWord) ? asWhole : byWord;
        if (better) found.push_back({*better, nameWords.size(), &name});
    }
    std::ranges::stable_sort(found, {}, [](const Found& one) { return std::pair(one.rank, one.wordCount); });
    std::vector<std::string> result;
    for (const Found& one : found) result.push_back(*one.name);
    return result;
}

std::optional<std::string> synonymousName(std::string_view text, const std::vector<std::string>& known,
                                          const NameTable& synonyms) {
    constexpr std::size_t longest = 64;
    if (text.size() > longest) return std::nullopt;
    const std::string spelled = symbol_name::spelled(text);
    for (std::size_t end = spelled.size(); end != spelled.npos && end > 0; end = spelled.rfind('.', end - 1))
        for (const std::string_view synonym : synonymsOf(spelled.substr(0, end), synonyms)) {
            const std::string name = std::string(synonym) + spelled.substr(end);
            if (std::ranges::binary_search(known, name)) return name;
        }
    return std::nullopt;
}

}  // namespace orvel
