// The session's window system: its monitors, and one connection for all of this process's surfaces.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/window/surface/desktop_surface.h"

namespace orvel {

struct Output {
    std::string name;
    PixelRect area = {};  ///< of all outputs together
    double scale = 1;
    bool primary = false;  ///< the main one, where the window system or its user says so
    double roomWidth = 0;  ///< points that panels leave free; 0 while that isn't known
    double roomHeight = 0;
};

struct NoDisplay {
    std::string reason;
};

class WindowSystem {
public:
    virtual ~WindowSystem() = default;

    struct Handlers {
        std::function<void()> outputsChanged;  ///< the result of `outputs` has changed
        /// One sentence for a person, such as why surfaces are plain windows.
        std::function<void(const std::string&)> notice;
        /// The window system has gone away, with one line that says so; absent when a person closed a surface's window.
        std::function<void(std::optional<std::string> why)> ended;
    };

    /// From now on, the loop with which it was opened handles its events.
    virtual void serve(Handlers handlers) = 0;

    virtual std::vector<Output> outputs() const = 0;

    /// Finds out how much of each output is usable, if that isn't known yet; `outputsChanged` is called soon after.
    virtual void findRooms() {}

    /// It must be destroyed before the window system.
    virtual std::unique_ptr<DesktopSurface> open(SurfaceRequest request) = 0;
};

}  // namespace orvel
