// Milliseconds from the start of a command to the moment at which it last changed an X11 screen, which it is given two
// seconds for. The X server tells of every drawing, so that watching takes no time from the command.
// Usage: bench_start_to_screen COMMAND [ARGUMENT…]
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/damage.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>
#include <vector>

#include "platform/foundation/release_with.h"

namespace orvel {
namespace {

using Clock = std::chrono::steady_clock;
template <class Message>
using Owned = std::unique_ptr<Message, ReleaseWith<std::free>>;
constexpr std::chrono::seconds patience{2};

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "bench_start_to_screen: %s\n", what);
    std::exit(1);
}

class Screen {
public:
    Screen() : connection_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(connection_)) fail("no X server answers");
        screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        const auto* const extension = xcb_get_extension_data(connection_, &xcb_damage_id);
        if (!extension->present) fail("the server can't tell of drawings");
        const Owned<xcb_damage_query_version_reply_t> version(
            xcb_damage_query_version_reply(connection_, xcb_damage_query_version(connection_, 1, 1), nullptr));
        damage_ = xcb_generate_id(connection_);
        xcb_damage_create(connection_, damage_, screen_->root, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen() { xcb_disconnect(connection_); }

    /// Whether something was drawn since this was last asked.
    bool wasDrawnOn() {
        bool drawn = false;
        while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) drawn = true;
        if (drawn) {
            xcb_damage_subtract(connection_, damage_, XCB_NONE, XCB_NONE);
            xcb_flush(connection_);
        }
        return drawn;
    }

    std::vector<unsigned char> pixels() const {
        const Owned<xcb_get_image_reply_t> image(
            xcb_get_image_reply(connection_,
                                xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root, 0, 0,
                                              screen_->width_in_pixels, screen_->height_in_pixels, ~0U),
                                nullptr));
        if (!image) fail("the server doesn't show its screen");
        const unsigned char* const bytes = xcb_get_image_data(image.get());
        return {bytes, bytes + xcb_get_image_data_length(image.get())};
    }

private:
    xcb_connection_t* connection_;
    xcb_screen_t* screen_;
    xcb_damage_damage_t damage_;
};

double measure(char** command) {
    Screen screen;
    auto shown = screen.pixels();
    screen.wasDrawnOn();
    const auto began = Clock::now();
    auto changed = began;
    pid_t process = 0;
    if (::posix_spawnp(&process, command[0], nullptr, nullptr, command, environ) != 0) fail("the command can't start");
    while (Clock::now() - began < patience) {
        const auto now = Clock::now();
        if (!screen.wasDrawnOn()) {
            std::this_thread::sleep_for(std::chrono::microseconds(500));
        } else if (auto pixels = screen.pixels(); pixels != shown) {
            shown = std::move(pixels);
            changed = now;
        }
    }
    ::kill(process, SIGTERM);
    ::waitpid(process, nullptr, 0);
    if (changed == began) fail("the command shows nothing");
    return std::chrono::duration<double, std::milli>(changed - began).count();
}

}  // namespace
}  // namespace orvel

int main(int argumentCount, char** arguments) {
    if (argumentCount < 2) orvel::fail("which command?");
    std::printf("%.1f\n", orvel::measure(arguments + 1));
}
