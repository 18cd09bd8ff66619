// What a scene is drawn on.
#pragma once

namespace orvel {

enum class Target {
    pixels,   ///< glyphs at quarter-pixel positions, baselines on whole pixels
    outlines  ///< a vector format: text stays text as far as the format has it
};

}  // namespace orvel
