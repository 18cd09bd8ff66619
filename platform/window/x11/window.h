// One X11 window of the desktop and its pixels. Private to this folder.
#pragma once

#include <string>

#include "platform/window/surface/desktop_surface.h"
#include "platform/window/x11/stacking.h"

namespace orvel {

enum class Transparency {
    blended,  ///< a compositing manager blends the pixels with what is below
    cut       ///< none does: the window has the content's rounded shape
};

class X11Window {
public:
    X11Window(X11Stacking& stacking, const SurfaceRequest& request, Keeper keeper, Transparency transparency,
              double scale, PixelRect area);
    ~X11Window();
    X11Window(const X11Window&) = delete;

    void setTitle(const std::string& title);
    void move(int xPx, int yPx);

    /// Asks for the pixels and passes them to the server, which from then on repaints by itself.
    void draw(const SurfaceRequest& request);

    xcb_window_t id() const { return id_; }
    const PixelRect& area() const { return area_; }

private:
    enum class Clicks { passThrough, taken };
    void shape(double cornerRadiusPx, Transparency transparency, Clicks clicks);
    void takeClicks();

    X11Stacking& stacking_;
    X11Display& display_;
    double scale_;
    PixelRect area_;
    std::uint8_t depth_;
    xcb_colormap_t colormap_;
    xcb_window_t id_;
    xcb_gcontext_t graphics_;
};

}  // namespace orvel
