// The feeds that Orvel brings along: scripts in templates/, a row for each. The test of the templates demands a case
// and a line of the documentation for every row.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "feeds/feed.h"
#include "platform/language/sentence.h"

namespace orvel {

struct FeedTemplate {
    std::string_view name;       ///< also the script's
    std::string_view help;       ///< what it shows
    std::string_view arguments;  ///< required arguments, and optional ones in brackets
    std::string_view needs;      ///< programs that a bare system may lack
    std::string_view every;
    std::string_view first;  ///< the new design's fields, with semicolons between
    bool whenOnline = false;
    bool pausesOnBattery = false;
};

inline constexpr std::array feedTemplates{
    FeedTemplate{"disk", toTranslate("How full a disk is"), "[FOLDER]", "", "5m",
                 "kind=progress;title=Disk;symbol=internaldrive"},
    FeedTemplate{"memory", toTranslate("How much memory is in use"), "", "", "30s",
                 "kind=progress;title=Memory;symbol=memorychip;accent=green"},
    FeedTemplate{"load", toTranslate("How busy the processors are"), "", "", "30s",
                 "kind=metric;title=Load;symbol=speedometer;accent=orange"},
    FeedTemplate{"battery", toTranslate("How full the battery is"), "", "", "2m",
                 "kind=progress;title=Battery;symbol=battery.100;accent=green"},
    FeedTemplate{"uptime", toTranslate("How long the machine has been up"), "", "", "1m",
                 "kind=metric;title=Uptime;symbol=power"},
    FeedTemplate{"updates", toTranslate("How many packages wait to be upgraded"), "", "apt", "3h",
                 "kind=metric;title=Updates;symbol=shippingbox;accent=orange", false, true},
    FeedTemplate{"mail", toTranslate("How many messages are unread"), "[MAILDIR]", "", "1m",
                 "kind=metric;title=Mail;symbol=envelope.fill"},
    FeedTemplate{"git", toTranslate("Today's commits, and what isn't pushed"), "FOLDER", "git", "5m",
                 "kind=metric;title=Commits;symbol=arrow.triangle.branch;accent=purple"},
    FeedTemplate{"web", toTranslate("What a web page answers, and how fast"), "URL", "curl", "5m",
                 "kind=metric;title=Web page;symbol=globe;accent=cyan", true},
    FeedTemplate{"json", toTranslate("A value out of the JSON at an address"), "URL|FILE PATH", "curl python3", "15m",
                 "kind=metric;title=Value;symbol=curlybraces;accent=yellow"},
    FeedTemplate{"calendar", toTranslate("The next event of an .ics file"), "FILE", "python3", "5m",
                 "kind=countdown;title=Event;symbol=calendar;accent=red"},
    FeedTemplate{"weather", toTranslate("The weather of a place, from Open-Meteo"), "LATITUDE LONGITUDE", "curl", "30m",
                 "kind=metric;title=Weather;symbol=cloud.fill;accent=cyan", true},
    FeedTemplate{"moon", toTranslate("The phase of the moon"), "", "", "3h",
                 "kind=metric;title=Moon;symbol=moon.fill;accent=yellow"},
    FeedTemplate{"year", toTranslate("How much of the year is over"), "", "", "00:00",
                 "kind=progress;title=Year;symbol=calendar"},
};

/// Null when none is called so.
const FeedTemplate* findFeedTemplate(std::string_view name);

/// How many arguments it must be given at least.
std::size_t neededArguments(const FeedTemplate& source);

/// A feed as the template has it, named after it and without a design.
Feed feedFrom(const FeedTemplate& source, const std::vector<std::string>& arguments);

}  // namespace orvel
