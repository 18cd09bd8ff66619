#include "model/widget_spec.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "model/widget_spec_json.h"
#include "tests/support/fakes.h"

namespace orvel {
namespace {

using namespace std::string_literals;
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
    EXPECT_EQ(spec.id, "ID-1");
    EXPECT_EQ(spec.title, " t ");
    EXPECT_EQ(spec.accentHex, "#3D2A9A");
    EXPECT_EQ(spec.symbol, "square.grid.2x2");
    EXPECT_EQ(spec.createdAt, Date{1000});
    EXPECT_FALSE(spec.primary || spec.secondary || spec.items || spec.progress || spec.targetISO8601);

    const auto itemsKept = [](std::size_t count) {
        return WidgetSpec({.title = "", .kind = Kind::list, .items = std::vector<std::string>(count, "x")})
            .items->size();
    };
    EXPECT_EQ(itemsKept(0), 0u);
    EXPECT_EQ(itemsKept(5), 5u);
    EXPECT_EQ(itemsKept(6), 5u);

    const struct {
        double given;
        double stored;
    } cases[] = {{0, 0}, {0.375, 0.375}, {1, 1}, {1.7, 1}, {-0.2, 0}, {NAN, 0}, {INFINITY, 1}, {-INFINITY, 0}};
    for (const auto& c : cases)
        EXPECT_EQ(WidgetSpec({.title = "", .kind = Kind::progress, .progress = c.given}).progress, c.stored) << c.given;
}

TEST(WidgetSpec, WritesAreStoredUnchanged) {
    WidgetSpec spec = full();
    spec.progress = 1.7;
    spec.items = std::vector<std::string>(9, "x");
    EXPECT_EQ(spec.progress, 1.7);
    EXPECT_EQ(spec.items->size(), 9u);
}

TEST(WidgetSpec, EqualityComparesEveryField) {
    EXPECT_EQ(full(), full());
    const std::function<void(WidgetSpec&)> changes[] = {
        [](auto& s) { s.id = "B"; },
        [](auto& s) { s.title = "U"; },
        [](auto& s) { s.kind = Kind::note; },
        [](auto& s) { s.accentHex = "#FFF"; },
        [](auto& s) { s.symbol = ""; },
        [](auto& s) { s.primary.reset(); },
        [](auto& s) { s.secondary = ""; },
        [](auto& s) { s.items->clear(); },
        [](auto& s) { s.items.reset(); },
        [](auto& s) { s.progress = NAN; },
        [](auto& s) { s.targetISO8601.reset(); },
        [](auto& s) { s.createdAt = Date{2}; },
    };
    for (const auto& change : changes) {
        WidgetSpec other = full();
        change(other);
        EXPECT_NE(full(), other) << "change " << &change - changes;
    }
    WidgetSpec composed = full();
    WidgetSpec decomposed = full();
    composed.items = std::vector<std::string>{"é"};
    decomposed.items = std::vector<std::string>{"e\u0301"};
    EXPECT_EQ(composed, decomposed);
}

TEST(WidgetSpec, KindsHaveTheirNamesInOrder) {
    std::string names;
    for (const Kind kind : WidgetSpec::allCases) {
        EXPECT_EQ(kindFromRawValue(rawValue(kind)), kind);
        names += std::string(rawValue(kind)) + " ";
    }
    EXPECT_EQ(names, "metric progress list note countdown ");
    for (const char* text : {"Metric", "metric ", "", "gauge"}) EXPECT_EQ(kindFromRawValue(text), std::nullopt);
}

TEST(WidgetSpecJSON, WritesMembersInOrderAndOnlyThosePresent) {
    EXPECT_EQ(WidgetSpecJSON::encode(full()),
              R"({"id":"A","title":"T","kind":"list","accentHex":"#fff","symbol":"flag","primary":"p","secondary":"s",)"
              R"("items":["i","j"],"progress":0.5,"targetISO8601":"2025-12-31","createdAt":1.5})");
    const WidgetSpec least({.id = "", .title = "a/b\n", .kind = Kind::metric, .createdAt = Date{-978307200}});
    const std::string json = R"({"id":"","title":"a\/b\n","kind":"metric","accentHex":"#3D2A9A",)"
                             R"("symbol":"square.grid.2x2","createdAt":-978307200})";
    EXPECT_EQ(WidgetSpecJSON::encode(least), json);
    EXPECT_EQ(WidgetSpecJSON::encodeList({least, least}), "[" + json + "," + json + "]");
    EXPECT_EQ(WidgetSpecJSON::encodeList({}), "[]");
}

TEST(WidgetSpecJSON, RefusesWhatJsonCantHold) {
    for (const auto& change : {std::function<void(WidgetSpec&)>([](auto& s) { s.progress = INFINITY; }),
                               std::function<void(WidgetSpec&)>([](auto& s) { s.progress = NAN; }),
                               std::function<void(WidgetSpec&)>([](auto& s) {
                                   s.items = {"ok", "\xFF"};
                               })}) {
        WidgetSpec spec = full();
        change(spec);
        EXPECT_EQ(WidgetSpecJSON::encode(spec), std::nullopt);
        EXPECT_EQ(WidgetSpecJSON::encodeList({full(), spec}), std::nullopt);
    }
}

// A valid record with one member replaced, or left out for an empty value.
std::string record(const std::string& key, const std::string& value) {
    const std::pair<const char*, const char*> members[] = {{"id", "\"A\""},        {"title", "\"T\""},
                                                           {"kind", "\"metric\""}, {"accentHex", "\"#fff\""},
                                                           {"symbol", "\"flag\""}, {"createdAt", "0"}};
    std::string json = value.empty() ? "" : ",\"" + key + "\":" + value;
    for (const auto& [name, standard] : members)
        if (name != key) json += std::string(",\"") + name + "\":" + standard;
    return "{" + json.substr(1) + "}";
}

TEST(WidgetSpecJSON, ReadsEachMemberByItsRule) {
    const struct {
        const char* key;
        const char* value;
        std::optional<Reason> failure;
    } cases[] = {
        {"id", "", Reason::keyNotFound},
        {"id", "null", Reason::valueNotFound},
        {"id", "1", Reason::typeMismatch},
        {"title", "", Reason::keyNotFound},
        {"title", "[\"T\"]", Reason::typeMismatch},
        {"kind", "", Reason::keyNotFound},
        {"kind", "null", Reason::valueNotFound},
        {"kind", "0", Reason::typeMismatch},
        {"kind", "\"Metric\"", Reason::unknownKind},
        {"kind", "\"countdown\"", std::nullopt},
        {"accentHex", "", Reason::keyNotFound},
        {"symbol", "", Reason::keyNotFound},
        {"createdAt", "", Reason::keyNotFound},
        {"createdAt", "\"0\"", Reason::typeMismatch},
        {"createdAt", "null", Reason::valueNotFound},
        {"createdAt", "123456789012345678901234567890", std::nullopt},
        {"primary", "null", std::nullopt},
        {"primary", "42", Reason::typeMismatch},
        {"secondary", "true", Reason::typeMismatch},
        {"items", "[]", std::nullopt},
        {"items", "null", std::nullopt},
        {"items", "[\"a\",null]", Reason::valueNotFound},
        {"items", "[\"a\",1]", Reason::typeMismatch},
        {"items", "\"a\"", Reason::typeMismatch},
        {"progress", "1", std::nullopt},
        {"progress", "\"0.5\"", Reason::typeMismatch},
        {"progress", "true", Reason::typeMismatch},
        {"progress", "1e400", Reason::malformed},
        {"targetISO8601", "{}", Reason::typeMismatch},
        {"future", "{\"x\":[null,1e3]}", std::nullopt},
        {"future", "{\"x\":[null,1e]}", Reason::malformed},
        {"Title", "1", std::nullopt},
    };
    for (const auto& c : cases) {
        const auto spec = WidgetSpecJSON::decode(record(c.key, c.value));
        ASSERT_EQ(static_cast<bool>(spec), !c.failure) << c.key << " " << c.value;
        if (spec) continue;
        EXPECT_EQ(spec.failure().reason, *c.failure) << c.key << " " << c.value;
        EXPECT_EQ(spec.failure().key, *c.failure == Reason::malformed ? "" : c.key) << c.value;
    }
    EXPECT_EQ(WidgetSpecJSON::decode("[" + record("id", "\"A\"") + "]").failure().reason, Reason::typeMismatch);
    EXPECT_EQ(WidgetSpecJSON::decode(record("id", "\"first\",\"id\":\"second\""))->id, "first");
}

TEST(WidgetSpecJSON, KeepsWhatTheFileHolds) {
    const auto spec = WidgetSpecJSON::decode(
        R"({"progress":1.7,"items":["1","2","3","4","5","6","7"],"primary":null,"secondary":"",)"
        R"("title":"a\u0000b","id":"x","kind":"list","accentHex":" #FFF","symbol":"","createdAt":0})");
    ASSERT_TRUE(spec);
    EXPECT_EQ(spec->progress, 1.7);
    EXPECT_EQ(spec->items->size(), 7u);
    EXPECT_EQ(spec->primary, std::nullopt);
    EXPECT_EQ(spec->secondary, "");
    EXPECT_EQ(spec->title, "a\0b"s);
    EXPECT_EQ(WidgetSpecJSON::encode(*spec)->find("primary"), std::string::npos);
}

TEST(WidgetSpecJSON, AListFailsAsAWholeAndNamesElementAndKey) {
    const std::string good = record("id", "\"A\"");
    EXPECT_EQ(WidgetSpecJSON::decodeList("[" + good + "," + good + "]")->size(), 2u);
    EXPECT_TRUE(WidgetSpecJSON::decodeList(" [ ] ")->empty());

    const struct {
        std::string text;
        const char* message;
    } cases[] = {
        {"[" + good + "," + record("createdAt", "") + "," + good + "]", "design @2: \"createdAt\" is missing"},
        {"[" + good + "," + good + "," + record("kind", "\"LIST\"") + "]",
         "design @3: \"kind\" is none of the five kinds"},
        {"[null]", "design @1: it is null"},
        {"[" + good + ",7]", "design @2: it has the wrong JSON type"},
        {good, "the text has the wrong JSON type"},
    };
    for (const auto& c : cases) {
        const auto list = WidgetSpecJSON::decodeList(c.text);
        ASSERT_FALSE(list) << c.text;
        EXPECT_EQ(list.failure().message(), c.message);
    }
    EXPECT_EQ(WidgetSpecJSON::decodeList("[" + good + "]x").failure().reason, Reason::malformed);
    EXPECT_EQ(WidgetSpecJSON::decodeList("").failure().reason, Reason::malformed);
}

TEST(WidgetSpecJSON, RandomDesignsSurviveTheRoundTrip) {
    std::mt19937_64 random(20260101);
    const auto chance = [&] { return random() % 2 == 0; };
    const auto text = [&] {
        static const char* const pieces[] = {"a", "\"", "\\", "/", "\n", "é", "牛", "🥑", "خ", "\u0301", " "};
        std::string result(chance() ? 1 : 0, '\0');
        for (auto n = random() % 12; n > 0; --n) result += pieces[random() % std::size(pieces)];
        return result;
    };
    std::vector<WidgetSpec> specs;
    for (int i = 0; i < 500; ++i) {
        WidgetSpec spec = full();
        spec.id = text();
        spec.title = text();
        spec.kind = WidgetSpec::allCases[random() % 5];
        spec.primary = chance() ? std::optional(text()) : std::nullopt;
        spec.items = chance() ? std::optional(std::vector<std::string>(random() % 8, text())) : std::nullopt;
        spec.progress = chance() ? std::optional(std::ldexp(static_cast<double>(random()), -70)) : std::nullopt;
        spec.createdAt = {std::ldexp(static_cast<double>(random()), -33)};
        specs.push_back(std::move(spec));
    }
    const auto json = WidgetSpecJSON::encodeList(specs);
    ASSERT_TRUE(json);
    const auto back = WidgetSpecJSON::decodeList(*json);
    ASSERT_TRUE(back) << back.failure().message();
    EXPECT_EQ(*back, specs);
    EXPECT_EQ(WidgetSpecJSON::encodeList(*back), json);
}

}  // namespace
}  // namespace orvel
