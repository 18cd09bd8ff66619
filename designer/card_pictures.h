// The cards of designs as picture files and as words.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "model/widget_spec.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"
#include "platform/host/timeline.h"
#include "platform/ui/localized.h"
#include "platform/ui/renderer.h"

namespace orvel::designer {

enum class PictureFormat { png, svg, pdf };

class CardPictures {
public:
    static Outcome<CardPictures> open(const Platform& platform);

    /// The file's bytes; `scale` is the pixels of a PNG for each point.
    Outcome<std::string> draw(const WidgetSpec& spec, WidgetFamily family, PictureFormat format, double scale) const;
    /// The lines of a card, as a screen reader says them.
    std::string words(const WidgetSpec& spec) const;

private:
    CardPictures(std::unique_ptr<Renderer> renderer, const Platform& platform);

    const Platform& platform_;
    std::unique_ptr<Renderer> renderer_;
    std::unique_ptr<Localizer> localizer_;
};

}  // namespace orvel::designer
