// The lines that the text engine made, as the painter takes them. Private to this folder.
#pragma once

#include <vector>

#include "platform/render/handles.h"

namespace orvel {

struct ShapedText {
    std::vector<ObjectPtr<PangoLayout>> paragraphs;
    std::vector<PangoLayoutLine*> lines;  ///< top to bottom; they belong to the paragraphs
};

}  // namespace orvel
