// Finds out how much of an output the panels leave free, with an empty surface that is never shown and asks for all of
// it. Private to this folder.
#pragma once

#include <functional>

#include "platform/window/wayland/display.h"

namespace orvel {

class OutputRoom {
public:
    /// `changed` is called whenever the compositor reports another size.
    OutputRoom(const WaylandDisplay& display, const WaylandOutput& output, std::function<void()> changed);
    OutputRoom(const OutputRoom&) = delete;

    std::uint32_t output() const { return output_; }  ///< its id
    double width() const { return width_; }           ///< points; 0 before the compositor has told
    double height() const { return height_; }

private:
    struct Events;

    std::uint32_t output_;
    std::function<void()> changed_;
    double width_ = 0;
    double height_ = 0;
    WaylandPtr<wl_surface> surface_;
    WaylandPtr<zwlr_layer_surface_v1> layer_;
};

}  // namespace orvel
