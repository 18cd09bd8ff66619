#include <gtest/gtest.h>

#include "designer/sharing/command_lines.h"
#include "designer/sharing/pasted_design.h"
#include "model/widget_spec_json.h"
#include "platform/foundation/text_list.h"
#include "tests/support/fakes.h"

namespace orvel::designer {
namespace {

using test::FakeMachine;

class SharedDesign : public testing::Test {
protected:
    WidgetSpec spec(WidgetSpec::Fields fields) {
        fields.id = "A'1";
        return WidgetSpec(std::move(fields), machine.platform);
    }
    FakeMachine machine;
};

TEST_F(SharedDesign, SaysHowAScriptUpdatesItsMainField) {
    const struct {
        WidgetKind kind;
        const char* field;
    } rows[] = {{WidgetKind::metric, "primary"},
                {WidgetKind::progress, "progress"},
                {WidgetKind::list, "item"},
                {WidgetKind::note, "primary"},
                {WidgetKind::countdown, "target"}};
    for (const auto& [kind, field] : rows) {
        const auto [set, add] = updateLines(spec({.title = "It's", .kind = kind}));
        EXPECT_EQ(set, std::string("orvel set 'A'\\''1' ") + field + "=\"$(command)\"");
        EXPECT_EQ(add, "orvel add --keep-place --id='A'\\''1' --title='It'\\''s' --kind=" +
                           std::string(rawValue(kind)) + " --" + field + "=\"$(command)\"");
    }
}

TEST_F(SharedDesign, IsPastedAsARecordOrAListOfOne) {
    const struct {
        const char* json;
        std::string expected;  ///< the title, or the failure and its field
        const char* why;
    } rows[] = {
        {R"({"title":"T","kind":"note"})", "T", "a record"},
        {" \n[ {\"title\":\"[T]\",\"kind\":\"note\"} ]\n", "[T]", "a list of one"},
        {R"([])", "a list of 0 designs; one is wanted (list)", "none"},
        {R"([{"title":"T","kind":"note"},{}])", "a list of 2 designs; one is wanted (list)", "which?"},
        {"[\n{\"title\":1,\"kind\":\"note\"}]", "2:10: \"title\" is a number; a string is wanted (title)", "where"},
        {R"({"title":"T","kind":"photo"})", "1:21: \"kind\" must be " + alternatives(kindNames()) + " (kind)",
         "a wrong value"},
        {"", "", "nothing"},
        {"[1]", "", "a list of something else"},
        {"[", "", "no JSON"},
    };
    for (const auto& [json, expected, why] : rows) {
        const auto pasted = pastedDesign(json, machine.platform);
        const std::string seen =
            pasted ? pasted->spec.title : pasted.failure().reason + " (" + pasted.failure().field + ")";
        if (!expected.empty())
            EXPECT_EQ(seen, expected) << why;
        else
            EXPECT_FALSE(pasted) << why;
    }
}

}  // namespace
}  // namespace orvel::designer
