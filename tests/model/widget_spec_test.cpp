#include "model/widget_spec.h"

#include <gtest/gtest.h>

#include <cmath>

#include "model/widget_fields.h"
#include "model/widget_spec_json.h"
#include "platform/foundation/text_list.h"
#include "tests/support/fakes.h"

namespace orvel {
namespace {

using Kind = WidgetSpec::Kind;
using Reason = DecodingFailure::Reason;

WidgetSpec full() {
    return WidgetSpec({.id = "A",
                       .title = "T",
                       .kind = Kind::list,
                       .accentHex = "#fff",
                       .symbol = "flag",
                       .primary = "p",
                       .secondary = "s",
                       .items = std::vector<std::string>{"i", "j"},
                       .progress = 0.5,
                       .targetISO8601 = "2025-12-31",
                       .createdAt = Date{1.5}});
}

TEST(WidgetSpec, ConstructorFillsInAndNormalises) {
    test::FakeMachine machine;
    const WidgetSpec spec({.title = " t ", .kind = Kind::note}, machine.platform);
    EXPECT_EQ(WidgetSpecJSON::encode(spec), R"({"id":"ID-1","title":" t ","kind":"note","accentHex":"#3D2A9A",)"
                                            R"("symbol":"square.grid.2x2","createdAt":1000})");
    for (const std::size_t count : {0u, 5u, 6u})
        EXPECT_EQ(WidgetSpec({.title = "", .kind = Kind::list, .items = std::vector<std::string>(count)}).items->size(),
                  std::min<std::size_t>(count, 5));

    const std::pair<double, double> cases[] = {{0.375, 0.375}, {1.7, 1}, {-0.2, 0}, {NAN, 0}, {INFINITY, 1}};
    for (const auto& [given, stored] : cases)
        EXPECT_EQ(WidgetSpec({.title = "", .kind = Kind::progress, .progress = given}).progress, stored) << given;
}

TEST(WidgetSpec, EveryFieldIsSetInTheFullRecordOfTheseTests) {
    const WidgetSpec spec = full();
    forEachWidgetField([&](const auto& row) {
        if constexpr (requires { row.in(spec).has_value(); }) {
            EXPECT_TRUE(row.in(spec).has_value()) << row.name;
        }
    });
}

TEST(WidgetSpec, EqualityComparesEveryField) {
    const std::function<void(WidgetSpec&)> changes[] = {[](auto& s) { s.id = "B"; },
                                                        [](auto& s) { s.title = "U"; },
                                                        [](auto& s) { s.kind = Kind::note; },
                                                        [](auto& s) { s.accentHex = "#FFF"; },
                                                        [](auto& s) { s.symbol = ""; },
                                                        [](auto& s) { s.primary.reset(); },
                                                        [](auto& s) { s.secondary = ""; },
                                                        [](auto& s) { s.items->clear(); },
                                                        [](auto& s) { s.progress = NAN; },
                                                        [](auto& s) { s.progress.reset(); },
                                                        [](auto& s) { s.targetISO8601.reset(); },
                                                        [](auto& s) { s.createdAt = Date{2}; }};
    WidgetSpec other = full();
    for (const auto& change : changes) {
        EXPECT_EQ(other = full(), full());
        change(other);
        EXPECT_NE(full(), other) << "change " << &change - changes;
    }
    WidgetSpec absent = full();
    absent.primary.reset();
    other = absent;
    other.primary = "";
    EXPECT_NE(absent, other);
    WidgetSpec composed = full();
    composed.items = {"é"};
    other = composed;
    other.items = {"e\u0301"};
    EXPECT_EQ(composed, other);
}

TEST(WidgetSpecJSON, WritesMembersInOrderAndOnlyThosePresent) {
    EXPECT_EQ(WidgetSpecJSON::encode(full()),
              R"({"id":"A","title":"T","kind":"list","accentHex":"#fff","symbol":"flag","primary":"p","secondary":"s",)"
              R"("items":["i","j"],"progress":0.5,"targetISO8601":"2025-12-31","createdAt":1.5})");
    const std::string one = *WidgetSpecJSON::encode(full());
    EXPECT_EQ(WidgetSpecJSON::encodeList({full(), full()}), "[" + one + "," + one + "]");
    EXPECT_EQ(WidgetSpecJSON::encodeList({}), "[]");
}

TEST(WidgetSpecJSON, RefusesWhatJsonCantHold) {
    WidgetSpec infinite = full();
    infinite.progress = INFINITY;
    WidgetSpec illFormed = full();
    illFormed.items = {"ok", "\xFF"};
    for (const WidgetSpec& spec : {infinite, illFormed}) {
        EXPECT_EQ(WidgetSpecJSON::encode(spec), std::nullopt);
        EXPECT_EQ(WidgetSpecJSON::encodeList({full(), spec}), std::nullopt);
    }
}

// A valid record with one member replaced, or left out for an empty value.
std::string record(const std::string& key, const std::string& value) {
    const std::pair<const char*, const char*> members[] = {{"id", R"("A")"},        {"title", R"("T")"},
                                                           {"kind", R"("metric")"}, {"accentHex", R"("#fff")"},
                                                           {"symbol", R"("flag")"}, {"createdAt", "0"}};
    std::string json = value.empty() ? "" : ",\"" + key + "\":" + value;
    for (const auto& [name, standard] : members)
        if (name != key) json += std::string(",\"") + name + "\":" + standard;
    return "{" + json.substr(1) + "}";
}

TEST(WidgetSpecJSON, ReadsEachMemberByItsRule) {
    using Members = std::vector<std::string>;  // each "key=value"
    const std::pair<std::optional<Reason>, Members> cases[] = {
        {std::nullopt,
         {R"(kind="note")", "createdAt=123456789012345678901234567890", "primary=null", "items=[]", "items=null",
          "progress=1", "progress=null", R"(future={"x":[null,1e3]})", "Title=1"}},
        {Reason::keyNotFound, {"id=", "title=", "kind=", "accentHex=", "symbol=", "createdAt="}},
        {Reason::valueNotFound, {"id=null", "kind=null", "createdAt=null", R"(items=["a",null])"}},
        {Reason::typeMismatch,
         {"id=1", R"(title=["T"])", "kind=0", R"(createdAt="0")", "primary=42", "secondary=true", R"(items=["a",1])",
          R"(items="a")", R"(progress="0.5")", "progress=true", "targetISO8601={}"}},
        {Reason::unknownKind, {R"(kind="Metric")", R"(kind="metric ")", R"(kind="")", R"(kind="gauge")"}},
        {Reason::malformed, {"progress=1e400", R"(future={"x":[null,1e]})"}},
    };
    for (const auto& [failure, members] : cases)
        for (const std::string& member : members) {
            const std::string key = member.substr(0, member.find('='));
            const auto spec = WidgetSpecJSON::decode(record(key, member.substr(key.size() + 1)));
            ASSERT_EQ(static_cast<bool>(spec), !failure) << member;
            if (spec) continue;
            EXPECT_EQ(spec.failure().reason, *failure) << member;
            EXPECT_EQ(spec.failure().key, *failure == Reason::malformed ? "" : key) << member;
        }
    EXPECT_EQ(WidgetSpecJSON::decode("[" + record("id", "\"A\"") + "]").failure().reason, Reason::typeMismatch);
    EXPECT_EQ(WidgetSpecJSON::decode(record("id", "\"first\",\"id\":\"second\""))->id, "first");
}

TEST(WidgetSpecJSON, KeepsWhatTheFileHolds) {
    const auto spec = WidgetSpecJSON::decode(
        R"({"progress":1.7,"items":["1","2","3","4","5","6","7"],"primary":null,"secondary":"",)"
        R"("title":"a\u0000b/","id":"x","kind":"list","accentHex":" #FFF","symbol":"","createdAt":0})");
    ASSERT_TRUE(spec);
    EXPECT_EQ(WidgetSpecJSON::encode(*spec),
              R"({"id":"x","title":"a\u0000b\/","kind":"list","accentHex":" #FFF","symbol":"","secondary":"",)"
              R"("items":["1","2","3","4","5","6","7"],"progress":1.7,"createdAt":0})");
}

TEST(WidgetSpecJSON, AListFailsAsAWholeAndNamesElementAndKey) {
    const std::string good = record("id", "\"A\"");
    EXPECT_EQ(WidgetSpecJSON::decodeList("[" + good + "," + good + "]")->size(), 2u);
    EXPECT_TRUE(WidgetSpecJSON::decodeList(" [ ] ")->empty());

    const struct {
        std::string text;
        std::string message;
    } cases[] = {
        {"[" + good + "," + record("createdAt", "") + "," + good + "]", "design @2: \"createdAt\" is missing"},
        {"[" + good + "," + good + "," + record("kind", "\"LIST\"") + "]",
         "design @3: \"kind\" must be " + alternatives(kindNames()) + "; did you mean \"list\"?"},
        {"[null]", "design @1: it is null; a design, which is an object {…}, is wanted"},
        {"[" + good + ",7]", "design @2: it is a number; a design, which is an object {…}, is wanted"},
        {good, "this is an object; a list of designs, which is an array […], is wanted"},
        {"null", "this is null; a list of designs, which is an array […], is wanted"},
        {R"([{"createdAt":"x","kind":1,"title":null,"id":"A"}])", "design @1: \"title\" is null; a string is wanted"},
    };
    for (const auto& c : cases) {
        const auto list = WidgetSpecJSON::decodeList(c.text);
        ASSERT_FALSE(list) << c.text;
        EXPECT_EQ(list.failure().message(), c.message);
    }
    for (const std::string& text : {"[" + good + "]x", std::string()})
        EXPECT_EQ(WidgetSpecJSON::decodeList(text).failure().reason, Reason::malformed) << text;
}

}  // namespace
}  // namespace orvel
