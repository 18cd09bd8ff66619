#include "tools/documentation/roff.h"

#include <algorithm>
#include <cstdio>

#include "platform/foundation/unicode.h"

namespace orvel::tools::roff {
namespace {

// Takes the first character, of one byte or several, off a valid text.
char32_t takeCharacter(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t length = byte(0) < 0x80 ? 1 : byte(0) < 0xE0 ? 2 : byte(0) < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? byte(0) : byte(0) & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) character = character << 6 | (byte(i) & 0x3FU);
    text.remove_prefix(length);
    return character;
}

}  // namespace

std::string escaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const char32_t character = takeCharacter(text);
        switch (character) {
            case '\\': result += "\\(rs"; break;
            case '-': result += "\\-"; break;
            case '\'': result += "\\(aq"; break;
            case '"': result += "\\(dq"; break;
            case '`': result += "\\(ga"; break;
            case '^': result += "\\(ha"; break;
            case '~': result += "\\(ti"; break;
            case '.': result += result.empty() ? "\\&." : "."; break;
            default:
                if (character < 0x80) {
                    result += static_cast<char>(character);
                } else {
                    char name[16];
                    std::snprintf(name, sizeof name, "\\[u%04X]", static_cast<unsigned>(character));
                    result += name;
                }
        }
    }
    return result;
}

std::string bold(std::string_view text) {
    return "\\fB" + escaped(text) + "\\fR";
}

std::string italic(std::string_view text) {
    return "\\fI" + escaped(text) + "\\fR";
}

std::string title(std::string_view name, int manualSection, std::string_view version, std::string_view manual,
                  std::string_view summary) {
    return ".TH \"" + escaped(unicode::uppercased(name)) + "\" " + std::to_string(manualSection) + " \"\" \"" +
           escaped(version) + "\" \"" + escaped(manual) + "\"\n" + section("NAME") + escaped(name) + " \\- " +
           escaped(summary) + "\n";
}

std::string section(std::string_view name) {
    return ".SH \"" + escaped(name) + "\"\n";
}

std::string subsection(std::string_view name) {
    return ".SS \"" + escaped(name) + "\"\n";
}

std::string paragraph(const std::string& text) {
    return ".PP\n" + text + "\n";
}

std::string entry(const std::string& heading, const std::string& text) {
    return ".TP\n" + heading + "\n" + text + "\n";
}

std::string verbatim(std::string_view lines) {
    std::string result = ".PP\n.RS 4\n.nf\n";
    while (!lines.empty()) {
        const auto end = std::min(lines.find('\n'), lines.size());
        result += escaped(lines.substr(0, end)) + "\n";
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
    return result + ".fi\n.RE\n";
}

std::string withoutEmptyParagraphs(std::string_view page) {
    std::string result;
    bool followsHeading = false;
    while (!page.empty()) {
        const std::string_view line = page.substr(0, std::min(page.find('\n'), page.size() - 1) + 1);
        if (!followsHeading || line != ".PP\n") result += line;
        followsHeading = line.starts_with(".SH") || line.starts_with(".SS");
        page.remove_prefix(line.size());
    }
    return result;
}

}  // namespace orvel::tools::roff
