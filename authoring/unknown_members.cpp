#include <set>

#include "authoring/warnings.h"
#include "model/widget_fields.h"
#include "platform/foundation/json_reader.h"
#include "platform/foundation/nearest_word.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

std::vector<std::string_view> fieldNames() {
    std::vector<std::string_view> names;
    forEachWidgetField([&](const auto& row) { names.push_back(row.name); });
    return names;
}

}  // namespace

std::vector<DesignWarning> unknownMembers(std::string json) {
    const auto names = fieldNames();
    std::vector<DesignWarning> found;
    std::set<std::string, std::less<>> told;
    const auto look = [&](std::size_t index, json::Value& record) {
        return record.members([&](std::string_view name, json::Value&) {
            constexpr std::size_t longest = 60;
            if (std::ranges::find(names, name) == names.end() && told.size() < 1000 && told.emplace(name).second) {
                const std::string shown = unicode::onOneLine(unicode::prefix(name, longest));
                const auto near = didYouMean(name, names);
                const auto what = sentence("\"{0}\" is no field of a design and is ignored", shown);
                found.push_back({index, {std::string(name), clauses(what, near)}});
            }
            return true;
        });
    };
    const auto failure = json::read(std::move(json), [&](json::Value& value) {
        if (value.kind() != json::Kind::array) return value.kind() != json::Kind::object || look(0, value);
        std::size_t index = 0;
        return value.elements([&](json::Value& element) {
            return element.kind() != json::Kind::object ? (++index, true) : look(index++, element);
        });
    });
    if (failure) found.clear();
    return found;
}

}  // namespace orvel
