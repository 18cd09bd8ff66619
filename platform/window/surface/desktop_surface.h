// One card-sized surface of the desktop: without decoration, focus or task-bar entry, and without answer to clicks
// unless somebody wants them. It asks for its pixels when it needs them, at the output's scale, and survives whatever
// happens to outputs.
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
    /// A click with the first button; absent: clicks go to what lies below.
    std::function<void()> clicked = {};
};

class DesktopSurface {
public:
    virtual ~DesktopSurface() = default;

    /// The content is another one now. It is drawn when the window system is ready for it.
    virtual void contentChanged(const std::string& title) = 0;

    /// Moves it on the same output and layer.
    virtual void move(Anchor anchor, Margin margin) = 0;
};

}  // namespace orvel
