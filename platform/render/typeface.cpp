#include "platform/render/typeface.h"

namespace orvel {
namespace {

int widthOf(const std::string& text, const Typeface& face) {
    int width = 0;
    pango_layout_get_size(face.shaped(text).get(), &width, nullptr);
    return width;
}

}  // namespace

double points(int pangoUnits) {
    return static_cast<double>(pangoUnits) / PANGO_SCALE;
}

std::string_view textOf(const PangoLayoutLine& line) {
    std::string_view text(pango_layout_get_text(line.layout) + line.start_index, static_cast<std::size_t>(line.length));
    if (text.ends_with(lineSeparator)) text.remove_suffix(lineSeparator.size());
    return text;
}

Typeface::Typeface(PangoContext* context, const Font& font)
    : context_(context), description_(pango_font_description_new()) {
    pango_font_description_set_family_static(description_.get(), systemFont);
    pango_font_description_set_weight(description_.get(), static_cast<PangoWeight>(font.weight));
    pango_font_description_set_absolute_size(description_.get(), font.size * PANGO_SCALE);
}

ObjectPtr<PangoLayout> Typeface::shaped(const std::string& text, std::optional<std::size_t> mark) const {
    ObjectPtr<PangoLayout> layout(pango_layout_new(context_));
    pango_layout_set_font_description(layout.get(), description_.get());
    if (mark) {
        // Any attribute ends the run before it.
        PangoAttribute* const attribute = pango_attr_fallback_new(TRUE);
        attribute->start_index = static_cast<unsigned>(*mark);
        const PangoAttrListPtr attributes(pango_attr_list_new());
        pango_attr_list_insert(attributes.get(), attribute);
        pango_layout_set_attributes(layout.get(), attributes.get());
    }
    pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
    return layout;
}

const Typeface::Marks& Typeface::marks() const {
    if (!marks_) marks_ = {widthOf(ellipsisMark, *this), widthOf(hyphenMark, *this), widthOf("        ", *this)};
    return *marks_;
}

}  // namespace orvel
