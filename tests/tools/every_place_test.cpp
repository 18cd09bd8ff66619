// Whoever adds a kind, a field or a command is led here to the places that no compiler checks.
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "model/widget_fields.h"
#include "platform/foundation/text_list.h"
#include "tools/app.h"
#include "tools/documentation/command_outline.h"

namespace orvel::tools {
namespace {

using Names = std::vector<std::string>;

Names kinds() {
    constexpr auto names = kindNames();
    return {names.begin(), names.end()};
}

template <class IsWanted>
Names fields(IsWanted isWanted) {
    Names names;
    forEachWidgetField([&](const auto& row) {
        if (isWanted(row.field)) names.emplace_back(row.name);
    });
    return names;
}

bool isShown(WidgetField field) {
    return std::ranges::any_of(allWidgetKinds, [&](WidgetKind kind) { return shows(kind, field); });
}

Names commands() {
    std::istringstream in;
    std::ostringstream out;
    Session session{{in, out, out}};
    const auto app = makeApp(session);
    Names names;
    for (const CommandOutline& command : outline(*app).subcommands) names.push_back(joined(command.path, " "));
    return names;
}

std::string contents(const std::string& file) {
    std::ifstream stream(ORVEL_SOURCES "/" + file, std::ios::binary);
    EXPECT_TRUE(stream) << file;
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(EveryPlace, NamesEveryKindFieldAndCommand) {
    const struct {
        const char* file;
        const char* before;
        Names names;
        const char* after;
    } places[] = {
        {"designer/page/kinds.js", "\n  ", kinds(), ": {"},
        {"tests/views/views_test.cpp", "Kind::", kinds(), ""},
        {"docs/store.md", "| `", fields([](WidgetField) { return true; }), "` |"},
        {"designer/page/index.html", "data-field=\"", fields(isShown), "\""},
        {"docs/command.md", "`", commands(), "`"},
    };
    for (const auto& [file, before, names, after] : places) {
        ASSERT_FALSE(names.empty());
        const std::string text = contents(file);
        for (const std::string& name : names)
            EXPECT_NE(text.find(before + name + after), std::string::npos) << file << " lacks " << name;
    }
}

}  // namespace
}  // namespace orvel::tools
