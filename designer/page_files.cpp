#include "designer/page_files.h"

#include <algorithm>
#include <array>

// In page_files.S.
extern "C" const char orvelPageIndex[], orvelPageIndexEnd[];
extern "C" const char orvelPageStyle[], orvelPageStyleEnd[];
extern "C" const char orvelPageMain[], orvelPageMainEnd[];
extern "C" const char orvelPageServer[], orvelPageServerEnd[];
extern "C" const char orvelPageForm[], orvelPageFormEnd[];
extern "C" const char orvelPageDesigns[], orvelPageDesignsEnd[];
extern "C" const char orvelPageSymbols[], orvelPageSymbolsEnd[];
extern "C" const char orvelPageTarget[], orvelPageTargetEnd[];
extern "C" const char orvelPageIcon[], orvelPageIconEnd[];

namespace orvel::designer {

const PageFile* pageFile(std::string_view path) {
    constexpr std::string_view script = "text/javascript; charset=utf-8";
    static const std::array files{
        PageFile{"/", "text/html; charset=utf-8", {orvelPageIndex, orvelPageIndexEnd}},
        PageFile{"/style.css", "text/css; charset=utf-8", {orvelPageStyle, orvelPageStyleEnd}},
        PageFile{"/main.js", script, {orvelPageMain, orvelPageMainEnd}},
        PageFile{"/server.js", script, {orvelPageServer, orvelPageServerEnd}},
        PageFile{"/form.js", script, {orvelPageForm, orvelPageFormEnd}},
        PageFile{"/designs.js", script, {orvelPageDesigns, orvelPageDesignsEnd}},
        PageFile{"/symbols.js", script, {orvelPageSymbols, orvelPageSymbolsEnd}},
        PageFile{"/target.js", script, {orvelPageTarget, orvelPageTargetEnd}},
        PageFile{"/icon.svg", "image/svg+xml", {orvelPageIcon, orvelPageIconEnd}},
    };
    const auto found = std::ranges::find(files, path, &PageFile::path);
    return found == files.end() ? nullptr : &*found;
}

}  // namespace orvel::designer
