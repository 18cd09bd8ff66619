// Owners for the C libraries' handles. Private to this folder.
#pragma once

#include <cairo.h>
#include <pango/pangocairo.h>

#include <memory>

#include "platform/foundation/release_with.h"

namespace orvel {

using CairoPtr = std::unique_ptr<cairo_t, ReleaseWith<cairo_destroy>>;
using CairoSurfacePtr = std::unique_ptr<cairo_surface_t, ReleaseWith<cairo_surface_destroy>>;
using CairoFontOptionsPtr = std::unique_ptr<cairo_font_options_t, ReleaseWith<cairo_font_options_destroy>>;
using PangoAttrListPtr = std::unique_ptr<PangoAttrList, ReleaseWith<pango_attr_list_unref>>;
using PangoFontDescriptionPtr = std::unique_ptr<PangoFontDescription, ReleaseWith<pango_font_description_free>>;

/// For handles that are GLib objects.
template <class Object>
using ObjectPtr = std::unique_ptr<Object, ReleaseWith<g_object_unref>>;

}  // namespace orvel
