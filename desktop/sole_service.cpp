#include "desktop/sole_service.h"

#include <algorithm>
#include <cstdlib>

namespace orvel {
namespace {

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

}  // namespace

std::variant<Descriptor, OtherProcess> becomeSoleService() {
    std::string display = variable("WAYLAND_DISPLAY").empty() ? variable("DISPLAY") : variable("WAYLAND_DISPLAY");
    std::replace(display.begin(), display.end(), '/', '-');
    return becomeSole("orvel-desktop-" + display);
}

}  // namespace orvel
