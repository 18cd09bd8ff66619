// Draws cards in a child process, so that the memory for drawing is freed when the drawing is finished.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/pixel_buffer.h"
#include "platform/host/child_process.h"
#include "platform/host/timeline.h"
#include "platform/ui/localized.h"
#include "platform/ui/view.h"

namespace orvel {

struct CardPicture {
    View view;
    WidgetFamily family;
};

class CardDrawing {
public:
    /// Calls `notice` with one line that says why nothing can be drawn. Both must outlive this object.
    CardDrawing(const Localizer& localizer, std::function<void(const std::string&)> notice);

    /// Starts a child process that prepares to draw these, while this process continues.
    void prepare(std::vector<CardPicture> pictures);

    /// Fills the pixels with one of the prepared pictures. False when it can't be drawn or takes too long. The child
    /// may have timed out while it waited, so it is worth preparing the picture once more.
    bool draw(std::size_t picture, const PixelBuffer& pixels);

    /// The child is no longer needed.
    void finish() { child_.reset(); }

private:
    void serve(const Channel& channel, const std::vector<CardPicture>& pictures) const;

    const Localizer& localizer_;
    std::function<void(const std::string&)> notice_;
    std::optional<Channel> child_;
};

}  // namespace orvel
