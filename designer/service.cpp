#include "designer/service.h"

#include <array>
#include <charconv>

#include "designer/base64.h"
#include "designer/page_files.h"
#include "designer/placing/desktop_json.h"
#include "designer/placing/place_changes.h"
#include "designer/sharing/command_lines.h"
#include "designer/sharing/pasted_design.h"
#include "designer/state_json.h"
#include "designer/symbol_json.h"
#include "desktop/places.h"
#include "platform/foundation/json_writer.h"

namespace orvel::designer {
namespace {

constexpr std::array families{std::pair{"small", WidgetFamily::systemSmall},
                              std::pair{"medium", WidgetFamily::systemMedium}};

constexpr std::string_view feedAddress = "/api/feeds/";

double scaleOf(const HttpRequest& request) {
    constexpr double largest = 8;
    const std::string_view text = request.parameter("scale");
    double scale = 1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), scale);
    return error == std::errc{} && scale >= 1 && scale <= largest ? scale : 1;
}

WidgetFamily familyOf(const HttpRequest& request) {
    return request.parameter("family") == "medium" ? WidgetFamily::systemMedium : WidgetFamily::systemSmall;
}

HttpResponse picture(const Outcome<std::string>& bytes, std::string_view type) {
    if (!bytes) return refusal(500, bytes.failure().reason);
    return {200, std::string(type), *bytes};
}

}  // namespace

Service::Service(CardPictures pictures, FeedDesk& feeds, Hooks hooks, const Platform& platform)
    : platform_(platform),
      pictures_(std::move(pictures)),
      feeds_(feeds),
      hooks_(std::move(hooks)),
      workbench_(platform) {
    noticeAll();
}

HttpResponse Service::answer(const HttpRequest& request) {
    const bool isPost = request.method == "POST";
    if (request.path == "/")
        return isPost ? HttpResponse{200, "text/plain", access.addressForOneVisit(port)} : access.entrance(request);
    const HttpRequest inner = access.withinFolder(request);
    if (!isPost) return get(inner);
    const auto body = readBody(inner.body);
    if (!body) return refusal(400, "the body isn't what this address takes");
    return post(inner, *body);
}

void Service::look() {
    workbench_.look();
    noticeAll();
    hooks_.keepSoon();  // what a feed changed comes in
}

void Service::keep() {
    const auto kept = workbench_.keep();
    const std::string failure = kept ? "" : kept.failure().reason;
    if (failure == keepingFailed_) return;
    keepingFailed_ = failure;
    json::Writer writer;
    hooks_.tell("keeping", writer.beginObject().key("failure").string(failure).endObject().finish().value_or("{}"));
}

HttpResponse Service::get(const HttpRequest& request) {
    if (request.path == "/api/state") {
        noticeAll();  // a countdown says something else each minute
        return state(request);
    }
    if (request.path == "/api/events")
        return {200, "text/event-stream", "event: changed\ndata: " + stampText() + "\n\n", {}, true};
    if (request.path == "/api/stored") return stored(request);
    if (request.path == "/api/card") return card(request);
    if (request.path == "/api/symbols") return found(request);
    if (request.path == "/api/desktop") return desktop();
    if (request.path == "/api/share") return share();
    if (request.path == "/api/feeds") return {200, "application/json", feeds_.json(workbench_.draft().id)};
    const PageFile* const file = pageFile(request.path);
    if (!file) return refusal(404, "there is nothing at this address");
    return {200, std::string(file->type), std::string(file->bytes)};
}

HttpResponse Service::post(const HttpRequest& request, const Body& body) {
    const Unsaved unsaved = body.discards ? Unsaved::discard : Unsaved::refuse;
    Outcome<Done> done = Done{};
    if (request.path == "/api/presence") return present(body);
    if (request.path == "/api/type") return type(request, body);
    if (request.path == "/api/paste") return paste(request, body);
    if (request.path.starts_with("/api/desktop/")) return changeDesktop(request, body);
    if (request.path.starts_with(feedAddress)) return changeFeeds(request, body);
    if (request.path == "/api/new")
        done = workbench_.startNew(unsaved);
    else if (request.path == "/api/edit")
        done = workbench_.edit(body.id, unsaved);
    else if (request.path == "/api/save")
        done = workbench_.save(body.inFront);
    else if (request.path == "/api/keep-mine")
        workbench_.keepMine();
    else if (request.path == "/api/take-theirs")
        done = workbench_.takeTheirs();
    else if (request.path == "/api/duplicate")
        done = workbench_.duplicate(unsaved);
    else if (request.path == "/api/remove")
        done = workbench_.removeDraft();
    else if (request.path == "/api/move")
        done = workbench_.move(body.id, body.to);
    else if (request.path == "/api/undo")
        done = workbench_.undo();
    else
        return refusal(404, "there is nothing at this address");
    noticeAll();
    hooks_.keepSoon();
    if (!done)
        return refusal(done.failure().field == unsavedField || done.failure().field == conflictField ? 409 : 422,
                       done.failure().reason, done.failure().field);
    return state(request);
}

HttpResponse Service::present(const Body& body) const {
    hooks_.present(body.text == "left" ? Presence::left : body.text == "hidden" ? Presence::hidden : Presence::shown);
    return {200, "application/json", "{}"};
}

HttpResponse Service::share() const {
    const auto [set, add] = updateLines(workbench_.draft());
    json::Writer writer;
    writer.beginObject().key("add").string(addLine(workbench_.draft(), platform_));
    writer.key("set").string(set).key("keep").string(add);
    return {200, "application/json", writer.endObject().finish().value_or("{}")};
}

