#include "tools/desktop/place.h"

#include <algorithm>
#include <charconv>
#include <iomanip>
#include <set>
#include <sstream>

#include "authoring/designs.h"
#include "desktop/place_words.h"
#include "desktop/places.h"
#include "desktop/places_json.h"
#include "platform/foundation/json_writer.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"
#include "platform/window/open_window_system.h"
#include "tools/core/input_output.h"
#include "tools/core/terminal.h"
#include "tools/desktop/reference.h"

namespace orvel::tools {
namespace {

std::string outputText(const OutputChoice& output) {
    switch (output.which) {
        case OutputChoice::Which::named: return unicode::onOneLine(output.name);
        case OutputChoice::Which::all: return "all";
        case OutputChoice::Which::any:
        case OutputChoice::Which::primary: break;
    }
    return "primary";
}

std::string marginText(Margin margin) {
    std::ostringstream text;
    text << margin.x;
    if (margin.x != margin.y) text << ',' << margin.y;
    return text.str();
}

// The monitors that are there, if there is a display; and those that places wait for.
struct Monitors {
    std::optional<std::vector<Output>> there;
    std::set<std::string> missing;
};

Monitors monitors(const std::vector<Place>& places) {
    Monitors monitors;
    EventLoop loop;
    const auto windows = openWindowSystem(loop);
    if (!windows) return monitors;
    monitors.there = (*windows)->outputs();
    for (const Place& each : places) {
        const OutputChoice& output = each.place.output;
        if (output.which == OutputChoice::Which::named &&
            std::ranges::find(*monitors.there, output.name, &Output::name) == monitors.there->end())
            monitors.missing.insert(output.name);
    }
    return monitors;
}

void printTable(const std::vector<Place>& places, const std::vector<WidgetSpec>& specs, Console& console) {
    std::vector<std::vector<std::string>> rows{{"", sentence("DESIGN"), sentence("TITLE"), sentence("SIZE"),
                                                sentence("ANCHOR"), sentence("MARGIN"), sentence("OUTPUT"),
                                                sentence("LAYER"), sentence("CLICK")}};
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Place& each = places[i];
        const WidgetSpec* const design = designAt(each, specs);
        rows.push_back({std::to_string(i + 1), unicode::onOneLine(text(each.design)),
                        design ? unicode::onOneLine(design->title) : sentence("(not stored)"),
                        std::string(place_words::wordFor(place_words::families, each.family)),
                        std::string(place_words::wordFor(place_words::anchors, each.place.anchor)),
                        marginText(each.place.margin), outputText(each.place.output),
                        std::string(place_words::wordFor(place_words::layers, each.place.layer)),
                        unicode::onOneLine(each.click.value_or(""))});
    }
    printColumns(rows, console);
}

}  // namespace

Outcome<Done> place(const PlaceChoices& choices, const Platform& platform, Console& console) {
    const auto design = placedDesign(choices.reference.empty() ? "@1" : choices.reference, platform);
    if (!design) return design.failure();
    const auto put = [&](std::vector<Place>& places) -> Outcome<Done> {
        const auto found = std::ranges::find(places, *design, &Place::design);
        Place& changed = found != places.end() ? *found : places.emplace_back(Place{.design = *design});
        choices.applyTo(changed);
        return Done{};
    };
    const auto notice = changePlaces(put, platform);
    if (!notice) return notice.failure();
    if (*notice) say(**notice, console);
    tellIfNotStored(*design, platform, console);
    return Done{};
}

Outcome<Done> listPlaces(PlacesForm form, const Platform& platform, Console& console) {
    const auto places = readPlaces(platform);
    if (!places) return places.failure();
    const auto [there, missing] = monitors(*places);
    if (form == PlacesForm::json) {
        json::Writer writer;
        writer.beginObject().key("places").raw(PlacesJSON::encode(*places)).key("monitors").beginArray();
        for (const Output& output : there.value_or(std::vector<Output>()))
            writer.beginObject().key("name").string(output.name).key("there").boolean(true).endObject();
        for (const std::string& name : missing)
            writer.beginObject().key("name").string(name).key("there").boolean(false).endObject();
        return printJson(writer.endArray().endObject().finish(), toTranslate("a place"), console);
    }
    if (places->empty()) {
        console.out << sentence(
                           "no design has a place, so the first one stands at the top right; "
                           "orvel place @1 --anchor left puts it elsewhere")
                    << '\n';
    } else {
        const auto specs = readDesigns(platform);
        printTable(*places, specs ? *specs : std::vector<WidgetSpec>(), console);
    }
    if (there) {
        std::string names;
        for (const Output& output : *there) names += ' ' + unicode::onOneLine(output.name);
        for (const std::string& name : missing) names += ' ' + sentence("{0} (not there)", unicode::onOneLine(name));
        console.out << sentence("monitors:") << names << '\n';
    }
    return Done{};
}

Outcome<Done> unplace(const std::string& reference, const Platform& platform, Console& console) {
    const auto take = [&](std::vector<Place>& places) -> Outcome<Done> {
        std::size_t number = 0;
        const char* const end = reference.data() + reference.size();
        const auto [parsed, error] = std::from_chars(reference.data(), end, number);
        auto found = places.end();
        if (error == std::errc{} && parsed == end && number >= 1 && number <= places.size()) {
            found = places.begin() + static_cast<std::ptrdiff_t>(number) - 1;
        } else {
            // A design that is no longer stored still has its place, by its whole id.
            found = std::ranges::find_if(places, [&](const Place& each) { return text(each.design) == reference; });
            if (found == places.end()) {
                const auto design = placedDesign(reference, platform);
                if (!design) return design.failure();
                found = std::ranges::find(places, *design, &Place::design);
            }
        }
        if (found == places.end())
            return Failure{unicode::onOneLine(reference) + ": " +
                           sentence("that design has no place; orvel place lists the places")};
        places.erase(found);
        return Done{};
    };
    const auto notice = changePlaces(take, platform);
    if (!notice) return notice.failure();
    if (*notice) say(**notice, console);
    return Done{};
}

}  // namespace orvel::tools
