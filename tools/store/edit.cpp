#include "tools/store/edit.h"

#include <stdlib.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "authoring/references.h"
#include "authoring/warnings.h"
#include "model/widget_spec_json.h"
#include "platform/language/sentence.h"
#include "tools/core/input_output.h"
#include "tools/store/editor.h"
#include "tools/store/operations.h"

namespace orvel::tools {
namespace {

// A compact record on several lines, for people.
std::string indented(std::string_view json) {
    std::string text;
    std::size_t depth = 0;
    bool isString = false;
    const auto breakLine = [&] { text += '\n' + std::string(2 * depth, ' '); };
    for (std::size_t i = 0; i < json.size(); ++i) {
        const char c = json[i];
        if (isString) {
            if (c == '\\' && json[i + 1] == '/') continue;
            text += c;
            if (c == '\\') text += json[++i];
            isString = c != '"';
        } else if (c == '{' || c == '[') {
            text += c;
            ++depth;
            if (json[i + 1] != '}' && json[i + 1] != ']') breakLine();
        } else if (c == '}' || c == ']') {
            --depth;
            if (json[i - 1] != '{' && json[i - 1] != '[') breakLine();
            text += c;
        } else {
            text += c;
            if (c == ',') breakLine();
            if (c == ':') text += ' ';
            isString = c == '"';
        }
    }
    return text + '\n';
}

// A folder with the file for the editor, which only the person may read. It is deleted, unless the file is kept.
class Draft {
public:
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;
    ~Draft() {
        std::error_code ignored;
        if (!stays_ && !folder_.empty()) std::filesystem::remove_all(folder_, ignored);
    }

    static Outcome<std::unique_ptr<Draft>> with(const std::string& text) {
        std::error_code code;
        std::string folder = (std::filesystem::temp_directory_path(code) / "orvel-edit-XXXXXX").string();
        if (code || !::mkdtemp(folder.data()))
            return Failure{folder + ": " + sentence("can't create: {0}", code ? code.message() : std::strerror(errno))};
        std::unique_ptr<Draft> draft(new Draft(folder));
        std::ofstream stream(draft->file());
        if (!(stream << text << std::flush)) return Failure{draft->file().string() + ": " + sentence("can't write")};
        return draft;
    }

    std::filesystem::path file() const { return folder_ / "design.json"; }

    /// What the person wrote stays, and the failure says where.
    Failure keptWith(Failure failure) {
        stays_ = true;
        failure.reason =
            clauses(failure.reason, sentence("nothing has been changed, and your text stays in {0}", file().string()));
        return failure;
    }

private:
    explicit Draft(std::filesystem::path folder) : folder_(std::move(folder)) {}
    std::filesystem::path folder_;
    bool stays_ = false;
};

struct Edited {
    WidgetSpec spec;
    std::unique_ptr<Draft> draft;
};

// Absent when the person left the text as it was.
Outcome<std::optional<Edited>> edited(const WidgetSpec& original, Console& console) {
    const auto json = WidgetSpecJSON::encode(original);
    if (!json) return Failure{sentence("the design can't be written as JSON")};
    const std::string command = editorCommand();
    const std::string first = indented(*json);
    auto draft = Draft::with(first);
    if (!draft) return draft.failure();
    const std::string file = (*draft)->file().string();
    std::size_t line = 1;
    for (std::string before = first;;) {
        const auto closed = openInEditor(command, file, line);
        const auto text = readInput(file, console);
        if (!closed) return !text || *text == first ? closed.failure() : (*draft)->keptWith(closed.failure());
        if (!text) return text.failure();
        if (*text == first) return std::optional<Edited>();
        auto spec = WidgetSpecJSON::decode(*text);
        if (spec) {
            for (const auto& [index, warning] : unknownMembers(*text)) warn(warning.text, console);
            return std::optional<Edited>({*std::move(spec), *std::move(draft)});
        }

        line = spec.failure().position.line;
        const std::string fault = file + ":" + spec.failure().position.text() + ": " + spec.failure().message();
        if (*text == before) return (*draft)->keptWith({fault});
        before = *text;
        say(fault, console);
        if (console.isInteractive) {
            console.err << "orvel: " << sentence("press Enter to open it again there") << ' ' << std::flush;
            std::string answer;
            if (!std::getline(console.in, answer)) return (*draft)->keptWith({fault});
        }
    }
}

// Where the very same record is now.
std::optional<std::size_t> findAgain(const std::vector<WidgetSpec>& specs, std::size_t index, const WidgetSpec& spec) {
    const auto json = WidgetSpecJSON::encode(spec);
    const auto isSame = [&](const WidgetSpec& other) { return WidgetSpecJSON::encode(other) == json; };
    if (index < specs.size() && isSame(specs[index])) return index;
    const auto found = std::ranges::find_if(specs, isSame);
    if (found == specs.end()) return std::nullopt;
    return static_cast<std::size_t>(found - specs.begin());
}

}  // namespace

Outcome<Done> edit(const std::optional<std::string>& reference, const Platform& platform, Console& console) {
    const auto specs = readDesigns(platform);
    if (!specs) return specs.failure();
    if (specs->empty()) return Failure{sentence("no designs are stored yet; orvel add stores one")};
    const auto index = reference ? findOne(*specs, *reference) : Outcome<std::size_t>(std::size_t{0});
    if (!index) return index.failure();
    const WidgetSpec& original = (*specs)[*index];
    auto result = edited(original, console);
    if (!result) return result.failure();
    if (!*result) return Done{};

    const auto& [spec, draft] = **result;
    const auto designs = openForChange(platform, console);
    if (!designs) return draft->keptWith(designs.failure());
    const auto now = findAgain(designs->specs, *index, original);
    if (!now) return draft->keptWith({sentence("{0} was changed or removed meanwhile", Changes::nameOf(original))});
    const auto change = Changes::replacing(designs->specs, *now, spec);
    if (!change) return draft->keptWith(change.failure());
    const auto saved = saveChange(*designs, *change, platform);
    if (!saved) return draft->keptWith(saved.failure());
    warnAbout(spec, console);
    return report(*saved, console);
}

}  // namespace orvel::tools
