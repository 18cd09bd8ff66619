#include <gtest/gtest.h>

#include <cmath>

#include "model/widget_fields.h"
#include "platform/foundation/iso8601.h"
#include "platform/ui/inspection.h"
#include "tests/support/fakes.h"
#include "views/entry_view.h"

namespace orvel {
namespace {

using Kind = WidgetSpec::Kind;

// Three days before the target of the design below.
std::string dumped(const WidgetSpec& spec) {
    test::FakeMachine machine;
    const FixedClock clock(*iso8601::dateTime("2026-01-01T00:00:00Z"));
    const Platform platform{clock, machine.files, machine.accounts, machine.zone, machine.identities};
    json::Writer writer;
    write(writer, OrvelWidgetEntryView(spec).body(platform));
    return *writer.finish();
}

WidgetSpec everyField(Kind kind) {
    return WidgetSpec({.id = "",
                       .title = "straße",
                       .kind = kind,
                       .accentHex = "#0a0b0c",
                       .symbol = "flag.fill",
                       .primary = "42",
                       .secondary = "sec",
                       .items = std::vector<std::string>{"a", "b"},
                       .progress = 0.375,
                       .targetISO8601 = "2026-01-04T00:00:00Z",
                       .createdAt = Date{}});
}

// A dump that is written over several lines here, with texts in the place of its marks.
std::string filled(std::string dump, const std::vector<std::pair<std::string, std::string>>& texts) {
    for (const auto& [mark, text] : texts) dump.replace(dump.find(mark), mark.size(), text);
    for (auto end = dump.find('\n'); end != dump.npos; end = dump.find('\n', end))
        dump.erase(end, dump.find_first_not_of(" \n", end) - end);
    return dump;
}

const std::string column =
    R"({"view":"frame","maxWidth":"infinity","maxHeight":"infinity","alignment":["leading","top"],
    "content":{"view":"VStack","alignment":"leading","spacing":0,"children":[CHILDREN]}})";
const std::string symbolRow = R"({"view":"HStack","alignment":"center","children":[
    {"view":"foregroundStyle","style":"#0A0B0CFF","content":{"view":"Image","systemName":"flag.fill"}},
    {"view":"Spacer"}]},
    {"view":"Spacer","minLength":0},
    )";
const std::string caption = R"({"view":"foregroundStyle","style":"secondary","content":
    {"view":"font","size":9.5,"weight":700,"content":{"view":"Text","verbatim":"STRASSE"}}})";
const std::string headline = R"({"view":"minimumScaleFactor","factor":0.5,"content":
    {"view":"lineLimit","lines":1,"content":
    {"view":"foregroundStyle","style":"primary","content":
    {"view":"font","size":34,"weight":800,"content":{"view":"Text","verbatim":"VALUE"}}}}},
    )";
const std::string secondary = R"(,
    {"view":"lineLimit","lines":1,"content":
    {"view":"foregroundStyle","style":"secondary","content":
    {"view":"font","size":11,"weight":400,"content":{"view":"Text","verbatim":"sec"}}}})";

void change(std::string& field) {
    field += "0";
}

void change(std::vector<std::string>& field) {
    field.emplace_back("added");
}

void change(double& field) {
    field += 0.125;
}

void change(Date& field) {
    field = field.addingTimeInterval(1);
}

template <class Value>
void change(std::optional<Value>& field) {
    change(field ? *field : field.emplace());
}

TEST(SpecView, ShowsTheFieldsOfItsKindAndNoOthers) {
    for (const Kind kind : allWidgetKinds) {
        WidgetSpec spec = everyField(kind);
        spec.accentHex = "#0a0";  // with another digit it is no colour
        const std::string before = dumped(spec);
        forEachWidgetField([&](const auto& row) {
            WidgetSpec changed = spec;
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(row.in(changed))>, Kind>)
                return;
            else
                change(row.in(changed));
            EXPECT_EQ(dumped(changed) != before, shows(kind, row.field)) << rawValue(kind) << ' ' << row.name;
        });
    }
}

