#include "platform/host/card_drawing.h"

#include "platform/host/card.h"
#include "platform/host/renderer_module.h"

namespace orvel {
namespace {

constexpr std::chrono::seconds longestDrawing{10};

struct Question {
    std::size_t picture;
    PixelBuffer pixels;  ///< except for the bytes, which are the answer
};

}  // namespace

CardDrawing::CardDrawing(const Localizer& localizer, std::function<void(const std::string&)> notice)
    : localizer_(localizer), notice_(std::move(notice)) {}

void CardDrawing::prepare(std::vector<CardPicture> pictures) {
    child_ = forkChild([&](const Channel& channel) { serve(channel, pictures); }, longestDrawing);
}

bool CardDrawing::draw(std::size_t picture, const PixelBuffer& pixels) {
    const Question question{picture, pixels};
    const bool isAnswered =
        child_ && child_->send(&question, sizeof question) && child_->receive(pixels.bytes, size(pixels));
    if (!isAnswered) child_.reset();
    return isAnswered;
}

// Everything that doesn't depend on the pixels is done before the first request arrives.
void CardDrawing::serve(const Channel& channel, const std::vector<CardPicture>& pictures) const {
    const auto renderer = loadRenderer();
    if (!renderer) return notice_("can't draw: " + renderer.failure().reason);
    std::vector<Picture> scenes;
    for (const CardPicture& picture : pictures) {
        Scene scene =
            cardScene(picture.view, picture.family, {(*renderer)->text(), localizer_}, (*renderer)->symbols());
        scenes.push_back({scene.size, cornerRadius, {{{0, 0}, std::move(scene)}}});
    }
    Question question;
    std::vector<unsigned char> bytes;
    while (channel.receive(&question, sizeof question)) {
        bytes.assign(size(question.pixels), 0);
        question.pixels.bytes = bytes.data();
        if (!(*renderer)->paint(scenes.at(question.picture), question.pixels)) return;
        if (!channel.send(bytes.data(), bytes.size())) return;
    }
}

}  // namespace orvel
