// What the server answers: the page's files, the state, pictures, symbols, and the operations of the workbench. Pages
// hear of every change, whoever makes it.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "designer/access.h"
#include "designer/body.h"
#include "designer/card_pictures.h"
#include "designer/feeds/feed_desk.h"
#include "designer/http/request.h"
#include "designer/http/response.h"
#include "designer/editing/workbench.h"
#include "platform/foundation/platform.h"
#include "platform/symbols/symbols.h"

namespace orvel::designer {

/// Whether somebody sees a page. Browsers drop pages that nobody has seen for long, and load them again on return.
enum class Presence { shown, hidden, left };

class Service {
public:
    struct Hooks {
        std::function<void(const std::string& event, const std::string& data)> tell;  ///< all pages
        std::function<void()> keepSoon;                                               ///< calls `keep` after the answer
        std::function<void(Presence)> present;                                        ///< a page says how it is
    };

    Service(CardPictures pictures, FeedDesk& feeds, Hooks hooks, const Platform& platform);

    HttpResponse answer(const HttpRequest& request);
    /// The files have changed.
    void look();
    /// Makes safe what was typed.
    void keep();

    Access access;
    std::uint16_t port = 0;

private:
    HttpResponse get(const HttpRequest& request);
    HttpResponse post(const HttpRequest& request, const Body& body);
    HttpResponse state(const HttpRequest& request, const std::vector<FieldRefusal>& refusals = {});
    HttpResponse stored(const HttpRequest& request) const;
    HttpResponse card(const HttpRequest& request) const;
    HttpResponse found(const HttpRequest& request) const;
    HttpResponse present(const Body& body) const;
    HttpResponse share() const;
    HttpResponse paste(const HttpRequest& request, const Body& body);
    HttpResponse desktop() const;
    HttpResponse changeDesktop(const HttpRequest& request, const Body& body) const;
    HttpResponse changeFeeds(const HttpRequest& request, const Body& body);
    HttpResponse type(const HttpRequest& request, const Body& body);
    void noticeAll();
    /// Pages are told when these members, or the draft's, aren't what they know.
    void notice(std::string store);
    std::string stampText() const { return std::to_string(stamp_); }

    const Platform& platform_;
    CardPictures pictures_;
    FeedDesk& feeds_;
    Hooks hooks_;
    Workbench workbench_;
    Symbols symbols_;
    // The state as pages know it, or are being told.
    std::string toldStore_;
    std::string toldDraft_;
    std::map<std::string, std::size_t, std::less<>> versions_;  ///< which of the stored designs has it
    std::uint64_t stamp_ = 1;
    std::string keepingFailed_;
};

}  // namespace orvel::designer