TEST(SpecView, ValueLayout) {
    const struct {
        Kind kind;
        std::optional<std::string> primary;
        std::optional<std::string> target;
        const char* value;
    } cases[] = {
        {Kind::metric, "42", {}, "42"},
        {Kind::note, "42", {}, "42"},
        {Kind::note, "", {}, ""},
        {Kind::note, {}, {}, "—"},
        {Kind::countdown, "never shown", "2026-01-04T00:00:00Z", "3 days"},
        {Kind::countdown, "never shown", "2025-01-01", "Now"},
        {Kind::countdown, "never shown", {}, "—"},
    };
    for (const auto& c : cases) {
        WidgetSpec spec = everyField(c.kind);
        spec.primary = c.primary;
        spec.targetISO8601 = c.target;
        EXPECT_EQ(dumped(spec),
                  filled(column, {{"CHILDREN", symbolRow + headline + caption + secondary}, {"VALUE", c.value}}));
        spec.secondary.reset();
        EXPECT_EQ(dumped(spec), filled(column, {{"CHILDREN", symbolRow + headline + caption}, {"VALUE", c.value}}));
    }
    WidgetSpec spec = everyField(Kind::metric);
    spec.accentHex = "no colour";
    EXPECT_NE(dumped(spec).find("#0A84FFFF"), std::string::npos) << "the platform's accent";
}

TEST(SpecView, ProgressLayout) {
    const std::string ring = R"({"view":"frame","width":62,"height":62,"alignment":["center","center"],"content":
        {"view":"ZStack","alignment":["center","center"],"children":[
        {"view":"Circle","stroke":"quaternary","lineWidth":8,"lineCap":"butt","lineJoin":"miter","miterLimit":10},
        {"view":"rotationEffect","degrees":-90,"anchor":[0.5,0.5],"content":
        {"view":"Circle","trim":{"from":0,"to":END},"stroke":"#0A0B0CFF",
        "lineWidth":8,"lineCap":"round","lineJoin":"miter","miterLimit":10}},
        {"view":"font","size":15,"weight":800,"content":{"view":"Text","key":"%lld%%","arguments":[PERCENT]}}]}},
        {"view":"Spacer","minLength":0},
        )";
    const struct {
        std::optional<double> progress;
        const char* end;
        const char* percent;
    } cases[] = {
        {0.375, "0.375", "38"},
        {0.125, "0.125", "13"},
        {-0.125, "-0.125", "-13"},
        {1.7, "1.7", "170"},
        {std::nullopt, "0", "0"},
        {1e300, "1e+300", "9223372036854775807"},
        {-1e300, "-1e+300", "-9223372036854775808"},
        {infinity, "\"infinity\"", "9223372036854775807"},
        {NAN, "\"nan\"", "0"},
    };
    for (const auto& c : cases) {
        WidgetSpec spec = everyField(Kind::progress);
        spec.progress = c.progress;
        EXPECT_EQ(dumped(spec),
                  filled(column, {{"CHILDREN", symbolRow + ring + caption}, {"END", c.end}, {"PERCENT", c.percent}}));
    }
}

TEST(SpecView, ListLayout) {
    const std::string row = R"({"view":"id","id":POSITION,"content":
        {"view":"HStack","alignment":"center","spacing":8,"children":[
        {"view":"frame","width":5,"height":5,"alignment":["center","center"],"content":
        {"view":"Circle","fill":"#0A0B0CFF"}},
        {"view":"lineLimit","lines":1,"content":
        {"view":"font","size":12,"weight":500,"content":{"view":"Text","verbatim":"ITEM"}}}]}},
        )";
    using Texts = std::vector<std::string>;
    const std::pair<std::optional<Texts>, Texts> cases[] = {
        {Texts{"a", "b"}, {"a", "b"}},
        {Texts{"1", "2", "3", "4", "5", "6", "7"}, {"1", "2", "3", "4", "5"}},
        {Texts{}, {}},
        {std::nullopt, {}},
    };
    for (const auto& [items, shown] : cases) {
        WidgetSpec spec = everyField(Kind::list);
        spec.items = items;
        std::string rows;
        for (const auto& item : shown)
            rows += filled(row, {{"POSITION", std::to_string(&item - shown.data())}, {"ITEM", item}});
        EXPECT_EQ(dumped(spec), filled(column, {{"CHILDREN", caption + R"(,{"view":"Spacer","minLength":8},)" + rows +
                                                                 R"({"view":"Spacer","minLength":0})"}}));
    }
}

TEST(EntryView, InvitesToDesignOne) {
    json::Writer writer;
    write(writer, OrvelWidgetEntryView(std::nullopt).body());
    EXPECT_EQ(writer.finish(), filled(R"({"view":"VStack","alignment":"center","spacing":4,"children":[
        {"view":"foregroundStyle","style":"secondary","content":{"view":"Image","systemName":"square.grid.2x2"}},
        {"view":"foregroundStyle","style":"secondary","content":
        {"view":"font","size":10,"weight":500,"content":{"view":"Text","key":"Design one in Orvel"}}}]})",
                                      {}));
}

}  // namespace
}  // namespace orvel
