#include "platform/host/renderer_module.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>
#include <thread>
#include <vector>

#include "platform/foundation/installation.h"
#include "platform/foundation/text_list.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

constexpr const char* moduleFile = "orvel-renderer.so";

// In the build folder, the module lies beside the program; installed, it lies in a folder of Orvel's own.
std::vector<std::filesystem::path> modulePlaces() {
    return {installedPrograms() / moduleFile, installedPrefix() / ORVEL_MODULES / moduleFile};
}

Result<void*, NoRenderer> loadModule() {
    for (const auto& place : modulePlaces()) {
        std::error_code code;
        if (!std::filesystem::exists(place, code)) continue;
        if (void* const module = ::dlopen(place.c_str(), RTLD_LAZY | RTLD_LOCAL)) return module;
        return NoRenderer{::dlerror()};
    }
    std::vector<std::string> folders;
    for (const auto& place : modulePlaces()) folders.push_back(place.parent_path().string());
    return NoRenderer{sentence("{0} isn't in {1}", moduleFile, alternatives(folders))};
}

// One of the libraries (Fontconfig) takes as long to read its configuration as all of them take to load, and can do so
// in parallel. If no thread can be started, it reads the configuration later.
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
    const auto module = loadModule();
    if (!module) return module.failure();
    void* const function = ::dlsym(*module, "orvelMakeRenderer");
    if (!function) return NoRenderer{::dlerror()};
    if (fonts.joinable()) fonts.join();
    const auto make = reinterpret_cast<Renderer* (*)() noexcept>(function);
    std::unique_ptr<Renderer> renderer(make());
    if (!renderer) return NoRenderer{sentence("out of memory")};
    return renderer;
}

}  // namespace orvel
