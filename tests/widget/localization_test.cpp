// What hosts tell about the widget is looked up, with the one catalogue of the tests, tests/locale/eo.po; the card's
// own texts are in tests/tools/store_to_picture.sh.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

#include "platform/ui/gettext_localizer.h"
#include "widget/orvel_widget.h"

namespace orvel {
namespace {

TEST(Localization, FindsTextsInTheCatalogue) {
    ASSERT_TRUE(std::setlocale(LC_MESSAGES, "C.UTF-8"));
    ::setenv("LANGUAGE", "eo", 1);
    const GettextLocalizer localizer(ORVEL_TEST_LOCALE);
    const WidgetConfiguration configuration = OrvelWidget().body();
    EXPECT_EQ(localized(configuration.displayName, localizer), "Orvelo");
    EXPECT_EQ(localized(configuration.description, localizer), "Eta karto, kiun vi desegnis per Orvel.");
    EXPECT_EQ(localizer.lookUp("no such key"), "no such key");
    EXPECT_EQ(localizer.lookUp(""), "") << "not the catalogue's header";
}

}  // namespace
}  // namespace orvel
