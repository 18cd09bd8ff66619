// The files that a browser loads. They are part of the program.
#pragma once

#include <string_view>

namespace orvel::designer {

struct PageFile {
    std::string_view path;  ///< as it is asked for: "/", "/page.js"
    std::string_view type;
    std::string_view bytes;
};

/// Null when there is no such file.
const PageFile* pageFile(std::string_view path);

}  // namespace orvel::designer
