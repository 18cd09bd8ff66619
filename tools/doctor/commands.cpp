#include "tools/doctor/commands.h"

#include <memory>

#include "platform/language/sentence.h"
#include "tools/core/shared_options.h"
#include "tools/doctor/doctor.h"

namespace orvel::tools {

void addDoctorCommand(CLI::App& app, Session& session) {
    const auto form = std::make_shared<DoctorForm>(DoctorForm::text);
    CLI::App& command =
        *app.add_subcommand("doctor", sentence("Check what the cards need, and say how to get what is missing"));
    command.add_flag_callback(
        "--json", [form] { *form = DoctorForm::json; }, sentence("As JSON"));
    runs(command, session, form, doctor);
}

}  // namespace orvel::tools
