// One card after another on the same surface, as a host with a warm engine draws them: from the design to pixels, from
// the design to marks, and as the floor what Cairo takes for nothing but a card's rounded rectangle.
#include <benchmark/benchmark.h>
#include <cairo.h>

#include <memory>
#include <numbers>
#include <string>

#include "authoring/sample_designs.h"
#include "bench/ratios.h"
#include "platform/foundation/iso8601.h"
#include "platform/host/card.h"
#include "platform/render/painter.h"
#include "platform/render/pango_text_engine.h"
#include "platform/symbols/symbols.h"
#include "platform/ui/gettext_localizer.h"
#include "widget/orvel_widget.h"

namespace orvel::bench {
namespace {

struct Case {
    std::string name;
    std::optional<WidgetSpec> spec;  // absent: the empty state
    WidgetFamily family;
    double scale = 2;  // pixels to the point
};

std::optional<WidgetSpec> listOf(std::size_t items) {
    WidgetSpec spec(sampleDesign(WidgetKind::list));
    spec.items = std::vector<std::string>(items, "Sourdough bread");  // the record itself keeps to no limit
    return spec;
}

std::vector<Case> allCases() {
    std::vector<Case> cases;
    for (const auto family : allWidgetFamilies) {
        const std::string size = family == WidgetFamily::systemSmall ? "/small" : "/medium";
        for (const auto kind : WidgetSpec::allCases)
            cases.push_back({std::string(rawValue(kind)) + size, WidgetSpec(sampleDesign(kind)), family});
        cases.push_back({"empty" + size, std::nullopt, family});
    }
    // How the cost grows.
    for (const int scale : {1, 2, 4, 8})
        cases.push_back({"scale/" + std::to_string(scale), WidgetSpec(sampleDesign(WidgetKind::metric)),
                         WidgetFamily::systemMedium, static_cast<double>(scale)});
    for (const std::size_t items : {1, 2, 5, 100, 10'000, 1'000'000})
        cases.push_back({"items/" + std::to_string(items), listOf(items), WidgetFamily::systemSmall});
    return cases;
}

// What a host keeps from card to card.
class Host {
public:
    Scene scene(const Case& card) {
        const View view = OrvelWidget::content({clock_.now(), card.spec}, platform_);
        return cardScene(view, card.family, {text_, localizer_}, symbols_);
    }

    void paint(cairo_t* context, const Scene& scene) { painter_.paint(context, scene, cornerRadius, Target::pixels); }

private:
    FixedClock clock_{*iso8601::dateTime("2026-01-01T09:00:00Z")};
    Platform platform_{clock_, Platform::system().files, Platform::system().accounts, Platform::system().timeZone,
                       Platform::system().identities};
    PangoTextEngine text_;
    GettextLocalizer localizer_{GettextLocalizer::installedDirectory()};
    Symbols symbols_;
    Painter painter_{symbols_};
};

Host& host() {
    static Host host;
    return host;
}

class Canvas {
public:
    explicit Canvas(const Case& card)
        : scale_(card.scale),
          surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32,
                                              static_cast<int>(displaySize(card.family).width * scale_),
                                              static_cast<int>(displaySize(card.family).height * scale_))) {}
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() { cairo_surface_destroy(surface_); }

    /// Clears the surface and draws on it, in points.
    template <class Draw>
    bool draw(Draw draw) {
        cairo_t* const context = cairo_create(surface_);
        cairo_set_operator(context, CAIRO_OPERATOR_CLEAR);
        cairo_paint(context);
        cairo_set_operator(context, CAIRO_OPERATOR_OVER);
        cairo_scale(context, scale_, scale_);
        draw(context);
        const bool succeeded = cairo_status(context) == CAIRO_STATUS_SUCCESS;
        cairo_destroy(context);
        return succeeded;
    }

private:
    double scale_;
    cairo_surface_t* surface_;
};

void fillRoundedRectangle(cairo_t* context, Size size, double radius) {
    constexpr double quarter = std::numbers::pi / 2;
    cairo_arc(context, size.width - radius, radius, radius, -quarter, 0);
    cairo_arc(context, size.width - radius, size.height - radius, radius, 0, quarter);
    cairo_arc(context, radius, size.height - radius, radius, quarter, 2 * quarter);
    cairo_arc(context, radius, radius, radius, 2 * quarter, 3 * quarter);
    cairo_close_path(context);
    cairo_set_source_rgb(context, 0.1, 0.1, 0.1);
    cairo_fill(context);
}

void draw(benchmark::State& state, const Case& card) {
    Canvas canvas(card);
    const auto drawCard = [&](cairo_t* context) { host().paint(context, host().scene(card)); };
    canvas.draw(drawCard);  // shapes the texts and keeps their glyphs
    for (auto _ : state)
        if (!canvas.draw(drawCard)) state.SkipWithError("the card wasn't drawn");
}

void layOutOnly(benchmark::State& state, const Case& card) {
    host().scene(card);
    for (auto _ : state) benchmark::DoNotOptimize(host().scene(card));
}

void fillOnly(benchmark::State& state, const Case& card) {
    Canvas canvas(card);
    const auto fill = [&](cairo_t* context) { fillRoundedRectangle(context, displaySize(card.family), cornerRadius); };
    for (auto _ : state)
        if (!canvas.draw(fill)) state.SkipWithError("the rectangle wasn't drawn");
}

void add(const char* subject, const Case& card, void (*measure)(benchmark::State&, const Case&)) {
    benchmark::RegisterBenchmark((subject + ('/' + card.name)).c_str(), [=](benchmark::State& state) {
        measure(state, card);
    })->Unit(benchmark::kMicrosecond);
}

}  // namespace
}  // namespace orvel::bench

int main(int argc, char** argv) {
    using namespace orvel::bench;
    for (const auto& card : allCases()) {
        add("draw", card, draw);
        add("layout", card, layOutOnly);
        add("floor", card, fillOnly);
    }
    return runAndCompare(argc, argv, "draw");
}