HttpResponse Service::paste(const HttpRequest& request, const Body& body) {
    const auto design = pastedDesign(body.text, platform_);
    if (!design) return refusal(422, design.failure().reason, design.failure().field);
    const auto taken = workbench_.take(design->spec, body.discards ? Unsaved::discard : Unsaved::refuse);
    if (!taken) return refusal(409, taken.failure().reason, taken.failure().field);
    std::vector<FieldRefusal> losses;
    for (const Warning& loss : design->losses) losses.push_back({loss.field, loss.text});
    noticeAll();
    hooks_.keepSoon();
    return state(request, losses);
}

HttpResponse Service::desktop() const {
    const auto places = readPlaces(platform_);
    if (!places) return refusal(422, places.failure().reason, "places");
    return {200, "application/json", desktopJson(monitorsHere(), *places, workbench_.designs())};
}

HttpResponse Service::changeDesktop(const HttpRequest& request, const Body& body) const {
    Outcome<Done> done = Done{};
    if (request.path == "/api/desktop/put")
        done = putPlace(body.text, platform_);
    else if (request.path == "/api/desktop/move")
        done = movePlace(body.id, body.to, platform_);
    else if (request.path == "/api/desktop/remove")
        done = removePlace(body.id, platform_);
    else
        return refusal(404, "there is nothing at this address");
    if (!done) return refusal(422, done.failure().reason, done.failure().field);
    hooks_.tell("desktop", "changed");
    return desktop();
}

HttpResponse Service::changeFeeds(const HttpRequest& request, const Body& body) {
    const std::string_view operation = std::string_view(request.path).substr(feedAddress.size());
    if (workbench_.isNew())
        return refusal(422, "this design isn't stored yet, and a feed keeps a stored one current; save it first",
                       "source");
    const auto done = feeds_.change(operation, body.id, body.text, workbench_.draft());
    look();
    if (!done) return refusal(422, done.failure().reason, done.failure().field);
    return {200, "application/json", feeds_.json(workbench_.draft().id)};
}

HttpResponse Service::type(const HttpRequest& request, const Body& body) {
    if (!workbench_.revisions().isCurrent(body.fields, body.revision))
        return refusal(409, "another window has changed this design", "revision");
    const auto refusals = workbench_.type(body.fields);
    notice(toldStore_);
    hooks_.keepSoon();
    return state(request, refusals);
}

// The page's members of the draft's pictures are there when it says its scale.
HttpResponse Service::state(const HttpRequest& request, const std::vector<FieldRefusal>& refusals) {
    std::string json = "{\"stamp\":" + stampText() + ',' + toldStore_ + ',' + toldDraft_;
    if (!request.parameter("scale").empty()) {
        for (const auto& [word, family] : families) {
            const auto png = pictures_.draw(workbench_.draft(), family, PictureFormat::png, scaleOf(request));
            if (!png) return refusal(500, png.failure().reason);
            json += std::string(",\"") + word + "\":\"" + base64(*png) + '"';
        }
    }
    json::Writer writer;
    writer.beginArray();
    for (const FieldRefusal& refused : refusals)
        writer.beginObject().key("field").string(refused.field).key("text").string(refused.reason).endObject();
    return {200, "application/json", json + ",\"refusals\":" + writer.endArray().finish().value_or("[]") + "}"};
}

HttpResponse Service::stored(const HttpRequest& request) const {
    const auto found = versions_.find(request.parameter("version"));
    if (found == versions_.end()) return refusal(404, "no design is stored in that version");
    const WidgetSpec& spec = workbench_.designs()[found->second];
    return picture(pictures_.draw(spec, familyOf(request), PictureFormat::png, scaleOf(request)), "image/png");
}

HttpResponse Service::card(const HttpRequest& request) const {
    struct Row {
        std::string_view word;
        PictureFormat format;
        std::string_view type;
    };
    static constexpr std::array formats{Row{"png", PictureFormat::png, "image/png"},
                                        Row{"svg", PictureFormat::svg, "image/svg+xml"},
                                        Row{"pdf", PictureFormat::pdf, "application/pdf"}};
    for (const auto& [word, format, type] : formats) {
        if (request.parameter("format") != word) continue;
        auto response = picture(pictures_.draw(workbench_.draft(), familyOf(request), format, scaleOf(request)), type);
        response.headers.emplace_back("Content-Disposition", "attachment; filename=\"card." + std::string(word) + '"');
        return response;
    }
    return refusal(400, "the format is png, svg or pdf", "format");
}

HttpResponse Service::found(const HttpRequest& request) const {
    const std::string_view text = request.parameter("from");
    std::size_t from = 0;
    std::from_chars(text.data(), text.data() + text.size(), from);
    return {200, "application/json", symbolsJson(symbols_, request.parameter("words"), from)};
}

void Service::noticeAll() {
    const auto& designs = workbench_.designs();
    std::vector<std::string> versions;
    for (const WidgetSpec& spec : designs) versions.push_back(version(spec));
    notice(storeMembers(workbench_, versions, pictures_));
    versions_.clear();
    for (std::size_t i = 0; i < versions.size(); ++i) versions_.try_emplace(std::move(versions[i]), i);
}

void Service::notice(std::string store) {
    std::string draft = draftMembers(workbench_, pictures_, symbols_, platform_);
    if (store == toldStore_ && draft == toldDraft_) return;
    toldStore_ = std::move(store);
    toldDraft_ = std::move(draft);
    ++stamp_;
    hooks_.tell("changed", stampText());
}

}  // namespace orvel::designer
