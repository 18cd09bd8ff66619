// Any store, and any values in a design's fields, all the way to pixels: nothing crashes, every frame is finite.
#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "fuzz/expect.h"
#include "platform/host/card.h"
#include "platform/render/cairo_renderer.h"
#include "tests/support/fakes.h"
#include "widget/orvel_widget.h"

using namespace orvel;

namespace {

std::string utf8(std::uint32_t point) {
    const auto tail = [&](int shift) { return static_cast<char>(0x80 | (point >> shift & 0x3F)); };
    if (point < 0x80) return {static_cast<char>(point)};
    if (point < 0x800) return {static_cast<char>(0xC0 | point >> 6), tail(0)};
    if (point < 0x10000) return {static_cast<char>(0xE0 | point >> 12), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | point >> 18), tail(12), tail(6), tail(0)};
}

// Pieces of many scripts, marks, controls and formatting characters, bytes that aren't UTF-8, and repetitions.
std::string text(FuzzedDataProvider& bytes) {
    static constexpr std::array<std::uint32_t, 24> blocks{
        0x00,   0x80,   0x250,  0x300,  0x400,  0x590,  0x600,  0x900,  0xB80,  0xE00,  0xF00,   0x1000,
        0x1100, 0x1780, 0x1E00, 0x2000, 0x4E00, 0xAC00, 0xD7B0, 0xFB00, 0xFE00, 0xFF00, 0x1F300, 0xE0000};
    std::string made;
    std::string last;
    for (int pieces = bytes.ConsumeIntegralInRange(0, 24); pieces > 0; --pieces) {
        const auto choice = bytes.ConsumeIntegral<std::uint8_t>();
        const auto detail = bytes.ConsumeIntegral<std::uint8_t>();
        if (choice % 32 < blocks.size())
            last = utf8(blocks[choice % 32] + detail);
        else if (choice % 32 == 31)
            last = std::string(1, static_cast<char>(detail));
        else if (choice % 32 == 30)
            last = utf8(0x1F1E6 + detail % 26);
        else if (choice % 32 == 29)
            for (int i = 0; i < detail; ++i) made += last;
        else
            last = bytes.ConsumeRandomLengthString(16);
        made += last;
    }
    return made;
}

std::optional<std::string> optionalText(FuzzedDataProvider& bytes) {
    if (!bytes.ConsumeBool()) return std::nullopt;
    return text(bytes);
}

double number(FuzzedDataProvider& bytes) {
    static constexpr std::array<double, 13> special{0.0,    -0.0, 1.0,  0.5,      0.9999999999, 1e-300, 1e300,
                                                    -1e300, 9e18, -1.0, INFINITY, -INFINITY,    NAN};
    return bytes.ConsumeBool() ? bytes.PickValueInArray(special) : bytes.ConsumeFloatingPoint<double>();
}

WidgetSpec design(FuzzedDataProvider& bytes, const Platform& platform) {
    WidgetSpec spec({.id = "A", .title = text(bytes), .kind = bytes.PickValueInArray(WidgetSpec::allCases)}, platform);
    spec.accentHex = text(bytes);
    spec.symbol = bytes.ConsumeBool() ? "flag.fill" : text(bytes);
    spec.primary = optionalText(bytes);
    spec.secondary = optionalText(bytes);
    if (bytes.ConsumeBool()) {
        spec.items.emplace();
        for (int i = bytes.ConsumeIntegralInRange(0, 8); i > 0; --i) spec.items->push_back(text(bytes));
    }
    if (bytes.ConsumeBool()) spec.progress = number(bytes);
    spec.targetISO8601 = optionalText(bytes);
    spec.createdAt = Date{number(bytes)};
    return spec;
}

struct Studio {
    std::unique_ptr<Renderer> renderer = makeCairoRenderer();
    KeysThemselves localizer;
    std::array<unsigned char, 4 * 64 * 64> pixels;
};

void draw(const View& view, FuzzedDataProvider& bytes) {
    static Studio& studio = *new Studio;
    const LayoutContext context{studio.renderer->text(), studio.localizer};
    // The host's two sizes, and what no host has: none, less than none, and as far as numbers go.
    static constexpr std::array sides{170.0, 364.0, 0.0, -1.0, 1.0, 33.0, -1e300, 1e9, 1e300};
    const bool hosted = bytes.ConsumeBool();
    const Scene scene =
        hosted ? cardScene(view, bytes.PickValueInArray(allWidgetFamilies), context, studio.renderer->symbols())
               : makeScene(view, {bytes.PickValueInArray(sides), bytes.PickValueInArray(sides)},
                           bytes.PickValueInArray(sides), context, studio.renderer->symbols());
    for (const Mark& mark : scene.marks) {
        const auto& [origin, size] = mark.frame;
        for (const double length : {origin.x, origin.y, size.width, size.height, mark.rotationDegrees})
            fuzz::expect(std::isfinite(length), "frames are finite");
        fuzz::expect(size.width >= 0 && size.height >= 0, "no frame is smaller than none");
        if (const auto* words = std::get_if<TextMark>(&mark.content))
            fuzz::expect(words->font.size > 0 && words->lines > 0 && std::isfinite(words->baseline),
                         "texts have lines");
    }
    const double scale = bytes.ConsumeFloatingPointInRange(0.05, 8.0);
    studio.pixels.fill(0);
    studio.renderer->paint({scene.size, cornerRadius, {{{0, 0}, scene}}},
                           {studio.pixels.data(), 64, 64, 4 * 64, scale});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    FuzzedDataProvider bytes(data, size);
    test::FakeMachine machine;
    WidgetEntry entry{machine.clock.now(), std::nullopt};
    const bool stored = bytes.ConsumeBool();
    const std::string settings = bytes.ConsumeBytesAsString(stored ? 16 : 0);
    if (stored) {
        machine.storedList() = bytes.ConsumeRemainingBytesAsString();
        entry = Provider().placeholder({}, machine.platform);
    } else {
        entry.spec = design(bytes, machine.platform);
    }
    const View view = OrvelWidget::content(entry, machine.platform);
    FuzzedDataProvider rest(reinterpret_cast<const unsigned char*>(settings.data()), settings.size());
    draw(view, stored ? rest : bytes);
    return 0;
}
