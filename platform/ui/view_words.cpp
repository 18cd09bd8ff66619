#include "platform/ui/view_words.h"

#include "platform/foundation/unicode.h"

namespace orvel {
namespace {

constexpr std::size_t mostCharacters = 200;
constexpr std::size_t mostBytes = 2000;  // of marks on one character there may be any number

class Words {
public:
    explicit Words(const Localizer& localizer) : localizer_(localizer) {}

    void visit(const View& view) {
        std::visit([this](const auto& n) { node(n); }, view.node().alternatives());
    }

    std::string text;

private:
    void node(const node::Text& said) {
        const auto* const verbatim = std::get_if<std::string>(&said.content);
        add(verbatim ? *verbatim : localized(std::get<LocalizedStringKey>(said.content), localizer_));
    }
    void node(const node::Image&) {}
    void node(const node::Spacer&) {}
    void node(const node::Circle&) {}
    template <class Stack>
    void node(const Stack& stack) {
        for (const View& child : stack.children) visit(child);
    }
    template <class Arguments>
    void node(const node::Modified<Arguments>& modified) {
        visit(modified.content);
    }

    void add(std::string_view said) {
        if (said.empty()) return;
        if (!text.empty()) text += ", ";
        said = said.substr(0, mostBytes);
        text += unicode::onOneLine(said.substr(0, unicode::validLength(said)));
    }

    const Localizer& localizer_;
};

}  // namespace

std::string words(const View& view, const Localizer& localizer) {
    Words all(localizer);
    all.visit(view);
    const std::string_view whole = all.text;
    std::string_view shown = unicode::prefix(whole, mostCharacters);
    if (shown.size() > mostBytes) {
        std::size_t end = mostBytes;
        while (end > 0 && (static_cast<unsigned char>(shown[end]) & 0xC0) == 0x80) --end;  // inside a code point
        shown = shown.substr(0, end);
    }
    return std::string(shown) + (shown.size() < whole.size() ? "…" : "");
}

}  // namespace orvel
