#include "authoring/change.h"

#include <algorithm>
#include <utility>

#include "model/widget_fields.h"
#include "model/widget_spec_json.h"
#include "platform/foundation/text_list.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

using Specs = std::vector<WidgetSpec>;
using Place = Change::Place;

auto hasId(std::string_view id) {
    return [id](const WidgetSpec& spec) { return unicode::canonicallyEquivalent(spec.id, id); };
}

std::size_t countOfId(const Specs& specs, std::string_view id) {
    return static_cast<std::size_t>(std::ranges::count_if(specs, hasId(id)));
}

// Each at its index in the result.
Specs inserting(const std::vector<Place>& places, Specs specs) {
    Specs result;
    result.reserve(specs.size() + places.size());
    auto next = places.begin();
    for (std::size_t i = 0; i <= specs.size(); ++i) {
        while (next != places.end() && (next->index <= result.size() || i == specs.size()))
            result.push_back((next++)->spec);
        if (i < specs.size()) result.push_back(std::move(specs[i]));
    }
    return result;
}

Change taking(const Specs& specs, const std::set<std::size_t>& indexes) {
    Change change;
    for (const std::size_t index : indexes) {
        std::size_t others = countOfId(specs, specs[index].id);
        for (const std::size_t other : indexes) others -= hasId(specs[index].id)(specs[other]);
        change.removed.push_back({index, specs[index], others});
    }
    return change;
}

std::optional<std::size_t> find(const Specs& specs, const Place& place) {
    if (place.index < specs.size() && specs[place.index] == place.spec) return place.index;
    const auto found = std::ranges::find(specs, place.spec);
    if (found == specs.end()) return std::nullopt;
    return static_cast<std::size_t>(found - specs.begin());
}

// The design with the change taken back, when only other fields have been changed since; absent when the same fields
// have.
std::optional<WidgetSpec> withoutChange(const WidgetSpec& before, const WidgetSpec& after, WidgetSpec now) {
    bool isApart = true;
    forEachWidgetField([&](const auto& row) {
        if (row.in(before) == row.in(after)) return;
        isApart = isApart && row.in(now) == row.in(after);
        row.in(now) = row.in(before);
    });
    if (!isApart) return std::nullopt;
    return now;
}

// Whether the list is as if the change had never been made.
bool isGone(const Change& change, const Specs& specs) {
    const auto isThere = [&](const Place& place) { return find(specs, place).has_value(); };
    return std::ranges::none_of(change.inserted, isThere) &&
           std::ranges::all_of(change.removed, [&](const auto& place) {
               return isThere(place) && countOfId(specs, place.spec.id) > place.sameId;
           });
}

}  // namespace

bool Change::isEmpty() const {
    return std::ranges::equal(removed, inserted, [](const Place& a, const Place& b) {
        return a.index == b.index && WidgetSpecJSON::encode(a.spec) == WidgetSpecJSON::encode(b.spec);
    });
}

Specs Change::appliedTo(Specs specs) const {
    Specs kept;
    kept.reserve(specs.size());
    auto next = removed.begin();
    for (std::size_t i = 0; i < specs.size(); ++i) {
        if (next != removed.end() && next->index == i)
            ++next;
        else
            kept.push_back(std::move(specs[i]));
    }
    return inserting(inserted, std::move(kept));
}

namespace Changes {

Outcome<Change> adding(const Specs& specs, WidgetSpec spec) {
    if (spec.id.empty())
        return Failure{sentence("the id is empty; a design needs one"), Failure::Cause::circumstances, "id"};
    std::set<std::size_t> same;
    for (std::size_t i = 0; i < specs.size(); ++i)
        if (hasId(spec.id)(specs[i])) same.insert(i);
    Change change = taking(specs, same);
    change.what = same.empty() ? sentence("added {0}", nameOf(spec)) : sentence("replaced {0}", nameOf(spec));
    change.inserted.push_back({0, std::move(spec)});
    return change;
}

Outcome<Change> replacing(const Specs& specs, std::size_t index, WidgetSpec spec) {
    if (!hasId(spec.id)(specs[index])) {
        if (spec.id.empty())
            return Failure{sentence("the id is empty; a design needs one"), Failure::Cause::circumstances, "id"};
        const auto other = std::ranges::find_if(specs, hasId(spec.id));
        if (other != specs.end())
            return Failure{
                sentence("id={0}: it is the id of design @{1}", unicode::onOneLine(spec.id), other - specs.begin() + 1),
                Failure::Cause::circumstances, "id"};
    }
    Change change = taking(specs, {index});
    change.what = sentence("changed {0}", nameOf(specs[index]));
    change.inserted.push_back({index, std::move(spec)});
    return change;
}

Change movingToFront(const Specs& specs, std::size_t index) {
    return moving(specs, index, 0);
}

Change moving(const Specs& specs, std::size_t index, std::size_t to) {
    Change change = taking(specs, {index});
    change.what = to == 0 ? sentence("moved {0} to the front", nameOf(specs[index]))
                          : sentence("moved {0} to position {1}", nameOf(specs[index]), to + 1);
    change.inserted.push_back({to, specs[index]});
    return change;
}

Change removing(const Specs& specs, const std::set<std::size_t>& indexes) {
    constexpr std::size_t mostNames = 3;
    Change change = taking(specs, indexes);
    std::vector<std::string> names;
    for (std::size_t i = 0; i < std::min(mostNames, change.removed.size()); ++i)
        names.push_back(nameOf(change.removed[i].spec));
    const std::size_t more = change.removed.size() - names.size();
    const std::string which = enumerated(names, toTranslate("{0}, {1}"), toTranslate("{0}, {1}"));
    change.what =
        sentence("removed {0}", more > 0 ? counted("{1} and {0} more", "{1} and {0} more", more, which) : which);
    return change;
}

Outcome<std::optional<Specs>> takenBack(const Change& change, Specs specs) {
    if (isGone(change, specs)) return std::optional<Specs>();
    std::vector<Place> back = change.removed;
    for (auto place = change.inserted.rbegin(); place != change.inserted.rend(); ++place) {
        auto found = find(specs, *place);
        const auto before = std::ranges::find_if(back, hasId(place->spec.id), &Place::spec);
        if (!found && before != back.end() && countOfId(specs, place->spec.id) == 1) {
            found = static_cast<std::size_t>(std::ranges::find_if(specs, hasId(place->spec.id)) - specs.begin());
            if (auto merged = withoutChange(before->spec, place->spec, specs[*found]))
                before->spec = *std::move(merged);
            else
                found.reset();
        }
        if (!found)
            return Failure{sentence("{0} has been changed or removed by another program since", nameOf(place->spec))};
        specs.erase(specs.begin() + static_cast<std::ptrdiff_t>(*found));
    }
    for (const Place& place : back)
        if (countOfId(specs, place.spec.id) > place.sameId)
            return Failure{sentence("another program has stored a design with the id {0} since",
                                    unicode::onOneLine(place.spec.id))};
    return std::optional(inserting(back, std::move(specs)));
}

std::string nameOf(const WidgetSpec& spec) {
    constexpr std::size_t longest = 40;
    const auto shown = unicode::prefix(spec.title, longest);
    return '"' + unicode::onOneLine(shown) + (shown.size() < spec.title.size() ? "…\" (" : "\" (") +
           unicode::onOneLine(spec.id) + ")";
}

}  // namespace Changes
}  // namespace orvel
