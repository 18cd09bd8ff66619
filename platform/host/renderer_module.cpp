#include "platform/host/renderer_module.h"

#include <dlfcn.h>

#include <system_error>
#include <thread>

namespace orvel {
namespace {

// The program's run path tells where it lies.
constexpr const char* moduleFile = "orvel-renderer.so";

// One of the module's libraries takes as long to read its configuration as all of them take to load, and can do it
// meanwhile. When that can't be had, it reads it later.
std::jthread startFontConfiguration() {
    void* const library = ::dlopen("libfontconfig.so.1", RTLD_LAZY | RTLD_LOCAL);
    void* const function = library ? ::dlsym(library, "FcInit") : nullptr;
    if (!function) return {};
    try {
        return std::jthread(reinterpret_cast<int (*)()>(function));
    } catch (const std::system_error&) {
        return {};
    }
}

}  // namespace

Result<std::unique_ptr<Renderer>, NoRenderer> loadRenderer() {
    auto fonts = startFontConfiguration();
    void* const module = ::dlopen(moduleFile, RTLD_LAZY | RTLD_LOCAL);
    void* const function = module ? ::dlsym(module, "orvelMakeRenderer") : nullptr;
    if (!function) return NoRenderer{::dlerror()};
    if (fonts.joinable()) fonts.join();
    const auto make = reinterpret_cast<Renderer* (*)() noexcept>(function);
    std::unique_ptr<Renderer> renderer(make());
    if (!renderer) return NoRenderer{"out of memory"};
    return renderer;
}

}  // namespace orvel
