#include "designer/page_files.h"

#include <algorithm>
#include <array>

// The list and the bytes are made from the files of page/.
#define ORVEL_PAGE_FILE(bytes, path, type) extern "C" const char bytes[], bytes##End[];
#include "page_files.inc"
#undef ORVEL_PAGE_FILE

namespace orvel::designer {

const PageFile* pageFile(std::string_view path) {
#define ORVEL_PAGE_FILE(bytes, path, type) PageFile{path, type, {bytes, bytes##End}},
    static const std::array files{
#include "page_files.inc"
    };
#undef ORVEL_PAGE_FILE
    const auto found = std::ranges::find(files, path, &PageFile::path);
    return found == files.end() ? nullptr : &*found;
}

}  // namespace orvel::designer
