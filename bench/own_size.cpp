#include "bench/own_size.h"

#include <functional>

namespace orvel::bench {
namespace {

std::size_t heapBytes(const std::string& text) {
    const auto* const object = reinterpret_cast<const char*>(&text);
    const std::less<const char*> before;
    const bool isInside = !before(text.data(), object) && before(text.data(), object + sizeof text);
    return isInside ? 0 : text.capacity() + 1;
}

std::size_t heapBytes(const std::vector<std::string>& texts) {
    std::size_t bytes = texts.capacity() * sizeof(std::string);
    for (const auto& text : texts) bytes += heapBytes(text);
    return bytes;
}

template <class Field>
std::size_t heapBytes(const std::optional<Field>& field) {
    return field ? heapBytes(*field) : 0;
}

}  // namespace

std::size_t ownSize(const std::vector<WidgetSpec>& specs) {
    std::size_t bytes = specs.size() * sizeof(WidgetSpec);
    for (const auto& spec : specs)
        bytes += heapBytes(spec.id) + heapBytes(spec.title) + heapBytes(spec.accentHex) + heapBytes(spec.symbol) +
                 heapBytes(spec.primary) + heapBytes(spec.secondary) + heapBytes(spec.items) +
                 heapBytes(spec.targetISO8601);
    return bytes;
}

}  // namespace orvel::bench
