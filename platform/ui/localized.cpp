#include "platform/ui/localized.h"

#include <charconv>
#include <optional>

namespace orvel {
namespace {

// A directive at the start of the text: how long it is and which argument it takes.
struct Directive {
    std::size_t length;
    std::optional<std::size_t> position;  // absent: the next one
};

std::optional<Directive> integerDirective(std::string_view text) {
    constexpr std::string_view plain = "%lld";
    if (text.starts_with(plain)) return Directive{plain.size(), std::nullopt};
    std::size_t position = 0;
    const char* const end = text.data() + text.size();
    const auto [after, error] = std::from_chars(text.data() + 1, end, position);
    constexpr std::string_view positional = "$lld";
    const std::string_view rest(after, static_cast<std::size_t>(end - after));
    if (error != std::errc{} || position == 0 || !rest.starts_with(positional)) return std::nullopt;
    return Directive{static_cast<std::size_t>(after - text.data()) + positional.size(), position - 1};
}

}  // namespace

LocalizedStringKey& LocalizedStringKey::literal(std::string_view text) {
    for (const char c : text) key.append(c == '%' ? 2 : 1, c);
    return *this;
}

LocalizedStringKey& LocalizedStringKey::integer(std::int64_t number) {
    key += "%lld";
    arguments.push_back(number);
    return *this;
}

std::string localized(const LocalizedStringKey& key, const Localizer& localizer) {
    std::string format = localizer.lookUp(key.key);
    if (key.arguments.empty()) return format;

    std::string text;
    std::size_t next = 0;
    for (std::string_view rest = format; !rest.empty();) {
        if (rest.starts_with("%%")) {
            text += '%';
            rest.remove_prefix(2);
            continue;
        }
        const auto directive = rest.front() == '%' ? integerDirective(rest) : std::nullopt;
        const std::size_t argument = directive ? directive->position.value_or(next) : 0;
        if (!directive || argument >= key.arguments.size()) {
            text += rest.front();
            rest.remove_prefix(1);
            continue;
        }
        if (!directive->position) ++next;
        text += std::to_string(key.arguments[argument]);
        rest.remove_prefix(directive->length);
    }
    return text;
}

}  // namespace orvel
