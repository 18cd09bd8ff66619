#include "authoring/number_text.h"

#include <charconv>
#include <sstream>
#include <system_error>

#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {

std::optional<double> numberText(std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<double> portionText(std::string_view text) {
    const auto trimmed = [](std::string_view part) { return unicode::trimmingWhitespace(part); };
    text = trimmed(text);
    if (text.ends_with('%')) {
        const auto hundredths = numberText(trimmed(text.substr(0, text.size() - 1)));
        return hundredths ? std::optional(*hundredths / 100) : std::nullopt;
    }
    const auto bar = text.find('/');
    if (bar == text.npos) return numberText(text);
    const auto part = numberText(trimmed(text.substr(0, bar)));
    const auto whole = numberText(trimmed(text.substr(bar + 1)));
    if (!part || !whole || *whole == 0) return std::nullopt;
    return *part / *whole;
}

std::string inShort(double number) {
    std::ostringstream text;
    text << number;
    return text.str();
}

std::string perCentMeant(double progress) {
    if (!(progress > 1 && progress <= 100)) return {};
    return sentence("did you mean {0}%, which is {1}?", inShort(progress), inShort(progress / 100));
}

}  // namespace orvel
