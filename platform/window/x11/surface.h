// A desktop surface on X11: a window while its monitor is there. Private to this folder.
#pragma once

#include <memory>
#include <set>

#include "platform/window/x11/window.h"

namespace orvel {

class X11Surface final : public DesktopSurface {
public:
    using Register = std::set<X11Surface*>;

    /// What the surfaces of one connection share.
    struct Surroundings {
        X11Stacking& stacking;
        const std::vector<X11Monitor>& monitors;  ///< those that are there now
        const std::optional<PixelRect>& workArea;
        const double& scale;
        const Transparency& transparency;
        const Keeper& keeperBelow;  ///< of what is to be below the windows
        Register& surfaces;         ///< those that exist
    };

    X11Surface(const Surroundings& surroundings, SurfaceRequest request);
    ~X11Surface() override;
    X11Surface(const X11Surface&) = delete;

    void contentChanged(const std::string& title) override;
    void move(Anchor anchor, Margin margin) override;

    /// Moves the window to its present place, or removes it when it has none.
    void arrange();
    /// Makes a new window, as changes of the scale, the visual or the keeper require.
    void replace();

    /// Null while there is none.
    X11Window* window() { return window_.get(); }
    void click() { request_.clicked(); }

private:
    Keeper keeper() const;
    std::optional<PixelRect> area() const;

    SurfaceRequest request_;
    Surroundings surroundings_;
    std::unique_ptr<X11Window> window_;
};

}  // namespace orvel
