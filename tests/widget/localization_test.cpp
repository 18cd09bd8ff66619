// What hosts tell about the widget is looked up, here in German; the card's own texts are in
// tests/tools/store_to_picture.sh.
#include <gtest/gtest.h>

#include <clocale>

#include "platform/ui/gettext_localizer.h"
#include "platform/ui/language.h"
#include "widget/orvel_widget.h"

namespace orvel {
namespace {

TEST(Localization, FindsTextsInTheCatalogue) {
    std::setlocale(LC_MESSAGES, "C");
    useLanguage("de");
    const GettextLocalizer localizer(ORVEL_TEST_LOCALE);
    const WidgetConfiguration configuration = OrvelWidget().body();
    EXPECT_EQ(localized(configuration.displayName, localizer), "Orvel");
    EXPECT_EQ(localized(configuration.description, localizer),
              "Ein schlichtes Widget, das Sie mit Orvel gestaltet haben.");
    EXPECT_EQ(localizer.lookUp("no such key"), "no such key");
    EXPECT_EQ(localizer.lookUp(""), "") << "not the catalogue's header";
}

}  // namespace
}  // namespace orvel
