// A Wayland compositor on a thread of its own that does as a test says and remembers what a client asked. It has one
// client: the next connection of this process.
#pragma once

#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>
#include <wayland-server.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <future>
#include <map>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

extern "C" {
extern const wl_interface wp_fractional_scale_manager_v1_interface, wp_viewporter_interface, xdg_wm_base_interface,
    zwlr_layer_shell_v1_interface;
}

namespace orvel::test {

class FakeCompositor {
public:
    struct Offers {
        bool layerShell = true;
        bool fractionalScales = false;
        bool plasmaShell = false;
    };

    /// The client's requests, oldest first: "wl_surface.attach", with what a test may want to know behind it.
    std::vector<std::string> requests;
    /// What exists now, by interface, oldest first.
    std::map<std::string, std::vector<wl_resource*>> objects;
    bool answersFrames = true;
    bool closesAtOnce = false;  ///< every layer surface as soon as it is configured
    std::uint32_t preferredScale = 120;

    explicit FakeCompositor(Offers offers) : display_(wl_display_create()), wake_(::eventfd(0, EFD_NONBLOCK)) {
        wl_display_init_shm(display_);
        offer(wl_compositor_interface, 4);
        offer(xdg_wm_base_interface, 1);
        if (offers.layerShell) offer(zwlr_layer_shell_v1_interface, 4);
        if (offers.fractionalScales) {
            offer(wp_viewporter_interface, 1);
            offer(wp_fractional_scale_manager_v1_interface, 1);
        }
        static const wl_interface plasmaShell{"org_kde_plasma_shell", 1, 0, nullptr, 0, nullptr};
        if (offers.plasmaShell) offer(plasmaShell, 1);
        int ends[2];
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) std::abort();
        client_ = wl_client_create(display_, ends[0]);
        ::setenv("WAYLAND_SOCKET", std::to_string(ends[1]).c_str(), 1);
        wakeSource_ =
            wl_event_loop_add_fd(wl_display_get_event_loop(display_), wake_, WL_EVENT_READABLE, perform, this);
    }
    ~FakeCompositor() {
        if (thread_.joinable()) {
            on([this] { wl_display_terminate(display_); });
            thread_.join();
        }
        wl_event_source_remove(wakeSource_);
        wl_display_destroy_clients(display_);
        wl_display_destroy(display_);
        ::close(wake_);
    }

    void start() {
        thread_ = std::thread([this] { wl_display_run(display_); });
    }

    /// Runs on the compositor's thread; returns when it has.
    void on(std::function<void()> task) {
        std::packaged_task<void()> packaged(std::move(task));
        auto done = packaged.get_future();
        task_ = std::move(packaged);
        ::eventfd_write(wake_, 1);
        done.get();
    }

    // The rest is for before `start`, or for tasks.

    struct Output {
        std::string name;
        int scale;
        wl_global* global = nullptr;
    };
    Output* addOutput(std::string name, int scale) {
        auto* const output = new Output{std::move(name), scale};  // as long-lived as the display that may name it
        output->global = wl_global_create(display_, &wl_output_interface, 4, output,
                                          [](wl_client* client, void* data, std::uint32_t version, std::uint32_t id) {
                                              const auto& self = *static_cast<Output*>(data);
                                              wl_resource* const resource = wl_resource_create(
                                                  client, &wl_output_interface, static_cast<int>(version), id);
                                              wl_resource_set_dispatcher(resource, ignore, nullptr, nullptr, nullptr);
                                              wl_resource_post_event(resource, 0, 0, 0, 0, 0, 0, "", "", 0);
                                              wl_resource_post_event(resource, 1, 1u, 1280, 800, 60000);
                                              wl_resource_post_event(resource, 3, self.scale);
                                              wl_resource_post_event(resource, 4, self.name.c_str());
                                              wl_resource_post_event(resource, 2);
                                          });
        outputs_.emplace_back(output);
        return output;
    }
    void removeOutput(Output* output) { wl_global_destroy(std::exchange(output->global, nullptr)); }

    std::size_t count(std::string_view request) const {
        return static_cast<std::size_t>(
            std::ranges::count_if(requests, [&](const std::string& each) { return each.starts_with(request); }));
    }
    wl_resource* newest(const std::string& interface) { return objects[interface].back(); }
    void destroyClient() { wl_client_destroy(client_); }

private:
    void offer(const wl_interface& interface, int version) {
        struct Global {
            FakeCompositor* self;
            const wl_interface* interface;
        };
        auto* const global = new Global{this, &interface};
        globals_.emplace_back(global, [](void* each) { delete static_cast<Global*>(each); });
        wl_global_create(display_, &interface, version, global,
                         [](wl_client* client, void* data, std::uint32_t bound, std::uint32_t id) {
                             const auto& it = *static_cast<Global*>(data);
                             it.self->add(wl_resource_create(client, it.interface, static_cast<int>(bound), id));
                         });
    }

