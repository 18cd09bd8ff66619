#include "platform/window/wayland/window_system.h"

#include <list>

#include "platform/language/sentence.h"
#include "platform/window/wayland/output_room.h"
#include "platform/window/wayland/pointer.h"
#include "platform/window/wayland/surface.h"

namespace orvel {
namespace {

class WaylandWindowSystem final : public WindowSystem {
public:
    WaylandWindowSystem(std::unique_ptr<WaylandDisplay> display, EventLoop& loop)
        : display_(std::move(display)), loop_(loop), pointer_(*display_) {}

    void serve(Handlers handlers) override {
        handlers_ = std::move(handlers);
        if (const char* const limits = this->limits()) handlers_.notice(sentence(limits));
        display_->serve(
            loop_, [this] { outputsChanged(); }, [this](const std::string& why) { handlers_.ended(why); });
    }

    std::vector<Output> outputs() const override {
        std::vector<Output> outputs;
        for (const WaylandOutput& output : display_->outputs()) {
            outputs.push_back({.name = output.name,
                               .area = {output.x, output.y, output.widthPx, output.heightPx},
                               .scale = static_cast<double>(output.scale),
                               .primary = outputs.empty()});
            for (const OutputRoom& room : rooms_)
                if (room.output() == output.id) {
                    outputs.back().roomWidth = room.width();
                    outputs.back().roomHeight = room.height();
                }
        }
        return outputs;
    }

    void findRooms() override {
        findsRooms_ = true;
        lookForRooms();
    }

    std::unique_ptr<DesktopSurface> open(SurfaceRequest request) override {
        const WaylandSurface::Surroundings surroundings{*display_, loop_, pointer_, surfaces_,
                                                        [this] { handlers_.ended(std::nullopt); }};
        return std::make_unique<WaylandSurface>(surroundings, std::move(request));
    }

private:
    // What cards can't do here, in a sentence for a person; null when there is nothing of the kind.
    const char* limits() const {
        if (!display_->layerShell)
            return toTranslate(
                "the Wayland compositor has no layer shell, and there is no X server; cards are plain windows, which "
                "lie where the compositor puts them");
        if (display_->isKWin)
            return toTranslate("KWin puts cards away together with the windows when it shows the desktop");
        if (!display_->fractionalScales)
            return toTranslate(
                "the Wayland compositor tells programs whole scales alone; at any other, cards are a little blurred");
        return nullptr;
    }

    void outputsChanged() {
        rooms_.remove_if([this](const OutputRoom& room) { return !display_->outputWithId(room.output()); });
        lookForRooms();
        for (WaylandSurface* const surface : std::vector(surfaces_.begin(), surfaces_.end())) surface->outputsChanged();
        handlers_.outputsChanged();
    }

    void lookForRooms() {
        if (!findsRooms_ || !display_->layerShell) return;
        for (const WaylandOutput& output : display_->outputs()) {
            const bool isKnown =
                std::ranges::any_of(rooms_, [&](const OutputRoom& room) { return room.output() == output.id; });
            if (!isKnown) rooms_.emplace_back(*display_, output, [this] { handlers_.outputsChanged(); });
        }
    }

    std::unique_ptr<WaylandDisplay> display_;
    EventLoop& loop_;
    Handlers handlers_;
    WaylandPointer pointer_;
    WaylandSurface::Register surfaces_;
    bool findsRooms_ = false;
    std::list<OutputRoom> rooms_;
};

}  // namespace

std::unique_ptr<WindowSystem> makeWaylandWindowSystem(std::unique_ptr<WaylandDisplay> display, EventLoop& loop) {
    return std::make_unique<WaylandWindowSystem>(std::move(display), loop);
}

}  // namespace orvel
