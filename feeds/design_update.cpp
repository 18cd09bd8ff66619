#include "feeds/design_update.h"

#include "authoring/color_names.h"
#include "authoring/designs.h"
#include "authoring/new_design.h"
#include "authoring/references.h"
#include "feeds/feeds.h"
#include "feeds/held_line.h"
#include "model/widget_kind.h"
#include "platform/foundation/function_ref.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

WidgetField noNewsField(const WidgetSpec& spec) {
    return shows(spec.kind, WidgetField::secondary) ? WidgetField::secondary : WidgetField::title;
}

std::optional<std::string> textOf(WidgetField field, const WidgetSpec& spec) {
    return field == WidgetField::title ? std::optional(spec.title) : spec.secondary;
}

void setText(WidgetField field, const std::optional<std::string>& text, WidgetSpec& spec) {
    if (field == WidgetField::title)
        spec.title = text.value_or("");
    else
        spec.secondary = text;
}

void restore(const std::optional<HeldLine>& held, WidgetSpec& spec) {
    if (!held) return;
    const WidgetField field = noNewsField(spec);
    if (textOf(field, spec) == held->line) setText(field, held->former, spec);
}

Outcome<Done> save(const OpenDesigns& designs, const Outcome<Change>& change, const Platform& platform) {
    if (!change) return change.failure();
    const auto saved = saveChange(designs, *change, platform, InHistory::no);
    if (!saved) return saved.failure();
    return Done{};
}

Outcome<Done> assignAll(const FeedOutput& output, WidgetSpec& spec, const Platform& platform) {
    for (const std::string& field : output.unset)
        if (const auto done = unset(field, spec); !done) return done.failure();
    auto assignments = output.assignments;
    if (output.mainText) assignments.push_back(mainTextOf(spec.kind, *output.mainText));
    const auto losses = assign(assignments, spec, platform);
    if (!losses) return Failure{sentence("its output: {0}", losses.failure().reason)};
    return Done{};
}

Outcome<Done> makeBehindOthers(const Feed& feed, const FeedOutput& output, const OpenDesigns& designs,
                               const Platform& platform) {
    WidgetSpec::Fields fields{.id = feed.design, .title = feed.name, .kind = likelyKind(output)};
    fields.accentHex = accentText("blue");
    WidgetSpec spec = makeDesign(std::move(fields), platform).spec;
    FeedOutput first;
    for (const std::string& text : feed.first) {
        auto given = assignment(text);
        if (!given) return given.failure();
        first.assignments.push_back(*std::move(given));
    }
    for (const FeedOutput& each : {first, output})
        if (const auto assigned = assignAll(each, spec, platform); !assigned) return assigned.failure();
    spec.id = feed.design;
    Change change;
    change.inserted.push_back({designs.specs.size(), std::move(spec)});
    return save(designs, change, platform);
}

// Changes the feed's design under the store's lock, or calls the other function if there is no such design.
Outcome<Done> changeDesign(const Feed& feed, FunctionRef<Outcome<Done>(WidgetSpec&)> change,
                           FunctionRef<Outcome<Done>(const OpenDesigns&)> whenMissing, const Platform& platform) {
    const auto designs = openDesigns(platform);
    if (!designs) return designs.failure();
    const auto index = findWithId(designs->specs, feed.design);
    if (!index) return index.failure();
    if (!*index) return whenMissing(*designs);
    WidgetSpec spec = designs->specs[**index];
    if (const auto changed = change(spec); !changed) return changed.failure();
    return save(*designs, Changes::replacing(designs->specs, **index, std::move(spec)), platform);
}

constexpr auto leaveOut = [](const OpenDesigns&) -> Outcome<Done> { return Done{}; };

Outcome<Done> rememberMade(const Feed& feed, const Platform& platform) {
    const auto changed = changeFeeds(
        [&](std::vector<Feed>& feeds) -> Outcome<Done> {
            for (Feed& each : feeds)
                if (each.name == feed.name && each.design == feed.design) each.isMade = true;
            return Done{};
        },
        platform);
    if (!changed) return changed.failure();
    return Done{};
}

}  // namespace

Outcome<Done> updateDesign(const Feed& feed, const FeedOutput& output, const Platform& platform) {
    const auto held = HeldLines::read(feed.name, platform);
    const auto make = [&](const OpenDesigns& designs) -> Outcome<Done> {
        if (!feed.isMade) return makeBehindOthers(feed, output, designs, platform);
        return Failure{sentence(
            "its design \"{0}\" has been removed; orvel feed run makes it again, orvel feed remove ends the feed",
            unicode::onOneLine(feed.design))};
    };
    const auto change = [&](WidgetSpec& spec) {
        restore(held, spec);
        return assignAll(output, spec, platform);
    };
    const auto changed = changeDesign(feed, change, make, platform);
    if (!changed) return changed.failure();
    if (held) HeldLines::remove(feed.name, platform);
    if (feed.isMade) return Done{};
    return rememberMade(feed, platform);
}

Outcome<Done> sayNoNews(const Feed& feed, Date since, const Platform& platform) {
    auto held = HeldLines::read(feed.name, platform);
    const bool isUp = held.has_value();
    if (!held) held = HeldLine{.since = since, .line = {}, .former = {}};
    const std::string news = HeldLines::text(held->since, platform);
    if (isUp && held->line.ends_with(news)) return Done{};

    const auto change = [&](WidgetSpec& spec) -> Outcome<Done> {
        const WidgetField field = noNewsField(spec);
        if (isUp && textOf(field, spec) != held->line) return Done{};  // a person has changed it
        if (!isUp) held->former = textOf(field, spec);
        held->line = field == WidgetField::title ? held->former.value_or("") + ": " + news : news;
        setText(field, held->line, spec);
        return HeldLines::write(feed.name, *held, platform);  // before the design: the former line must not be lost
    };
    return changeDesign(feed, change, leaveOut, platform);
}

Outcome<Done> takeNoNewsBack(const Feed& feed, const Platform& platform) {
    const auto held = HeldLines::read(feed.name, platform);
    if (!held) return Done{};
    const auto change = [&](WidgetSpec& spec) -> Outcome<Done> {
        restore(held, spec);
        return Done{};
    };
    const auto changed = changeDesign(feed, change, leaveOut, platform);
    if (!changed) return changed.failure();
    HeldLines::remove(feed.name, platform);
    return Done{};
}

}  // namespace orvel
