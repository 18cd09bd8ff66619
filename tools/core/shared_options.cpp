#include "tools/core/shared_options.h"

#include <algorithm>

#include "platform/foundation/iso8601.h"
#include "platform/foundation/nearest_word.h"
#include "platform/foundation/text_list.h"
#include "platform/ui/language.h"

namespace orvel::tools {

void addExample(CLI::App& command, const std::string& line) {
    command.footer("For example: " + line);
}

void addInstantOption(CLI::App& command, Session& session) {
    const auto parse = [&session](const std::string& text) {
        session.at = iso8601::dateTime(text, iso8601::Fraction::allowed);
        if (!session.at)
            throw CLI::ValidationError(
                "--at", '"' + text + "\": a date-time with its zone is wanted, such as 2026-01-31T09:00:00Z");
    };
    command.add_option_function<std::string>("--at", parse, "The moment to show, such as 2026-01-31T09:00:00Z")
        ->type_name("INSTANT");
}

void addLanguageOption(CLI::App& command, Session& session) {
    const auto choose = [&session](const std::string& text) {
        if (!isLanguage(text)) throw CLI::ValidationError("--lang", text + " is no language, such as ja or zh_TW");
        session.language = text;
    };
    command.add_option_function<std::string>("--lang", choose, "The language to draw in (default: the environment's)")
        ->type_name("LANG");
}

CLI::Validator numberWithin(int least, int most) {
    // The parser's own range takes not-a-number for a number in it.
    const auto judge = [least, most](const std::string& text) -> std::string {
        double number = 0;
        if (CLI::detail::lexical_cast(text, number) && number >= least && number <= most) return "";
        return '"' + text + "\": a number from " + std::to_string(least) + " to " + std::to_string(most) + " is wanted";
    };
    return CLI::Validator(judge, "", "");
}

std::string wrongWord(const std::string& word, const std::vector<std::string>& known) {
    return '"' + word + "\": " + alternatives(known) + " is wanted" + didYouMean(word, known);
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
    addChoice(command, "--family", family, families, "small|medium", "The card's size (default: small)");
}

}  // namespace orvel::tools
