#include <gtest/gtest.h>

#include "platform/foundation/iso8601.h"
#include "platform/ui/dump.h"
#include "tests/support/fakes.h"
#include "views/entry_view.h"
#include "views/spec_view.h"

namespace orvel {
namespace {

using Kind = WidgetSpec::Kind;

constexpr const char* accent = "#0A0B0CFF";

std::string dump(const View& view) {
    json::Writer writer;
    write(writer, view);
    return *writer.finish();
}

// A design with every field set, at an instant three days before its target.
struct Design {
    WidgetSpec spec{{.id = "",
                     .title = "straße",
                     .kind = Kind::metric,
                     .accentHex = "#0a0b0c",
                     .symbol = "flag.fill",
                     .primary = "42",
                     .secondary = "sec",
                     .items = std::vector<std::string>{"a", "b"},
                     .progress = 0.375,
                     .targetISO8601 = "2026-01-04T00:00:00Z",
                     .createdAt = Date{}}};

    std::string dumped() const {
        test::FakeMachine machine;
        const FixedClock clock(*iso8601::dateTime("2026-01-01T00:00:00Z"));
        const Platform platform{clock, machine.files, machine.accounts, machine.zone, machine.identities};
        return dump(WidgetSpecView(spec).body(platform));
    }
};

// The expected dumps, piece by piece.
std::string text(const std::string& content, const std::string& size, int weight) {
    return R"({"view":"font","size":)" + size + R"(,"weight":)" + std::to_string(weight) +
           R"(,"content":{"view":"Text","verbatim":")" + content + R"("}})";
}
std::string styled(const std::string& style, const std::string& content) {
    return R"({"view":"foregroundStyle","style":")" + style + R"(","content":)" + content + "}";
}
std::string oneLine(const std::string& content) {
    return R"({"view":"lineLimit","lines":1,"content":)" + content + "}";
}
std::string spacer(const char* minLength) {
    return std::string(R"({"view":"Spacer","minLength":)") + minLength + "}";
}
std::string symbolRow(const std::string& color = accent) {
    return R"({"view":"HStack","alignment":"center","children":[)" +
           styled(color, R"({"view":"Image","systemName":"flag.fill"})") + R"(,{"view":"Spacer"}]})";
}
std::string headline(const std::string& content) {
    return R"({"view":"minimumScaleFactor","factor":0.5,"content":)" +
           oneLine(styled("primary", text(content, "34", 800))) + "}";
}
std::string caption(const std::string& content = "STRASSE") {
    return styled("secondary", text(content, "9.5", 700));
}
std::string square(const char* side, const std::string& content) {
    return std::string(R"({"view":"frame","width":)") + side + R"(,"height":)" + side +
           R"(,"alignment":["center","center"],"content":)" + content + "}";
}
std::string column(const std::string& children) {
    return R"({"view":"frame","maxWidth":"infinity","maxHeight":"infinity","alignment":["leading","top"],"content":)"
           R"({"view":"VStack","alignment":"leading","spacing":0,"children":[)" +
           children + "]}}";
}
std::string valueCard(const std::string& value) {
    return column(symbolRow() + "," + spacer("0") + "," + headline(value) + "," + caption() + "," +
                  oneLine(styled("secondary", text("sec", "11", 400))));
}

TEST(SpecView, ValueLayout) {
    Design design;
    EXPECT_EQ(design.dumped(), valueCard("42"));
    design.spec.kind = Kind::note;
    EXPECT_EQ(design.dumped(), valueCard("42"));
    design.spec.primary = "";
    EXPECT_EQ(design.dumped(), valueCard(""));
    design.spec.primary.reset();
    EXPECT_EQ(design.dumped(), valueCard("—"));

    design.spec.kind = Kind::countdown;
    design.spec.primary = "never shown";
    EXPECT_EQ(design.dumped(), valueCard("3 days"));
    design.spec.targetISO8601 = "2025-01-01";
    EXPECT_EQ(design.dumped(), valueCard("Now"));
    design.spec.targetISO8601.reset();
    EXPECT_EQ(design.dumped(), valueCard("—"));

    design.spec.secondary.reset();
    EXPECT_EQ(design.dumped(), column(symbolRow() + "," + spacer("0") + "," + headline("—") + "," + caption()));
}

TEST(SpecView, ProgressLayout) {
    const struct {
        std::optional<double> progress;
        const char* trim;
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
    };
    for (const auto& c : cases) {
        Design design;
        design.spec.kind = Kind::progress;
        design.spec.progress = c.progress;
        const std::string stroke = R"(,"lineWidth":8,"lineCap":"%","lineJoin":"miter","miterLimit":10})";
        const auto withCap = [&](const char* cap) { return std::string(stroke).replace(stroke.find('%'), 1, cap); };
        const std::string ring =
            R"({"view":"ZStack","alignment":["center","center"],"children":[{"view":"Circle","stroke":"quaternary")" +
            withCap("butt") + R"(,{"view":"rotationEffect","degrees":-90,"anchor":[0.5,0.5],"content":)" +
            R"({"view":"Circle","trim":{"from":0,"to":)" + c.trim + R"(},"stroke":")" + accent + "\"" +
            withCap("round") + R"(},{"view":"font","size":15,"weight":800,"content":)" +
            R"({"view":"Text","key":"%lld%%","arguments":[)" + c.percent + "]}}]}";
        EXPECT_EQ(design.dumped(), column(symbolRow() + "," + spacer("0") + "," + square("62", ring) + "," +
                                          spacer("0") + "," + caption()));
    }
}

TEST(SpecView, ListLayout) {
    const auto row = [](int position, const std::string& entry) {
        return R"({"view":"id","id":)" + std::to_string(position) +
               R"(,"content":{"view":"HStack","alignment":"center","spacing":8,"children":[)" +
               square("5", std::string(R"({"view":"Circle","fill":")") + accent + "\"}") + "," +
               oneLine(text(entry, "12", 500)) + "]}},";
    };
    const auto card = [](const std::string& rows) {
        return column(caption() + "," + spacer("8") + "," + rows + spacer("0"));
    };
    Design design;
    design.spec.kind = Kind::list;
    EXPECT_EQ(design.dumped(), card(row(0, "a") + row(1, "b")));
    design.spec.items = {"1", "2", "3", "4", "5", "6", "7"};
    EXPECT_EQ(design.dumped(), card(row(0, "1") + row(1, "2") + row(2, "3") + row(3, "4") + row(4, "5")));
    design.spec.items->clear();
    EXPECT_EQ(design.dumped(), card(""));
    design.spec.items.reset();
    EXPECT_EQ(design.dumped(), card(""));
}

TEST(SpecView, AnAccentThatIsNoColourIsThePlatforms) {
    Design design;
    design.spec.accentHex = "no colour";
    design.spec.secondary.reset();
    EXPECT_EQ(design.dumped(),
              column(symbolRow("#0A84FFFF") + "," + spacer("0") + "," + headline("42") + "," + caption()));
}

TEST(EntryView, ShowsTheDesignOrTheInvitation) {
    Design design;
    design.spec.title = design.spec.symbol = design.spec.accentHex = "";
    design.spec.primary = "";
    EXPECT_EQ(OrvelWidgetEntryView(design.spec).body(), WidgetSpecView(design.spec).body()) << "however empty it is";
    EXPECT_EQ(dump(OrvelWidgetEntryView(std::nullopt).body()),
              R"({"view":"VStack","alignment":"center","spacing":4,"children":[)" +
                  styled("secondary", R"({"view":"Image","systemName":"square.grid.2x2"})") + "," +
                  styled("secondary", R"({"view":"font","size":10,"weight":500,"content":)"
                                      R"({"view":"Text","key":"Design one in Orvel"}})") +
                  "]}");
}

}  // namespace
}  // namespace orvel
