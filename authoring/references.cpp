#include "authoring/references.h"

#include <algorithm>
#include <charconv>

#include "platform/foundation/text_list.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

bool beginsWith(std::string_view id, std::string_view reference) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return id.size() >= reference.size() && std::equal(reference.begin(), reference.end(), id.begin(),
                                                       [&](char a, char b) { return lower(a) == lower(b); });
}

std::string howMany(std::size_t designs) {
    if (designs == 0) return sentence("no designs are stored");
    return counted("there is one design, @{0}", "there are designs @1 to @{0}", designs);
}

// "@1 6F1A2C (Release 2.0), @4 6F1B77 (Groceries)"
std::string candidates(const std::vector<WidgetSpec>& specs, const std::vector<std::size_t>& indexes) {
    constexpr std::size_t most = 5;
    constexpr std::size_t longest = 40;
    const auto inShort = [](const std::string& text) { return unicode::onOneLine(unicode::prefix(text, longest)); };
    std::vector<std::string> names;
    for (std::size_t i = 0; i < std::min(most, indexes.size()); ++i) {
        const WidgetSpec& spec = specs[indexes[i]];
        names.push_back("@" + std::to_string(indexes[i] + 1) + " " + inShort(spec.id) + " (" + inShort(spec.title) +
                        ")");
    }
    const std::string text = enumerated(names, toTranslate("{0}, {1}"), toTranslate("{0}, {1}"));
    if (indexes.size() <= most) return text;
    return counted("{1} and {0} more", "{1} and {0} more", indexes.size() - most, text);
}

Outcome<std::size_t> atPosition(const std::vector<WidgetSpec>& specs, const std::string& reference) {
    std::size_t position = 0;
    const char* const end = reference.data() + reference.size();
    const auto [parsed, error] = std::from_chars(reference.data() + 1, end, position);
    if (error != std::errc{} || parsed != end || position == 0 || position > specs.size())
        return Failure{unicode::onOneLine(reference) + ": " + howMany(specs.size())};
    return position - 1;
}

}  // namespace

Outcome<std::optional<std::size_t>> findWithId(const std::vector<WidgetSpec>& specs, const std::string& id) {
    std::vector<std::size_t> same;
    for (std::size_t i = 0; i < specs.size(); ++i)
        if (unicode::canonicallyEquivalent(specs[i].id, id)) same.push_back(i);
    if (same.empty()) return std::optional<std::size_t>();
    if (same.size() == 1) return std::optional(same.front());
    return Failure{sentence("\"{0}\" is the id of several designs; name one by its position: {1}",
                            unicode::onOneLine(id), candidates(specs, same))};
}

Outcome<std::size_t> findOne(const std::vector<WidgetSpec>& specs, const std::string& reference) {
    const auto same = findWithId(specs, reference);
    if (!same) return same.failure();
    if (*same) return **same;
    if (reference.starts_with('@')) return atPosition(specs, reference);
    std::vector<std::size_t> beginning;
    for (std::size_t i = 0; i < specs.size(); ++i)
        if (beginsWith(specs[i].id, reference)) beginning.push_back(i);
    if (beginning.size() == 1 && !reference.empty()) return beginning.front();
    if (beginning.empty() || reference.empty())
        return Failure{
            sentence("\"{0}\": no design has that id; orvel list shows them", unicode::onOneLine(reference))};
    return Failure{sentence("\"{0}\" is the beginning of several ids: {1}", unicode::onOneLine(reference),
                            candidates(specs, beginning))};
}

}  // namespace orvel
