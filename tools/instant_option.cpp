#include "tools/instant_option.h"

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

}  // namespace orvel::tools
