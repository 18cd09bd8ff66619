// A text without line breaks of its own, shaped once, then broken into lines of any width. Private to this folder.
#pragma once

#include <limits>
#include <string>
#include <vector>

#include "platform/render/boundaries.h"
#include "platform/render/typeface.h"

namespace orvel {

class Paragraph {
public:
    static constexpr int unbounded = std::numeric_limits<int>::max();

    struct Lines {
        ObjectPtr<PangoLayout> layout;  ///< as many lines as the paragraph takes
        std::string text;               ///< what they show
        bool cut = false;
    };

    /// The typeface must outlive the paragraph. The text is valid UTF-8.
    Paragraph(std::string text, const Typeface& typeface);

    /// At most that many lines, each within `bound` Pango units or of one letter. When there is more text, the last
    /// line ends in an ellipsis. Blanks at the end of a line are left out.
    Lines lines(int bound, int mostLines, bool moreFollows);

private:
    struct Character {
        std::size_t byte;
        int width;
        bool blank;
        bool tab;
    };
    struct Line {
        std::size_t first;
        std::size_t end;   // of what it shows
        std::size_t next;  // where the next line begins
        enum class Mark { none, hyphen, ellipsis } mark = Mark::none;
    };

    void measure();
    void measureClusters();
    int advance(int from, const Character& character) const;
    std::size_t lineEnd(std::size_t first, int bound, std::size_t furthest) const;
    std::size_t lineEndAlone(std::size_t first, int bound, std::size_t furthest) const;
    bool canEndInside(const Line& line) const;
    std::size_t cutEnd(std::size_t first, int bound, std::size_t furthest) const;
    std::vector<Line> split(int bound, int mostLines, bool moreFollows, const std::vector<std::size_t>& furthest) const;
    Lines shaped(const std::vector<Line>& lines) const;

    const Typeface& typeface_;
    std::string text_;
    ObjectPtr<PangoLayout> oneLine_;
    // Made when the text has to be broken.
    std::vector<Character> characters_;
    std::vector<Boundary> boundaries_;
};

}  // namespace orvel
