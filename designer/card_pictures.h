// Cards of designs as files of pictures and as words.
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

    /// The file's bytes; `scale` is PNG's pixels to the point.
    Outcome<std::string> draw(const WidgetSpec& spec, WidgetFamily family, PictureFormat format, double scale) const;
    /// A card's lines.
    std::string words(const WidgetSpec& spec) const;

private:
    CardPictures(std::unique_ptr<Renderer> renderer, const Platform& platform);

    const Platform& platform_;
    std::unique_ptr<Renderer> renderer_;
    std::unique_ptr<Localizer> localizer_;
};

}  // namespace orvel::designer
