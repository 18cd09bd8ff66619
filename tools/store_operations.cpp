#include "tools/store_operations.h"

#include <algorithm>
#include <set>

#include "model/store_files.h"
#include "model/widget_store.h"
#include "platform/foundation/unicode.h"
#include "tools/design_input.h"
#include "tools/design_warnings.h"
#include "tools/designs.h"
#include "tools/terminal.h"
#include "tools/words.h"

namespace orvel::tools {
namespace {

void warnAbout(const WidgetSpec& spec, Console& console) {
    const Symbols symbols;
    for (const std::string& line : warnings(spec, symbols)) console.err << "orvel: warning: " << line << '\n';
}

Outcome<WidgetSpec> fromOptions(const NewDesign& design, const Platform& platform, Console& console) {
    const auto kind = kindFromRawValue(design.kind);
    if (!kind) return Failure{"--kind is metric, progress, list, note or countdown", wrongUsage};
    WidgetSpec::Fields fields{.id = design.id, .title = design.title, .kind = *kind};
    if (design.accent) fields.accentHex = *design.accent;
    if (design.symbol) fields.symbol = *design.symbol;
    fields.primary = design.primary;
    fields.secondary = design.secondary;
    if (!design.items.empty()) fields.items = design.items;
    if (design.progress) {
        const auto progress = progressNumber(*design.progress);
        if (!progress) return progress.failure();
        fields.progress = *progress;
    }
    if (design.target) {
        auto target = targetText(*design.target, platform);
        if (!target) return target.failure();
        fields.targetISO8601 = *std::move(target);
    }
    return constructed(std::move(fields), platform, console);
}

Outcome<Done> addToStore(const WidgetSpec& spec, const Platform& platform, Console& console) {
    auto designs = openDesigns(platform, console);
    if (!designs) return designs.failure();
    const auto saved = saveDesigns(WidgetStore::adding(spec, std::move(designs->specs)), platform);
    if (!saved) return saved.failure();
    console.out << printable(spec.id) << '\n';
    return Done{};
}

// Finds one design and saves what `change` makes of the list.
template <class Operation>
Outcome<Done> changeOne(const std::string& reference, const Platform& platform, Console& console, Operation operation) {
    auto designs = openDesigns(platform, console);
    if (!designs) return designs.failure();
    const auto index = findOne(designs->specs, reference);
    if (!index) return index.failure();
    const Outcome<Done> changed = operation(designs->specs, *index);
    if (!changed) return changed.failure();
    return saveDesigns(designs->specs, platform);
}

void printTable(const std::vector<WidgetSpec>& specs, const Platform& platform, Console& console) {
    std::vector<std::vector<std::string>> rows{{"", "ID", "KIND", "TITLE", "HEADLINE"}};
    for (std::size_t i = 0; i < specs.size(); ++i)
        rows.push_back({"@" + std::to_string(i + 1), printable(specs[i].id), std::string(rawValue(specs[i].kind)),
                        printable(specs[i].title), printable(headlineWords(specs[i], platform))});
    std::vector<std::size_t> widths(rows[0].size(), 0);
    for (const auto& row : rows)
        for (std::size_t column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths[column], unicode::columns(row[column]));
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t column = 0; column < row.size(); ++column) line += padded(row[column], widths[column] + 2);
        console.out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
    }
}

}  // namespace

Outcome<Done> add(const NewDesign& design, const Platform& platform, Console& console) {
    const auto spec =
        design.json ? readRecord(*design.json, platform, console) : fromOptions(design, platform, console);
    if (!spec) return spec.failure();
    warnAbout(*spec, console);
    return addToStore(*spec, platform, console);
}

Outcome<Done> set(const Change& change, const Platform& platform, Console& console) {
    return changeOne(change.reference, platform, console,
                     [&](std::vector<WidgetSpec>& specs, std::size_t index) -> Outcome<Done> {
                         WidgetSpec& spec = specs[index];
                         for (const std::string& field : change.unset)
                             if (const auto done = unset(field, spec); !done) return done.failure();
                         if (const auto done = assign(change.assignments, spec, platform); !done) return done.failure();
                         warnAbout(spec, console);
                         return Done{};
                     });
}

Outcome<Done> front(const std::string& reference, const Platform& platform, Console& console) {
    return changeOne(reference, platform, console,
                     [](std::vector<WidgetSpec>& specs, std::size_t index) -> Outcome<Done> {
                         const auto chosen = specs.begin() + static_cast<std::ptrdiff_t>(index);
                         std::rotate(specs.begin(), chosen, chosen + 1);
                         return Done{};
                     });
}

Outcome<Done> remove(const std::vector<std::string>& references, const Platform& platform, Console& console) {
    auto designs = openDesigns(platform, console);
    if (!designs) return designs.failure();
    std::set<std::size_t> chosen;
    for (const std::string& reference : references) {
        const auto found = findAll(designs->specs, reference);
        if (!found) return found.failure();
        chosen.insert(found->begin(), found->end());
    }
    std::vector<WidgetSpec> kept;
    for (std::size_t i = 0; i < designs->specs.size(); ++i)
        if (!chosen.contains(i)) kept.push_back(std::move(designs->specs[i]));
    return saveDesigns(kept, platform);
}

Outcome<Done> list(ListForm form, const Platform& platform, Console& console) {
    const auto specs = readDesigns(platform);
    if (!specs) return specs.failure();
    if (form == ListForm::table && !specs->empty()) printTable(*specs, platform, console);
    if (form == ListForm::ids)
        for (const WidgetSpec& spec : *specs) console.out << printable(spec.id) << '\n';
    if (form == ListForm::json) {
        const auto json = WidgetSpecJSON::encodeList(*specs);
        if (!json) return Failure{"the designs can't be written as JSON"};
        console.out << *json << '\n';
    }
    return Done{};
}

Outcome<Done> showPending(bool json, const Platform& platform, Console& console) {
    const auto spec = StoreFiles::readPending(platform);
    if (!spec && !spec.failure().isMissing()) return Failure{spec.failure().message()};
    if (!spec && !json) return Failure{"no design is pending"};
    if (json)
        console.out << (spec ? WidgetSpecJSON::encode(*spec).value_or("null") : "null") << '\n';
    else
        console.out << words(*spec, platform) << '\n';
    return Done{};
}

Outcome<Done> setPending(const std::string& file, const Platform& platform, Console& console) {
    const auto spec = readRecord(file, platform, console);
    if (!spec) return spec.failure();
    warnAbout(*spec, console);
    const auto written = StoreFiles::writePending(*spec, platform);
    if (!written) return Failure{written.failure().message()};
    return Done{};
}

Outcome<Done> clearPending(const Platform& platform) {
    const auto removed = StoreFiles::removePending(platform);
    if (!removed && !removed.failure().isMissing()) return Failure{removed.failure().message()};
    return Done{};
}

Outcome<Done> acceptPending(const Platform& platform, Console& console) {
    const auto spec = StoreFiles::readPending(platform);
    if (!spec) return Failure{spec.failure().isMissing() ? "no design is pending" : spec.failure().message()};
    const auto added = addToStore(*spec, platform, console);
    if (!added) return added.failure();
    return clearPending(platform);
}

}  // namespace orvel::tools
