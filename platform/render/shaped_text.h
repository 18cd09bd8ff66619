// The text engine's lines in the form that the painter draws. Private to this folder.
#pragma once

#include <vector>

#include "platform/render/handles.h"

namespace orvel {

struct ShapedText {
    std::vector<ObjectPtr<PangoLayout>> paragraphs;
    std::vector<PangoLayoutLine*> lines;  ///< top to bottom; they belong to the paragraphs
};

}  // namespace orvel
