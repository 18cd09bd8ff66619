#include "tools/shared_options.h"

#include "platform/foundation/iso8601.h"

namespace orvel::tools {

void addInstantOption(CLI::App& command, Session& session) {
    const auto parse = [&session](const std::string& text) {
        session.at = iso8601::dateTime(text, iso8601::Fraction::allowed);
        if (!session.at) throw CLI::ValidationError("--at", text + " is no RFC 3339 date-time");
    };
    command.add_option_function<std::string>("--at", parse, "The moment to show, such as 2026-01-31T09:00:00Z")
        ->type_name("INSTANT");
}

CLI::Validator numberWithin(int least, int most) {
    // The parser's own range takes not-a-number for a number in it.
    const auto judge = [least, most](const std::string& text) -> std::string {
        double number = 0;
        if (CLI::detail::lexical_cast(text, number) && number >= least && number <= most) return "";
        return text + " is not from " + std::to_string(least) + " to " + std::to_string(most);
    };
    return CLI::Validator(judge, "", "");
}

void addFamilyOption(CLI::App& command, WidgetFamily& family) {
    static const std::map<std::string, WidgetFamily> families{{"small", WidgetFamily::systemSmall},
                                                              {"medium", WidgetFamily::systemMedium}};
    addChoice(command, "--family", family, families, "small|medium", "The card's size (default: small)");
}

}  // namespace orvel::tools
