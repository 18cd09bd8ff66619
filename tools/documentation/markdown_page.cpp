#include <algorithm>
#include <vector>

#include "platform/foundation/unicode.h"
#include "tools/documentation/documentation.h"
#include "tools/documentation/roff.h"

namespace orvel::tools {
namespace {

std::string inlined(std::string_view text);

// The text from `begin` to the next `end`; empty when there is none.
std::string_view upTo(std::string_view text, std::size_t begin, std::string_view end) {
    const auto found = text.find(end, begin);
    return found == text.npos ? std::string_view() : text.substr(begin, found - begin);
}

// Mark-up at the start of a text: its length, and its form on the page. The length is 0 when there is none.
struct MarkUp {
    std::size_t length = 0;
    std::string page = {};
};

MarkUp markUp(std::string_view text) {
    for (const std::string_view sign : {"`", "**", "*"}) {
        if (!text.starts_with(sign)) continue;
        const std::string_view inside = upTo(text, sign.size(), sign);
        if (inside.empty() || inside.front() == ' ') return {};
        return {inside.size() + 2 * sign.size(), sign == "*" ? roff::italic(inside) : roff::bold(inside)};
    }
    if (text.starts_with('[')) {
        const std::string_view shown = upTo(text, 1, "](");
        const std::string_view address = upTo(text, shown.size() + 3, ")");
        if (!shown.empty() && !address.empty()) return {shown.size() + address.size() + 4, inlined(shown)};
    }
    return {};
}

std::string inlined(std::string_view text) {
    std::string page;
    std::size_t plain = 0;
    for (std::size_t at = 0; at < text.size();) {
        const auto [length, marked] = markUp(text.substr(at));
        if (length > 0) page += roff::escaped(text.substr(plain, at - plain)) + marked;
        at += std::max<std::size_t>(length, 1);
        if (length > 0) plain = at;
    }
    return page + roff::escaped(text.substr(plain));
}

// "| a | b |" as its cells.
std::vector<std::string> cells(std::string_view line) {
    std::vector<std::string> cells;
    for (std::size_t at = line.find('|') + 1; at < line.size();) {
        const auto end = std::min(line.find('|', at), line.size());
        cells.emplace_back(unicode::trimmingWhitespace(line.substr(at, end - at)));
        at = end + 1;
    }
    return cells;
}

// The length of the sign that begins an item of a list, with its blank: "- " or "1. ". It is 0 when there is none.
std::size_t itemSign(std::string_view line) {
    if (line.starts_with("- ")) return 2;
    const auto digits = std::min(line.find_first_not_of("0123456789"), line.size());
    return digits > 0 && line.substr(digits).starts_with(". ") ? digits + 2 : 0;
}

class Reader {
public:
    explicit Reader(std::string_view markdown) {
        while (!markdown.empty()) {
            const auto end = std::min(markdown.find('\n'), markdown.size());
            lines_.push_back(markdown.substr(0, end));
            markdown.remove_prefix(std::min(end + 1, markdown.size()));
        }
    }

    std::string page() {
        std::string page;
        while (at_ < lines_.size()) page += block();
        return page;
    }

private:
    std::string block() {
        const std::string_view line = lines_[at_];
        if (line.empty() || line.starts_with("# ")) return ++at_, "";  // the page has its own title
        if (line.starts_with("## ")) return ++at_, roff::section(unicode::uppercased(line.substr(3)));
        if (line.starts_with("### ")) return ++at_, roff::subsection(line.substr(4));
        if (line.starts_with("```")) return fenced();
        if (line.starts_with("    ")) return indented();
        if (line.starts_with("|")) return table();
        if (const auto sign = itemSign(line)) return item(sign);
        return roff::paragraph(inlined(joinedLines(0)));
    }

    std::string fenced() {
        std::string code;
        for (++at_; at_ < lines_.size() && !lines_[at_].starts_with("```"); ++at_) add(code, lines_[at_]);
        ++at_;
        return roff::verbatim(code);
    }

    std::string indented() {
        std::string code;
        for (; at_ < lines_.size() && lines_[at_].starts_with("    "); ++at_) add(code, lines_[at_].substr(4));
        return roff::verbatim(code);
    }

    // The first column heads the entries, of three columns with the second in brackets; the last one explains.
    std::string table() {
        std::string page;
        for (at_ += 2; at_ < lines_.size() && lines_[at_].starts_with('|'); ++at_) {
            const auto row = cells(lines_[at_]);
            std::string heading = inlined(row.front());
            if (row.size() > 2) heading += " (" + inlined(row[1]) + ")";
            page += roff::entry(heading, inlined(row.back()));
        }
        return page;
    }

    std::string item(std::size_t sign) {
        const std::string_view mark = lines_[at_].substr(0, sign - 1);
        const std::string tag = mark == "-" ? "\\(bu 2" : std::string(mark) + " 4";
        return ".IP " + tag + "\n" + inlined(joinedLines(sign)) + "\n";
    }

    // This line without its first characters, and those that go on with it.
    std::string joinedLines(std::size_t skipped) {
        std::string text(lines_[at_].substr(skipped));
        const auto opensBlock = [](std::string_view line) {
            return line.empty() || line.starts_with('#') || line.starts_with("```") || line.starts_with('|') ||
                   itemSign(line) > 0;
        };
        for (++at_; at_ < lines_.size() && !opensBlock(lines_[at_]); ++at_)
            text += ' ' + std::string(unicode::trimmingWhitespace(lines_[at_]));
        return text;
    }

    static void add(std::string& code, std::string_view line) { code.append(line).append("\n"); }

    std::vector<std::string_view> lines_;
    std::size_t at_ = 0;
};

}  // namespace

std::string manualPage(const PageTitle& title, std::string_view markdown) {
    const std::string head = roff::title(title.name, title.section, title.version, "File Formats", title.summary);
    const std::string end = roff::section("SEE ALSO") + roff::bold(title.name) + "(1)\n";
    return roff::withoutEmptyParagraphs(head + roff::section("DESCRIPTION") + Reader(markdown).page() + end);
}

}  // namespace orvel::tools
