#include "platform/render/cairo_renderer.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <cmath>
#include <map>
#include <regex>

#include "platform/foundation/iso8601.h"
#include "platform/png/png_file.h"
#include "platform/render/font_report.h"
#include "platform/render/handles.h"
#include "platform/render/painter.h"
#include "platform/render/pango_text_engine.h"
#include "platform/render/svg_text.h"
#include "platform/symbols/symbols.h"

namespace orvel {
namespace {

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

void paintCards(cairo_t* cr, const Picture& picture, Painter& painter, Target target) {
    for (const Picture::Card& card : picture.cards) {
        cairo_save(cr);
        cairo_translate(cr, card.origin.x, card.origin.y);
        painter.paint(cr, card.scene, picture.cornerRadius, target);
        cairo_restore(cr);
    }
}

Result<std::string, PictureFailure> finished(cairo_status_t status, std::string bytes) {
    if (status != CAIRO_STATUS_SUCCESS) return PictureFailure{cairo_status_to_string(status)};
    return bytes;
}

Result<std::string, PictureFailure> document(CairoSurfacePtr surface, const std::string& bytes, const Picture& picture,
                                             Painter& painter) {
    {
        const CairoPtr cr(cairo_create(surface.get()));
        paintCards(cr.get(), picture, painter, Target::outlines);
        if (const auto status = cairo_status(cr.get())) return finished(status, {});
    }
    cairo_surface_finish(surface.get());
    return finished(cairo_surface_status(surface.get()), bytes);
}

// Cairo numbers surfaces and images for the lifetime of the process; here the numbers begin anew in each document.
std::string renumbered(const std::string& svg) {
    static const std::regex id("([\"#](?:surface|image))([0-9]+)");
    std::map<std::string, std::size_t> numbers;
    std::string result;
    auto copied = svg.begin();
    for (std::sregex_iterator match(svg.begin(), svg.end(), id), end; match != end; ++match) {
        const auto number = numbers.try_emplace(match->str(2), numbers.size()).first->second;
        result.append(copied, (*match)[2].first);
        result += std::to_string(number);
        copied = (*match)[2].second;
    }
    return result.append(copied, svg.end());
}

class CairoRenderer final : public Renderer {
public:
    TextEngine& text() override { return text_; }
    const SymbolSet& symbols() const override { return symbols_; }
    FontReport fonts() const override { return reportFonts("Inter"); }

    bool paint(const Picture& picture, const PixelBuffer& pixels) override {
        const CairoSurfacePtr surface(cairo_image_surface_create_for_data(
            pixels.bytes, CAIRO_FORMAT_ARGB32, pixels.widthPx, pixels.heightPx, pixels.strideBytes));
        const CairoPtr cr(cairo_create(surface.get()));
        cairo_scale(cr.get(), pixels.scale, pixels.scale);
        paintCards(cr.get(), picture, painter_, Target::pixels);
        cairo_surface_flush(surface.get());
        return cairo_status(cr.get()) == CAIRO_STATUS_SUCCESS;
    }

    Result<std::string, PictureFailure> png(const Picture& picture, double scale) override {
        const int widthPx = static_cast<int>(std::lround(picture.size.width * scale));
        const int heightPx = static_cast<int>(std::lround(picture.size.height * scale));
        const CairoSurfacePtr surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, widthPx, heightPx));
        const CairoPtr cr(cairo_create(surface.get()));
        cairo_scale(cr.get(), scale, scale);
        paintCards(cr.get(), picture, painter_, Target::pixels);
        if (const auto status = cairo_status(cr.get())) return finished(status, {});

        cairo_surface_flush(surface.get());
        auto bytes = pngFile({cairo_image_surface_get_data(surface.get()), widthPx, heightPx,
                              cairo_image_surface_get_stride(surface.get())});
        if (!bytes) return PictureFailure{bytes.failure().reason};
        return *std::move(bytes);
    }

    Result<std::string, PictureFailure> svg(const Picture& picture, SvgText text) override {
        std::string bytes;
        CairoSurfacePtr surface(
            cairo_svg_surface_create_for_stream(append, &bytes, picture.size.width, picture.size.height));
        cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PX);
        auto drawn = document(std::move(surface), bytes, picture, painter_);
        if (!drawn) return drawn;
        std::string svg = renumbered(*drawn);
        if (text == SvgText::selectable) svg.insert(svg.rfind("</svg>"), svgText(picture));
        return svg;
    }

    Result<std::string, PictureFailure> pdf(const Picture& picture, Date created) override {
        std::string bytes;
        CairoSurfacePtr surface(
            cairo_pdf_surface_create_for_stream(append, &bytes, picture.size.width, picture.size.height));
        cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, iso8601::format(created).c_str());
        return document(std::move(surface), bytes, picture, painter_);
    }

private:
    PangoTextEngine text_;
    Symbols symbols_;
    Painter painter_{symbols_};
};

}  // namespace

std::unique_ptr<Renderer> makeCairoRenderer() {
    return std::make_unique<CairoRenderer>();
}

}  // namespace orvel
