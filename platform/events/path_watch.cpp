#include "platform/events/path_watch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <deque>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/events/back_off.h"
#include "platform/events/timer.h"
#include "platform/foundation/descriptor.h"

namespace orvel {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto quiet = 20ms;
constexpr auto longestBurst = 200ms;

// Events that say that a name on the way now leads elsewhere. They are watched on the file itself, not on its folder,
// so that a busy home folder doesn't wake the process. (In a folder, changes of attributes would report every entry; on
// a file or a link, they also report that its last name is gone.)
constexpr std::uint32_t gone = IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::uint32_t itself = gone | IN_ATTRIB;
constexpr std::uint32_t names = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;

/// Adds the watches that one path needs as things stand.
class Route {
public:
    explicit Route(int inotify) : inotify_(inotify) {}

    void follow(const fs::path& path) {
        if (path.is_absolute() && walk(path)) watchDestination();
    }

    /// False when the system had no room for a watch.
    bool isComplete() const { return isComplete_; }

private:
    void watch(const fs::path& path, std::uint32_t what) {
        if (::inotify_add_watch(inotify_, path.c_str(), what | IN_MASK_ADD) < 0 && (errno == ENOSPC || errno == ENOMEM))
            isComplete_ = false;
    }

    /// False when the way ends before the path does.
    bool walk(const fs::path& path) {
        linksLeft_ = 40;  // as many as the kernel follows
        at_ = "/";
        const fs::path way = path.relative_path();
        ahead_.assign(way.begin(), way.end());
        while (!ahead_.empty())
            if (!step()) return false;
        return true;
    }

    bool step() {
        const fs::path name = ahead_.front();
        if (name.empty() || name == ".") {
            ahead_.pop_front();
            return true;
        }
        const fs::path next = at_ / name;
        std::error_code failed;
        auto status = fs::symlink_status(next, failed);
        if (!fs::exists(status)) {
            watch(at_, gone | names | IN_ONLYDIR);
            status = fs::symlink_status(next, failed);  // made before the watch was there
            if (!fs::exists(status)) return false;
        }
        ahead_.pop_front();
        if (fs::is_symlink(status)) return followLink(next);
        if (!ahead_.empty()) watch(next, gone | IN_ONLYDIR);
        at_ = next;
        return true;
    }

    bool followLink(const fs::path& link) {
        watch(link, itself | IN_DONT_FOLLOW);
        std::error_code failed;
        const fs::path target = fs::read_symlink(link, failed);
        if (failed || --linksLeft_ < 0) return false;
        if (target.is_absolute()) at_ = "/";
        const fs::path way = target.relative_path();
        ahead_.insert(ahead_.begin(), way.begin(), way.end());
        return true;
    }

    void watchDestination() {
        watch(at_, itself | names | IN_CLOSE_WRITE);
        std::error_code failed;
        std::vector<fs::path> links;
        for (fs::directory_iterator entry(at_, failed), end; !failed && entry != end; entry.increment(failed))
            if (std::error_code unreadable; entry->is_symlink(unreadable)) links.push_back(entry->path());
        // Links to files elsewhere; for a link to a folder elsewhere, only whether that still exists.
        for (const fs::path& link : links)
            if (walk(link)) watch(at_, itself | IN_CLOSE_WRITE);
    }

    int inotify_;
    bool isComplete_ = true;
    int linksLeft_ = 0;
    fs::path at_;
    std::deque<fs::path> ahead_;
};

}  // namespace

class PathWatch::State {
public:
    State(EventLoop& loop, std::vector<fs::path> paths, EventLoop::Handler changed)
        : loop_(loop), paths_(std::move(paths)), changed_(std::move(changed)), settled_(loop, [this] { report(); }) {
        watchOrTryLater();
    }

private:
    /// False when one of the system's limits is reached. Without a new descriptor, the old watches stay.
    bool watchAll() {
        Descriptor fresh(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
        if (!fresh) return false;
        Route route(fresh.get());
        for (const fs::path& path : paths_) route.follow(path);
        watch_.emplace(loop_.watch(fresh.get(), [this] { drainEvents(); }));
        inotify_ = std::move(fresh);
        return route.isComplete();
    }

    // What isn't watched may change at any time, so each attempt reports a change.
    void watchOrTryLater() {
        if (watchAll())
            backOff_.reset();
        else
            settled_.set(backOff_.next());
    }

    void drainEvents() {
        alignas(inotify_event) std::array<char, 4096> events;
        while (::read(inotify_.get(), events.data(), events.size()) > 0) {
        }
        const auto now = Clock::now();
        if (!settled_.isSet()) began_ = now;
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(began_ + longestBurst - now);
        settled_.set(std::min<std::chrono::milliseconds>(quiet, left));
    }

    // The watches are renewed before anybody reads the files, so that no change is missed in between.
    void report() {
        watchOrTryLater();
        changed_();
    }

    EventLoop& loop_;
    std::vector<fs::path> paths_;
    EventLoop::Handler changed_;
    DelayTimer settled_;
    BackOff backOff_;
    Clock::time_point began_;
    Descriptor inotify_;
    std::optional<EventLoop::Watch> watch_;
};

PathWatch::PathWatch(EventLoop& loop, std::vector<fs::path> paths, EventLoop::Handler changed)
    : state_(std::make_unique<State>(loop, std::move(paths), std::move(changed))) {}

PathWatch::~PathWatch() = default;

}  // namespace orvel
