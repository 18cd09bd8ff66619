// The shown cards as surfaces of the window system. Only cards that have changed are drawn again.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/host/card_drawing.h"
#include "platform/host/card_source.h"

namespace orvel {

class CardBoard {
public:
    struct Names {
        std::string program;   ///< the program's name for the window system
        std::string untitled;  ///< the window's title of a card without words
    };
    CardBoard(Names names, const Localizer& localizer, std::function<void(const std::string&)> notice);

    /// Starts to prepare the drawing of cards that will be shown soon.
    void prepare(const std::vector<CardOnShow>& cards);

    /// Shows these cards and no others, at their positions on the outputs. Tries again to draw a card that couldn't be
    /// drawn the last time.
    void show(const std::vector<CardOnShow>& cards, WindowSystem& windows);

    void clear() { shown_.clear(); }

    /// Whether a child process is ready to draw for surfaces that ask for pixels. Without one, the next request starts
    /// one.
    bool isDrawing() const { return !prepared_.empty(); }
    void stopDrawing();

private:
    /// One surface of a card; a card on all outputs has several.
    struct Shown {
        View view;
        WidgetFamily family;
        Placement placement;
        bool takesClicks;
        std::function<void()> clicked;
        bool isDrawn = false;
        std::unique_ptr<DesktopSurface> surface = {};
    };

    void update(const std::string& key, const CardOnShow& card, const Placement& placement);
    SurfaceRequest request(const std::string& key, const Shown& shown);
    bool draw(const std::string& key, const PixelBuffer& pixels);
    bool drawPrepared(const Shown& shown, const PixelBuffer& pixels);
    std::string title(const View& view) const;

    Names names_;
    const Localizer& localizer_;
    std::function<void(const std::string&)> notice_;
    bool saysWhy_ = true;  ///< the last drawing succeeded, so a failure is reported
    CardDrawing drawing_;
    std::vector<CardPicture> prepared_;  ///< what the child process is ready to draw
    std::map<std::string, Shown> shown_;
};

}  // namespace orvel
