#include "designer/state_json.h"

#include <charconv>
#include <cmath>

#include "authoring/contrast.h"
#include "authoring/warnings.h"
#include "designer/countdown_json.h"
#include "format/hex_color.h"
#include "model/widget_fields.h"
#include "model/widget_spec_json.h"
#include "platform/foundation/json_writer.h"
#include "platform/foundation/unicode.h"
#include "views/card_color.h"

namespace orvel::designer {
namespace {

// A card's words, for whoever can't see it: as many as can ever show of them.
std::string shownWords(const std::string& words) {
    constexpr std::size_t most = 2000;
    const auto shown = unicode::prefix(words, most);
    return std::string(shown) + (shown.size() < words.size() ? "…" : "");
}

void writeDesigns(json::Writer& writer, const Workbench& workbench, const std::vector<std::string>& versions,
                  const CardPictures& pictures) {
    constexpr std::size_t longestTitle = 200;
    writer.key("designs").beginArray();
    for (std::size_t i = 0; i < versions.size(); ++i) {
        const WidgetSpec& spec = workbench.designs()[i];
        writer.beginObject().key("id").string(spec.id);
        writer.key("title").string(unicode::onOneLine(unicode::prefix(spec.title, longestTitle)));
        writer.key("followsClock").boolean(shows(spec.kind, WidgetField::targetISO8601));
        writer.key("words").string(shownWords(pictures.words(spec)));
        writer.key("version").string(versions[i]).endObject();
    }
    writer.endArray();
}

std::string members(json::Writer& writer) {
    const std::string object = writer.endObject().finish().value_or("{}");
    return object.substr(1, object.size() - 2);
}

const char* word(Conflict conflict) {
    switch (conflict) {
        case Conflict::none: return "";
        case Conflict::changed: return "changed";
        case Conflict::removed: return "removed";
    }
    return "";
}

// What the card takes for the accent, and how well it shows.
void writeAccent(json::Writer& writer, const WidgetSpec& spec) {
    const auto parsed = HexColor::hexString(spec.accentHex);
    const Color color = parsed.value_or(Color::accentColor);
    writer.key("accent").beginObject();
    writer.key("colour").string(hexText(color).substr(0, 7));
    writer.key("contrast").number(std::floor(contrast(color, cardBackground) * 10) / 10).endObject();
}

void writeDraft(json::Writer& writer, const Workbench& workbench, const CardPictures& pictures, const Symbols& symbols,
                const Platform& platform) {
    const WidgetSpec& draft = workbench.draft();
    writer.key("draft").beginObject();
    writer.key("revision").integer(static_cast<std::int64_t>(workbench.revisions().last()));
    writer.key("isNew").boolean(workbench.isNew());
    writer.key("isUnsaved").boolean(workbench.isUnsaved());
    writer.key("conflict").string(word(workbench.conflict()));
    writer.key("record");
    WidgetSpecJSON::write(writer, draft);
    writer.key("shows").beginArray();
    for (const WidgetField field : shownFields(draft.kind)) writer.string(name(field));
    writer.endArray();
    writeAccent(writer, draft);
    if (draft.kind == WidgetKind::countdown) writer.key("countdown").raw(countdownJson(draft, platform));
    writer.key("warnings").beginArray();
    for (const auto& [field, text, name, values] : warnings(draft, symbols)) {
        writer.beginObject().key("field").string(field).key("text").string(text).key("name").string(name);
        writer.key("values").beginArray();
        for (const std::string& value : values) writer.string(value);
        writer.endArray().endObject();
    }
    writer.endArray();
    writer.key("words").string(shownWords(pictures.words(draft))).endObject();
}

}  // namespace

std::string version(const WidgetSpec& spec) {
    const std::size_t hash = std::hash<std::string>()(WidgetSpecJSON::encode(spec).value_or(""));
    char digits[2 * sizeof hash];
    const auto end = std::to_chars(digits, digits + sizeof digits, hash, 16).ptr;
    return {digits, end};
}

std::string storeMembers(const Workbench& workbench, const std::vector<std::string>& versions,
                         const CardPictures& pictures) {
    json::Writer writer;
    writer.beginObject();
    writeDesigns(writer, workbench, versions, pictures);
    writer.key("trouble").string(workbench.trouble());
    writer.key("undo").string(workbench.undoable().value_or(""));
    return members(writer);
}

std::string draftMembers(const Workbench& workbench, const CardPictures& pictures, const Symbols& symbols,
                         const Platform& platform) {
    json::Writer writer;
    writer.beginObject();
    writeDraft(writer, workbench, pictures, symbols, platform);
    return members(writer);
}

}  // namespace orvel::designer
