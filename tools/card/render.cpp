#include "tools/card/render.h"

#include "platform/host/card.h"
#include "platform/language/sentence.h"
#include "tools/card/follow.h"

namespace orvel::tools {
namespace {

class CardFile {
public:
    CardFile(const RenderChoices& choices, const Platform& platform, Console& console)
        : choices_(choices), platform_(platform), console_(console) {}

    /// Draws the card as it is now, unless the file shows that already.
    Outcome<Done> update() {
        const auto shown = shownEntry(choices_.card.design, platform_, console_);
        if (!shown) return shown.failure();
        const View view = shownView(*shown, platform_);
        if (drawn_ != view) {
            const auto written = draw(view);
            if (!written) return written.failure();
            drawn_ = view;
        }
        return unlessComplaint(shown->complaint);
    }

private:
    Outcome<Done> draw(const View& view) {
        if (!drawing_) {
            auto opened = Drawing::open();
            if (!opened) return opened.failure();
            drawing_ = *std::move(opened);
        }
        Scene scene = drawing_->scene(view, choices_.card.family);
        return drawing_->write({scene.size, cornerRadius, {{{0, 0}, std::move(scene)}}}, choices_.drawing, platform_,
                               console_);
    }

    const RenderChoices& choices_;
    const Platform& platform_;
    Console& console_;
    std::optional<Drawing> drawing_;
    std::optional<View> drawn_;
};

}  // namespace

Outcome<Done> render(const RenderChoices& choices, const Platform& platform, Console& console) {
    if (const auto writable = canWrite(choices.drawing.output, console); !writable) return writable.failure();
    if (choices.watch && choices.drawing.output == "-")
        return Failure{sentence("--watch draws into a file; name one with -o"), Failure::Cause::request};
    CardFile file(choices, platform, console);
    if (!choices.watch) return file.update();
    return follow(choices.card.design, platform, console, [&] { return file.update(); });
}

}  // namespace orvel::tools
