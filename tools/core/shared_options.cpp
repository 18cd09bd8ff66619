#include "tools/core/shared_options.h"

#include <algorithm>

#include "platform/foundation/iso8601.h"
#include "platform/foundation/nearest_word.h"
#include "platform/foundation/text_list.h"
#include "platform/language/sentence.h"
#include "platform/ui/language.h"

namespace orvel::tools {

void addExample(CLI::App& command, const std::string& line) {
    command.footer(sentence("For example: {0}", line));
}

void addInstantOption(CLI::App& command, Session& session) {
    const auto parse = [&session](const std::string& text) {
        session.at = iso8601::dateTime(text, iso8601::Fraction::allowed);
        if (!session.at)
            throw CLI::ValidationError(
                "--at", sentence("\"{0}\": a date-time with its zone is wanted, such as 2026-01-31T09:00:00Z", text));
    };
    command
        .add_option_function<std::string>("--at", parse, sentence("The moment to show, such as 2026-01-31T09:00:00Z"))
        ->type_name("INSTANT");
}

void addLanguageOption(CLI::App& command, Session& session) {
    const auto choose = [&session](const std::string& text) {
        if (!isLanguage(text))
            throw CLI::ValidationError("--lang", sentence("{0} is no language, such as ja or zh_TW", text));
        session.language = text;
    };
    command
        .add_option_function<std::string>("--lang", choose,
                                          sentence("The language to draw in (default: the environment's)"))
        ->type_name("LANG");
}

CLI::Validator numberWithin(int least, int most) {
    // The parser's own range takes not-a-number for a number in it.
    const auto judge = [least, most](const std::string& text) -> std::string {
        double number = 0;
        if (CLI::detail::lexical_cast(text, number) && number >= least && number <= most) return "";
        return sentence("\"{0}\": a number from {1} to {2} is wanted", text, least, most);
    };
    return CLI::Validator(judge, "", "");
}

std::string wrongWord(const std::string& word, const std::vector<std::string>& known) {
    return clauses(sentence("\"{0}\": {1} is wanted", word, alternatives(known)), didYouMean(word, known));
}

CLI::Validator oneWordOf(std::vector<std::string> known) {
    const auto judge = [known = std::move(known)](const std::string& word) -> std::string {
        return std::find(known.begin(), known.end(), word) == known.end() ? wrongWord(word, known) : "";
    };
    return CLI::Validator(judge, "", "");
}

void addFamilyOption(CLI::App& command, WidgetFamily& family) {
    static const std::map<std::string, WidgetFamily> families{{"small", WidgetFamily::systemSmall},
                                                              {"medium", WidgetFamily::systemMedium}};
    addChoice(command, "--family", family, families, "small|medium", sentence("The card's size (default: small)"));
}

}  // namespace orvel::tools
