// The cards on show, as surfaces of the window system. Only what has changed is drawn again.
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
        std::string program;   ///< by which the window system knows this one
        std::string untitled;  ///< of a card without words
    };
    CardBoard(Names names, const Localizer& localizer, std::function<void(const std::string&)> notice);

    /// Gets ready to draw cards that will be shown soon.
    void prepare(const std::vector<CardOnShow>& cards);

    /// Shows these cards and no others, where they belong among these outputs. A card that could not be drawn the last
    /// time is tried again.
    void show(const std::vector<CardOnShow>& cards, WindowSystem& windows);

    void clear() { shown_.clear(); }

    /// Whether a child waits for surfaces to ask for their pixels; without it, one that asks starts another.
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

    void showOne(const std::string& key, const CardOnShow& card, const Placement& placement, WindowSystem& windows);
    bool draw(const std::string& key, const PixelBuffer& pixels);
    bool drawPrepared(const Shown& shown, const PixelBuffer& pixels);
    std::string title(const View& view) const;

    Names names_;
    const Localizer& localizer_;
    std::function<void(const std::string&)> notice_;
    bool saysWhy_ = true;  ///< the last drawing succeeded, so a failure is news
    CardDrawing drawing_;
    std::vector<CardPicture> prepared_;  ///< what the drawing's child can draw now
    std::map<std::string, Shown> shown_;
};

}  // namespace orvel
