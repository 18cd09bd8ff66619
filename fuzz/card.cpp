// Any store, and any values in a design's fields, all the way to pixels: nothing crashes, every frame is finite.
#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "fuzz/expect.h"
#include "model/widget_fields.h"
#include "platform/host/card.h"
#include "platform/render/cairo_renderer.h"
#include "tests/support/fakes.h"
#include "widget/orvel_widget.h"

using namespace orvel;

namespace {

// Pieces of many scripts, marks, joiners, controls, directions, bytes that aren't UTF-8, and repetitions.
std::string text(FuzzedDataProvider& bytes) {
    static constexpr std::array pieces{
        "word",   " ",      "\n",     "\t",     "\r\n",       "\x1B",       "\u00AD", "\u00A0",   "\u0301",
        "\u0345", "ß",      "Ω",      "Ж",      "א",          "\u05B8",     "خبز",    "\u0640",   "नि",
        "\u094D", "நி",     "ไทย",    "\u0F71", "ကြ",         "\u1100",     "\u1161", "각",       "ខ្មែ",
        "\u200B", "\u200D", "\u202E", "\u2028", "\u2066",     "牛乳",       "\uFB01", "\uFE0F",   "ｱ",
        "🥑",   "👩",      "🏽",   "🇩",      "\U000E0061", "\U0010FFFD", "\xFF",   "\xE2\x82", "\xED\xA0\x80"};
    std::string made;
    std::string last;
    for (int count = bytes.ConsumeIntegralInRange(0, 24); count > 0; --count) {
        const auto choice = bytes.ConsumeIntegralInRange<std::size_t>(0, pieces.size() + 1);
        if (choice < pieces.size())
            last = pieces[choice];
        else if (choice == pieces.size())
            last = bytes.ConsumeRandomLengthString(16);
        else
            for (int i = bytes.ConsumeIntegral<std::uint8_t>(); i > 0; --i) made += last;
        made += last;
    }
    return made;
}

double number(FuzzedDataProvider& bytes) {
    static constexpr std::array<double, 13> special{0.0,    -0.0, 1.0,  0.5,      0.9999999999, 1e-300, 1e300,
                                                    -1e300, 9e18, -1.0, INFINITY, -INFINITY,    NAN};
    return bytes.ConsumeBool() ? bytes.PickValueInArray(special) : bytes.ConsumeFloatingPoint<double>();
}

void fill(std::string& field, FuzzedDataProvider& bytes) {
    field = text(bytes);
}

void fill(double& field, FuzzedDataProvider& bytes) {
    field = number(bytes);
}

void fill(Date& field, FuzzedDataProvider& bytes) {
    field = {number(bytes)};
}

void fill(WidgetKind& field, FuzzedDataProvider& bytes) {
    field = bytes.PickValueInArray(allWidgetKinds);
}

void fill(std::vector<std::string>& field, FuzzedDataProvider& bytes) {
    for (int i = bytes.ConsumeIntegralInRange(0, 8); i > 0; --i) field.push_back(text(bytes));
}

template <class Value>
void fill(std::optional<Value>& field, FuzzedDataProvider& bytes) {
    if (bytes.ConsumeBool()) fill(field.emplace(), bytes);
}

WidgetSpec design(FuzzedDataProvider& bytes, const Platform& platform) {
    WidgetSpec spec({.title = "", .kind = {}}, platform);
    forEachWidgetField([&](const auto& row) { fill(row.in(spec), bytes); });
    if (bytes.ConsumeBool()) spec.symbol = "flag.fill";
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
