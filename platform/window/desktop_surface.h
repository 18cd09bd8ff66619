// One card-sized surface of the desktop: without decoration, focus, task-bar entry or answer to clicks. It asks for its
// pixels when it needs them, at the output's scale, and survives whatever happens to outputs.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/foundation/result.h"
#include "platform/window/event_loop.h"
#include "platform/foundation/pixel_buffer.h"
#include "platform/window/placement.h"

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
    /// One sentence for a person, such as why the surface is a plain window.
    std::function<void(const std::string&)> notice;
    /// The window system has gone away, with one line that says so; absent when a person closed the window.
    std::function<void(std::optional<std::string> why)> ended;
};

class DesktopSurface {
public:
    virtual ~DesktopSurface() = default;

    /// The content is another one now. It is drawn when the window system is ready for it.
    virtual void contentChanged(const std::string& title) = 0;
};

struct NoDisplay {
    std::string reason;
};

/// On Wayland a layer surface; without layer shell a window of the X server beside it, or a plain window. On X11 a
/// window under the others. The handlers are called from the loop.
Result<std::unique_ptr<DesktopSurface>, NoDisplay> openDesktopSurface(SurfaceRequest request, EventLoop& loop);

struct Output {
    std::string name;
    int widthPx = 0;
    int heightPx = 0;
    double scale = 1;
};

/// The monitors of the window system that `openDesktopSurface` would use.
Result<std::vector<Output>, NoDisplay> listOutputs();

}  // namespace orvel
