#include "designer/sharing/command_lines.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "authoring/field_texts.h"
#include "authoring/new_design.h"
#include "model/widget_fields.h"
#include "model/widget_spec_json.h"

namespace orvel::designer {
namespace {

// As assignments say them; none for an absent field.
std::vector<std::string> texts(const std::string& text) {
    return {text};
}
std::vector<std::string> texts(WidgetKind kind) {
    return {std::string(rawValue(kind))};
}
std::vector<std::string> texts(double number) {
    char digits[32];
    return {{digits, std::to_chars(digits, std::end(digits), number).ptr}};
}
std::vector<std::string> texts(const std::vector<std::string>& rows) {
    return rows;
}
std::vector<std::string> texts(Date) {
    return {};
}
template <class Value>
std::vector<std::string> texts(const std::optional<Value>& value) {
    return value ? texts(*value) : std::vector<std::string>();
}

// All but its identity, and what a new design has anyway.
std::vector<Assignment> assignments(const WidgetSpec& spec) {
    static const WidgetSpec::Fields standard{.title = "", .kind = {}};
    std::vector<Assignment> all;
    forEachWidgetField([&](const auto& row) {
        if (row.field == WidgetField::id) return;
        if (row.field == WidgetField::accentHex && spec.accentHex == standard.accentHex) return;
        if (row.field == WidgetField::symbol && spec.symbol == standard.symbol) return;
        for (std::string& text : texts(row.in(spec)))
            all.push_back({std::string(typedName(row.field)), std::move(text)});
    });
    return all;
}

std::string option(const Assignment& assignment) {
    const char* const separator = assignment.value.empty() ? " " : "=";
    return " --" + assignment.field + separator + shellWord(assignment.value);
}

// What terminals take as a key, what the command's parser takes for a list, and more than the system passes on.
bool isPlain(const std::string& text) {
    constexpr std::size_t longest = 50'000;
    const bool isControlled =
        std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; });
    return !isControlled && text.size() <= longest && !(text.starts_with('[') && text.ends_with(']'));
}

bool saysAll(const std::vector<Assignment>& assignments, const WidgetSpec& spec, const Platform& platform) {
    if (!std::ranges::all_of(assignments, isPlain, &Assignment::value)) return false;
    WidgetSpec::Fields fields{.title = "", .kind = {}};
    if (!assign(assignments, fields, platform)) return false;
    WidgetSpec made = makeDesign(std::move(fields), platform).spec;
    made.id = spec.id;
    made.createdAt = spec.createdAt;
    return made == spec;
}

// Without the id. Its texts have no control characters as such.
std::string record(WidgetSpec spec) {
    constexpr std::string_view emptyId = R"({"id":"",)";
    spec.id.clear();
    const auto json = WidgetSpecJSON::encode(spec);
    return json ? '{' + json->substr(emptyId.size()) : "{}";
}

}  // namespace

std::string shellWord(std::string_view text) {
    const auto isSafe = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
               std::string_view("_-.,/:+@%").find(c) != std::string_view::npos;
    };
    if (!text.empty() && std::ranges::all_of(text, isSafe)) return std::string(text);
    std::string word = "'";
    for (const char c : text) word += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return word + "'";
}

std::string addLine(const WidgetSpec& spec, const Platform& platform) {
    const auto fields = assignments(spec);
    if (!saysAll(fields, spec, platform)) return "printf %s " + shellWord(record(spec)) + " | orvel add --json -";
    std::string line = "orvel add";
    for (const Assignment& field : fields) line += option(field);
    return line;
}

UpdateLines updateLines(const WidgetSpec& spec) {
    const WidgetField main = mainField(spec.kind);
    const std::string news = std::string(typedName(main)) + "=\"$(command)\"";
    UpdateLines lines{.set = "orvel set " + shellWord(spec.id) + ' ' + news,
                      .add = "orvel add --keep-place" + option({"id", spec.id})};
    for (const Assignment& field : assignments(spec)) {
        const bool isIdentity =
            field.field == typedName(WidgetField::kind) || field.field == typedName(WidgetField::title);
        if (isIdentity && field.field != typedName(main)) lines.add += option(field);
    }
    lines.add += " --" + news;
    return lines;
}

}  // namespace orvel::designer
