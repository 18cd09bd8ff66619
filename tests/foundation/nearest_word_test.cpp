#include "platform/foundation/nearest_word.h"

#include <gtest/gtest.h>

namespace orvel {
namespace {

TEST(NearestWord, ProposesWhatWasProbablyMeant) {
    const struct {
        const char* typed;
        std::vector<std::string_view> words;
        const char* hint;
        const char* why;
    } cases[] = {
        {"metrc", {"metric", "list"}, "did you mean \"metric\"?", "a letter is missing"},
        {"lsit", {"metric", "list"}, "did you mean \"list\"?", "two are swapped, which is one mistake"},
        {"NOTE", {"note"}, "did you mean \"note\"?", "capitals"},
        {"prim", {"trim", "primary"}, "did you mean \"trim\" or \"primary\"?", "a beginning counts as one mistake"},
        {"qote", {"note", "list", "quote"}, "did you mean \"note\" or \"quote\"?", "equally near"},
        {"seconary", {"senary", "secondary"}, "did you mean \"secondary\"?", "a nearer one comes later"},
        {"aa", {"ab", "ac", "ad", "ae"}, "did you mean \"ab\", \"ac\" or \"ad\"?", "three are enough"},
        {"lost", {"metric"}, "", "far from all"},
        {"x", {"a"}, "", "nothing would be left of it"},
        {"", {"a", "note"}, "", "nothing typed"},
    };
    for (const auto& [typed, words, hint, why] : cases) EXPECT_EQ(didYouMean(typed, words), hint) << why;
}

}  // namespace
}  // namespace orvel
