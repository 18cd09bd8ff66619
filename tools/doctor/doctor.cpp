#include "tools/doctor/doctor.h"

#include <algorithm>

#include "platform/foundation/json_writer.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"
#include "tools/core/input_output.h"
#include "tools/core/terminal.h"
#include "tools/doctor/checks.h"

namespace orvel::tools {
namespace {

// As wide as the longest name, and a gap.
std::size_t nameColumns() {
    std::size_t columns = 0;
    for (const Check& check : checks()) columns = std::max(columns, unicode::columns(sentence(check.name)));
    return columns + 2;
}

void print(const Check& check, const Finding& finding, std::size_t columns, Console& console) {
    const char* const mark = finding.health == Health::good ? "  " : finding.health == Health::note ? "- " : "! ";
    console.out << mark << padded(sentence(check.name), columns) << unicode::onOneLine(finding.found) << '\n';
    if (!finding.advice.empty())
        console.out << std::string(columns + 2, ' ') << "-> " << unicode::onOneLine(finding.advice) << '\n';
}

void write(json::Writer& writer, const Check& check, const Finding& finding) {
    writer.beginObject().key("check").string(check.name).key("health").string(name(finding.health));
    writer.key("found").string(unicode::onOneLine(finding.found)).key("advice");
    if (finding.advice.empty())
        writer.null();
    else
        writer.string(finding.advice);
    writer.endObject();
}

}  // namespace

Outcome<Done> doctor(DoctorForm form, const Platform& platform, Console& console) {
    if (form == DoctorForm::json) keepSentencesEnglish();
    const std::size_t columns = nameColumns();
    std::size_t problems = 0;
    json::Writer writer;
    writer.beginArray();
    for (const Check& check : checks()) {
        const Finding finding = check.look(platform);
        if (finding.health == Health::problem) ++problems;
        if (form == DoctorForm::json)
            write(writer, check, finding);
        else
            print(check, finding, columns, console);
    }
    const auto json = writer.endArray().finish();
    if (form == DoctorForm::json)
        if (const auto printed = printJson(json, toTranslate("a finding"), console); !printed) return printed.failure();
    if (problems == 0) return Done{};
    return Failure{counted("there is a problem", "there are {0} problems", problems)};
}

}  // namespace orvel::tools
