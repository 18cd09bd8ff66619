// Sentences for people. They stand in English where they are said; a catalogue of gettext's has them in other
// languages. A value's place is a number in braces: "{0} is kept as {1}". What isn't for people stays out: names of
// commands, options and fields, and what programs read.
#pragma once

#include <concepts>
#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

namespace orvel {

/// From now on, sentences are in the language of the process's message locale, if DIRECTORY/LANGUAGE/LC_MESSAGES has a
/// catalogue for it. Until then they are in English. Call it while the process has one thread.
void translateSentences(const std::filesystem::path& directory);

/// From now on, sentences are in English: in texts that programs read, and when another language was chosen for what is
/// drawn.
void keepSentencesEnglish();

/// The pattern with "{0}" replaced by the first value, and so on. Other braces stay as they are.
std::string filled(std::string_view pattern, std::initializer_list<std::string> values);

/// Marks a sentence for the catalogues that is said later, with `sentence`.
template <class Text>
constexpr Text toTranslate(Text english) {
    return english;
}

namespace sentences {

std::string translated(std::string_view english);
std::string translated(std::string_view one, std::string_view several, std::size_t count);

inline std::string text(std::string_view value) {
    return std::string(value);
}
inline std::string text(std::integral auto value) {
    return std::to_string(value);
}

}  // namespace sentences

/// The sentence in the person's language, with its values.
template <class... Values>
std::string sentence(std::string_view english, const Values&... values) {
    return filled(sentences::translated(english), {sentences::text(values)...});
}

/// The same for a sentence about a number of things, in the form that the language wants for that number: {0} is the
/// number, {1} the first value.
template <class... Values>
std::string counted(std::string_view one, std::string_view several, std::size_t count, const Values&... values) {
    return filled(sentences::translated(one, several, count), {std::to_string(count), sentences::text(values)...});
}

/// "what failed; what to do about it": two sentences as one line; the second may be empty.
std::string clauses(std::string_view first, std::string_view second);

}  // namespace orvel
