// Draws the launcher's icon in the sizes of the hicolor theme, as the page shows it: a card's corner with four tiles.
// Usage: orvel-icon FOLDER   (below it: 16x16/apps/orvel.png and so on, scalable/apps/orvel.svg)
#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "platform/render/cairo_renderer.h"
#include "platform/ui/renderer.h"

namespace orvel {
namespace {

constexpr double side = 32;  // points

Picture icon() {
    constexpr Color ground{0x16 / 255.0, 0x16 / 255.0, 0x19 / 255.0};
    constexpr Color first{0x0A / 255.0, 0x84 / 255.0, 1};
    constexpr Color others{1, 1, 1, 0.55};
    const auto tile = [](double x, double y, Color color) {
        return Mark{.frame = {{x, y}, {11, 11}}, .content = SymbolMark{"square.fill", color}};
    };
    Scene scene{
        {side, side}, ground, {tile(5, 5, first), tile(16, 5, others), tile(5, 16, others), tile(16, 16, others)}};
    return {{side, side}, 8, {{{0, 0}, std::move(scene)}}};
}

bool write(const std::filesystem::path& folder, const std::string& name,
           const Result<std::string, PictureFailure>& bytes) {
    if (!bytes) return false;
    std::filesystem::create_directories(folder / "apps");
    return static_cast<bool>(std::ofstream(folder / "apps" / name, std::ios::binary) << *bytes << std::flush);
}

bool drawAll(const std::filesystem::path& folder) {
    const auto renderer = makeCairoRenderer();
    bool isDone = write(folder / "scalable", "orvel.svg", renderer->svg(icon(), SvgText::none));
    for (const int px : {16, 22, 24, 32, 48, 64, 96, 128, 192, 256, 512}) {
        const std::string size = std::to_string(px);
        isDone = write(folder / (size + 'x' + size), "orvel.png", renderer->png(icon(), px / side)) && isDone;
    }
    return isDone;
}

}  // namespace
}  // namespace orvel

int main(int argc, char** argv) {
    if (argc == 2 && orvel::drawAll(argv[1])) return 0;
    std::cerr << "orvel-icon: the icons aren't drawn; it takes a folder that can be written to\n";
    return 1;
}