    void add(wl_resource* resource) {
        objects[wl_resource_get_class(resource)].push_back(resource);
        wl_resource_set_dispatcher(resource, dispatch, nullptr, this, [](wl_resource* gone) {
            auto* const self = static_cast<FakeCompositor*>(wl_resource_get_user_data(gone));
            std::erase(self->objects[wl_resource_get_class(gone)], gone);
        });
    }

    static int ignore(const void*, void* target, std::uint32_t, const wl_message* message, wl_argument*) {
        if (message->name == std::string_view("release")) wl_resource_destroy(static_cast<wl_resource*>(target));
        return 0;
    }

    static int dispatch(const void*, void* target, std::uint32_t, const wl_message* message, wl_argument* arguments) {
        auto* const resource = static_cast<wl_resource*>(target);
        static_cast<FakeCompositor*>(wl_resource_get_user_data(resource))->handle(resource, *message, arguments);
        return 0;
    }

    void handle(wl_resource* resource, const wl_message& message, wl_argument* arguments) {
        std::string request = std::string(wl_resource_get_class(resource)) + "." + message.name;
        int index = 0;
        for (const char type : std::string_view(message.signature)) {
            if (type == '?' || (type >= '0' && type <= '9')) continue;
            if (type == 'i' || type == 'u') request += " " + std::to_string(arguments[index].i);
            if (type == 's') request += std::string(" ") + arguments[index].s;
            if (type == 'n')
                add(wl_resource_create(wl_resource_get_client(resource), message.types[index],
                                       wl_resource_get_version(resource), arguments[index].n));
            ++index;
        }
        const bool isDestruction = message.name == std::string_view("destroy");
        if (request.starts_with("wl_surface.attach")) {
            wl_shm_buffer* const pixels = wl_shm_buffer_get(reinterpret_cast<wl_resource*>(arguments[0].o));
            request += " " + std::to_string(wl_shm_buffer_get_width(pixels));
            attached_ = true;
            if (shown_) wl_resource_post_event(shown_, 0);
            shown_ = reinterpret_cast<wl_resource*>(arguments[0].o);
        }
        if (request.starts_with("wp_fractional_scale_manager_v1.get"))
            wl_resource_post_event(newest("wp_fractional_scale_v1"), 0, preferredScale);
        if (request.starts_with("wl_surface.commit")) committed();
        requests.push_back(std::move(request));
        if (isDestruction) {
            if (wl_resource_get_class(resource) == std::string_view("wl_surface")) attached_ = false, shown_ = nullptr;
            wl_resource_destroy(resource);
        }
    }

    void committed() {
        if (attached_) {
            auto& frames = objects["wl_callback"];
            while (answersFrames && !frames.empty()) finishFrame();
            return;
        }
        if (!objects["zwlr_layer_surface_v1"].empty()) {
            wl_resource_post_event(newest("zwlr_layer_surface_v1"), 0, 1u, 170u, 170u);
            if (closesAtOnce) wl_resource_post_event(newest("zwlr_layer_surface_v1"), 1);
        } else if (!objects["xdg_surface"].empty()) {
            wl_resource_post_event(newest("xdg_surface"), 0, 1u);
        }
    }

public:
    /// Tells the client that the frame it waits for has come.
    void finishFrame() {
        wl_resource* const callback = objects["wl_callback"].front();
        wl_resource_post_event(callback, 0, 0u);
        wl_resource_destroy(callback);
    }

private:
    static int perform(int descriptor, std::uint32_t, void* data) {
        eventfd_t count;
        ::eventfd_read(descriptor, &count);
        auto& self = *static_cast<FakeCompositor*>(data);
        self.task_();
        return 0;
    }

    wl_display* display_;
    int wake_;
    wl_event_source* wakeSource_;
    wl_client* client_;
    std::vector<std::unique_ptr<Output>> outputs_;
    std::vector<std::unique_ptr<void, void (*)(void*)>> globals_;
    bool attached_ = false;
    wl_resource* shown_ = nullptr;
    std::packaged_task<void()> task_;
    std::thread thread_;
};

}  // namespace orvel::test
