#include "tools/store/list.h"

#include <string>
#include <vector>

#include "authoring/designs.h"
#include "model/widget_spec_json.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"
#include "platform/ui/gettext_localizer.h"
#include "tools/core/input_output.h"
#include "tools/core/terminal.h"
#include "views/card_text.h"

namespace orvel::tools {
namespace {

void printTable(const std::vector<WidgetSpec>& specs, const Platform& platform, Console& console) {
    const GettextLocalizer localizer(GettextLocalizer::installedDirectory());
    std::vector<std::vector<std::string>> rows{
        {"", sentence("ID"), sentence("KIND"), sentence("TITLE"), sentence("HEADLINE")}};
    for (std::size_t i = 0; i < specs.size(); ++i)
        rows.push_back({(i == 0 ? "* @" : "  @") + std::to_string(i + 1), unicode::onOneLine(specs[i].id),
                        std::string(rawValue(specs[i].kind)), unicode::onOneLine(specs[i].title),
                        headlineText(specs[i], localizer, platform)});
    printColumns(rows, console);
}

}  // namespace

Outcome<Done> list(ListForm form, const Platform& platform, Console& console) {
    const auto specs = readDesigns(platform);
    if (!specs) return specs.failure();
    if (form == ListForm::table && specs->empty()) console.out << sentence(noDesignsYet) << '\n';
    if (form == ListForm::table && !specs->empty()) printTable(*specs, platform, console);
    if (form == ListForm::ids)
        for (const WidgetSpec& spec : *specs) console.out << unicode::onOneLine(spec.id) << '\n';
    if (form == ListForm::json) return printJson(WidgetSpecJSON::encodeList(*specs), toTranslate("a design"), console);
    return Done{};
}

}  // namespace orvel::tools
