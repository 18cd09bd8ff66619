// Every text of the widget that has a translation shows it, with the one catalogue of the tests, tests/locale/eo.po.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

#include "platform/host/card.h"
#include "platform/ui/gettext_localizer.h"
#include "tests/support/fakes.h"
#include "tests/support/fixed_text_engine.h"
#include "widget/orvel_widget.h"

namespace orvel {
namespace {

TEST(Localization, FindsEveryTextInTheCatalogue) {
    ASSERT_TRUE(std::setlocale(LC_MESSAGES, "C.UTF-8"));
    ::setenv("LANGUAGE", "eo", 1);
    const GettextLocalizer localizer(ORVEL_TEST_LOCALE);
    const WidgetConfiguration configuration = OrvelWidget().body();
    EXPECT_EQ(localized(configuration.displayName, localizer), "Orvelo");
    EXPECT_EQ(localized(configuration.description, localizer), "Eta karto, kiun vi desegnis per Orvel.");

    test::FixedTextEngine engine;
    const auto firstText = [&](const WidgetEntry& entry) {
        const Scene scene = cardScene(OrvelWidget::content(entry), WidgetFamily::systemMedium, {engine, localizer},
                                      [](std::string_view) { return false; });
        for (const Mark& mark : scene.marks)
            if (const auto* text = std::get_if<TextMark>(&mark.content)) return text->text;
        return std::string();
    };
    EXPECT_EQ(firstText({Date{}, std::nullopt}), "Desegnu ion per Orvel ŝĝ");
    const WidgetSpec progress({.title = "", .kind = WidgetSpec::Kind::progress, .progress = 0.375});
    EXPECT_EQ(firstText({Date{}, progress}), "38 centonoj");

    EXPECT_EQ(localizer.lookUp("no such key"), "no such key");
    EXPECT_EQ(localizer.lookUp(""), "") << "not the catalogue's header";
}

}  // namespace
}  // namespace orvel
