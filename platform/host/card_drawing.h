// Cards drawn by a child process, so that the memory which drawing takes is gone once nothing is to be drawn.
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
    /// `notice` is told in one line why nothing can be drawn. Both must outlive this.
    CardDrawing(const Localizer& localizer, std::function<void(const std::string&)> notice);

    /// Starts a child that gets ready to draw these, while this process goes on.
    void prepare(std::vector<CardPicture> pictures);

    /// Fills the pixels with one of the prepared pictures. False: it can't be drawn, or takes too long; a prepared one
    /// may have waited too long, so preparing it again is worth a try.
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
