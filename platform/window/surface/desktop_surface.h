// A surface of the desktop, as large as a card: without decoration, focus or task-bar entry; clicks pass through it
// unless a handler is set. It asks for its pixels when it needs them, at the output's scale, and survives changes of
// the outputs.
#pragma once

#include <functional>
#include <string>

#include "platform/foundation/pixel_buffer.h"
#include "platform/window/surface/placement.h"

namespace orvel {

struct SurfaceRequest {
    double width = 0;  ///< points, as are the others
    double height = 0;
    double cornerRadius = 0;  ///< outside this shape the content is transparent
    Placement placement;
    std::string program;  ///< the name by which the window system knows the program
    std::string title;    ///< the content in words

    /// Fills the whole buffer, which is transparent at first. False: it could not be drawn, and what is shown stays.
    std::function<bool(const PixelBuffer&)> draw;
    /// Called for a click with the first button; absent: clicks go to the window below.
    std::function<void()> clicked = {};
};

class DesktopSurface {
public:
    virtual ~DesktopSurface() = default;

    /// To be called when the content has changed. It is drawn when the window system is ready for it.
    virtual void contentChanged(const std::string& title) = 0;

    /// Moves it on the same output and layer.
    virtual void move(Anchor anchor, Margin margin) = 0;
};

}  // namespace orvel
