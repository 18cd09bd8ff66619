// Text through Pango: the system font with every installed font as a fallback, shaped and ordered by script, without
// hinting, so that widths are in proportion to sizes. Results are remembered; an engine belongs to one thread.
#pragma once

#include <memory>

#include "platform/ui/text_engine.h"

namespace orvel {

class PangoTextEngine final : public TextEngine {
public:
    PangoTextEngine();
    ~PangoTextEngine() override;

    FontMetrics metrics(const Font& font) override;
    TextBlock layOut(std::string_view text, const Font& font, std::optional<double> width, int mostLines) override;

    /// No line holds more bytes of text than this; the rest is cut.
    static constexpr std::size_t longestLine = 4096;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace orvel
