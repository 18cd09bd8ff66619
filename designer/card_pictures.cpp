#include "designer/card_pictures.h"

#include "platform/host/card.h"
#include "platform/host/renderer_module.h"
#include "platform/ui/gettext_localizer.h"
#include "views/card_text.h"
#include "widget/orvel_widget.h"

namespace orvel::designer {
CardPictures::CardPictures(std::unique_ptr<Renderer> renderer, const Platform& platform)
    : platform_(platform),
      renderer_(std::move(renderer)),
      localizer_(std::make_unique<GettextLocalizer>(GettextLocalizer::installedDirectory())) {}

Outcome<CardPictures> CardPictures::open(const Platform& platform) {
    auto renderer = loadRenderer();
    if (!renderer) return Failure{"can't draw: " + renderer.failure().reason};
    return CardPictures(*std::move(renderer), platform);
}

Outcome<std::string> CardPictures::draw(const WidgetSpec& spec, WidgetFamily family, PictureFormat format,
                                        double scale) const {
    const View view = OrvelWidget::content({platform_.clock.now(), spec}, platform_);
    Scene scene = cardScene(view, family, {renderer_->text(), *localizer_}, renderer_->symbols());
    const Picture picture{scene.size, cornerRadius, {{{0, 0}, std::move(scene)}}};
    auto bytes = format == PictureFormat::png   ? renderer_->png(picture, scale)
                 : format == PictureFormat::svg ? renderer_->svg(picture, SvgText::none)
                                                : renderer_->pdf(picture, platform_.clock.now());
    if (!bytes) return Failure{"can't draw: " + bytes.failure().reason};
    return *std::move(bytes);
}

std::string CardPictures::words(const WidgetSpec& spec) const {
    return cardText(spec, *localizer_, platform_);
}

}  // namespace orvel::designer
