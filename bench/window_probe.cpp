// window_probe: times a program's start-up from outside, on an X display.
//
//   window_probe [--settle MS] [--timeout S] [--shot FILE.png] FOLDER PROGRAM [ARGS...]
//
// Before it starts the program, the probe watches the root window for the
// mapping of top-level windows (SubstructureNotify) and for drawing anywhere on
// the screen (a Damage object on the root window, which also reports drawing in
// every window below it). Then it forks, runs PROGRAM in FOLDER and waits for
//   map    the first top-level window of the program (its _NET_WM_PID) mapped;
//   paint  that window's whole area drawn at least once after the map: the first
//          frame the player sees.
// A window with no background (as Qt's are) shows nothing on the map itself, so
// every bit of drawing counted comes from the program. After the first frame
// the probe waits SETTLE milliseconds (default 200, so that what the program
// does right after its first frame counts towards its memory), optionally saves
// the window's pixels as a PNG file, ends the program with SIGTERM (SIGKILL if
// it lingers) and reads its peak resident memory from wait4().
//
// It prints one line: "<map µs> <paint µs> <peak RSS KiB>", both times from just
// before the fork; whatever the program itself prints goes to stderr. Exit status 0; 1 when the program fails to show a window
// within the time-out (default 30 s) or ends by itself; 2 for a usage error.
// Only the program under test should draw on the display: bench/startup.sh runs
// it on a virtual display of its own.
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>
#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

namespace {

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "window_probe: %s\n", what);
    std::exit(1);
}

int64_t nowMicros() {
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return int64_t(ts.tv_sec) * 1000000 + ts.tv_nsec / 1000;
}

template <typename T>
struct FreeDeleter {
    void operator()(T* p) const { std::free(p); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeDeleter<T>>;

struct Rect {
    int x = 0, y = 0, w = 0, h = 0;
};

Rect intersect(Rect a, Rect b) {
    const int x1 = std::max(a.x, b.x), y1 = std::max(a.y, b.y);
    const int x2 = std::min(a.x + a.w, b.x + b.w), y2 = std::min(a.y + a.h, b.y + b.h);
    if (x2 <= x1 || y2 <= y1) return {};
    return {x1, y1, x2 - x1, y2 - y1};
}

xcb_atom_t atom(xcb_connection_t* c, const char* name) {
    Reply<xcb_intern_atom_reply_t> r(
        xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, uint16_t(std::strlen(name)), name), nullptr));
    return r ? r->atom : xcb_atom_t(XCB_ATOM_NONE);
}

// The _NET_WM_PID of a window, or 0.
uint32_t windowPid(xcb_connection_t* c, xcb_window_t w, xcb_atom_t netWmPid) {
    Reply<xcb_get_property_reply_t> r(
        xcb_get_property_reply(c, xcb_get_property(c, 0, w, netWmPid, XCB_ATOM_CARDINAL, 0, 1), nullptr));
    if (!r || r->format != 32 || xcb_get_property_value_length(r.get()) < 4) return 0;
    return *static_cast<uint32_t*>(xcb_get_property_value(r.get()));
}

// Where the window lies on the screen, border excluded.
Rect screenRect(xcb_connection_t* c, xcb_window_t w, xcb_window_t root) {
    Reply<xcb_get_geometry_reply_t> g(xcb_get_geometry_reply(c, xcb_get_geometry(c, w), nullptr));
    if (!g) return {};
    Reply<xcb_translate_coordinates_reply_t> t(
        xcb_translate_coordinates_reply(c, xcb_translate_coordinates(c, w, root, 0, 0), nullptr));
    if (!t) return {};
    return {t->dst_x, t->dst_y, g->width, g->height};
}

// Coverage of the window by drawing, one bit a pixel, so that drawing the same
// spot twice does not count twice.
class Coverage {
public:
    void reset(Rect window) {
        window_ = window;
        done_.assign(size_t(std::max(0, window.w)) * size_t(std::max(0, window.h)), false);
        left_ = done_.size();
    }
    void add(Rect area) {
        const Rect r = intersect(area, window_);
        for (int y = r.y; y < r.y + r.h; ++y)
            for (int x = r.x; x < r.x + r.w; ++x) {
                const size_t i = size_t(y - window_.y) * size_t(window_.w) + size_t(x - window_.x);
                if (!done_[i]) done_[i] = true, --left_;
            }
    }
    bool complete() const { return !done_.empty() && left_ == 0; }
    Rect window() const { return window_; }

private:
    Rect window_;
    std::vector<bool> done_;
    size_t left_ = 0;
};

void putChunk(std::FILE* f, const char* type, const std::vector<unsigned char>& data) {
    const auto be32 = [f](uint32_t v) {
        const unsigned char b[4] = {uint8_t(v >> 24), uint8_t(v >> 16), uint8_t(v >> 8), uint8_t(v)};
        std::fwrite(b, 1, 4, f);
    };
    be32(uint32_t(data.size()));
    std::fwrite(type, 1, 4, f);
    std::fwrite(data.data(), 1, data.size(), f);
    uLong crc = crc32(0, reinterpret_cast<const Bytef*>(type), 4);
    // (zlib's crc32() given no buffer starts afresh, so skip an empty one)
    if (!data.empty()) crc = crc32(crc, data.data(), uInt(data.size()));
    be32(uint32_t(crc));
}

// Saves the window's pixels (24-bit TrueColor screens) as an RGB PNG file.
bool saveShot(xcb_connection_t* c, xcb_window_t w, const char* path) {
    Reply<xcb_get_geometry_reply_t> g(xcb_get_geometry_reply(c, xcb_get_geometry(c, w), nullptr));
    if (!g) return false;
    Reply<xcb_get_image_reply_t> img(xcb_get_image_reply(
        c, xcb_get_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, w, 0, 0, g->width, g->height, ~0u), nullptr));
    if (!img || (img->depth != 24 && img->depth != 32)) return false;
    const int width = g->width, height = g->height;
    if (xcb_get_image_data_length(img.get()) < width * height * 4) return false;
    const uint8_t* px = xcb_get_image_data(img.get());  // B, G, R, x per pixel
    std::vector<unsigned char> raw;
    raw.reserve(size_t(height) * (size_t(width) * 3 + 1));
    for (int y = 0; y < height; ++y) {
        raw.push_back(0);  // no filter
        for (int x = 0; x < width; ++x) {
            const uint8_t* p = px + (size_t(y) * size_t(width) + size_t(x)) * 4;
            raw.insert(raw.end(), {p[2], p[1], p[0]});
        }
    }
    std::vector<unsigned char> packed(compressBound(uLong(raw.size())));
    uLongf packedSize = uLongf(packed.size());
    if (compress2(packed.data(), &packedSize, raw.data(), uLong(raw.size()), 9) != Z_OK) return false;
    packed.resize(packedSize);
    std::FILE* f = std::fopen(path, "wb");
    if (!f) return false;
    std::fwrite("\x89PNG\r\n\x1a\n", 1, 8, f);
    std::vector<unsigned char> header = {uint8_t(width >> 24), uint8_t(width >> 16), uint8_t(width >> 8),
                                         uint8_t(width),       uint8_t(height >> 24), uint8_t(height >> 16),
                                         uint8_t(height >> 8), uint8_t(height),      8, 2, 0, 0, 0};
    putChunk(f, "IHDR", header);
    putChunk(f, "IDAT", packed);
    putChunk(f, "IEND", {});
    return std::fclose(f) == 0;
}

void usage() {
    std::fputs("usage: window_probe [--settle MS] [--timeout S] [--shot FILE.png] FOLDER PROGRAM [ARGS...]\n",
               stderr);
    std::exit(2);
}

}  // namespace

int main(int argc, char** argv) {
    long settleMs = 200;
    long timeoutS = 30;
    const char* shot = nullptr;
    int arg = 1;
    for (; arg < argc && std::strncmp(argv[arg], "--", 2) == 0; arg += 2) {
        if (arg + 1 >= argc) usage();
        const std::string name = argv[arg];
        char* end = nullptr;
        if (name == "--shot") {
            shot = argv[arg + 1];
            continue;
        }
        const long value = std::strtol(argv[arg + 1], &end, 10);
        if (*end || value < 0) usage();
        if (name == "--settle")
            settleMs = value;
        else if (name == "--timeout")
            timeoutS = value;
        else
            usage();
    }
    if (argc - arg < 2) usage();
    const char* folder = argv[arg];
    char** program = argv + arg + 1;

    int screenNumber = 0;
    xcb_connection_t* c = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(c)) fail("cannot open the X display (is DISPLAY set?)");
    fcntl(xcb_get_file_descriptor(c), F_SETFD, FD_CLOEXEC);
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(c));
    for (int i = 0; i < screenNumber && screens.rem; ++i) xcb_screen_next(&screens);
    if (!screens.rem) fail("no such X screen");
    const xcb_window_t root = screens.data->root;

    const xcb_query_extension_reply_t* damageExt = xcb_get_extension_data(c, &xcb_damage_id);
    if (!damageExt || !damageExt->present) fail("the X server has no Damage extension");
    Reply<xcb_damage_query_version_reply_t> damageVersion(
        xcb_damage_query_version_reply(c, xcb_damage_query_version(c, 1, 1), nullptr));
    if (!damageVersion) fail("the Damage extension does not answer");
    const uint8_t damageNotify = damageExt->first_event + XCB_DAMAGE_NOTIFY;
    const xcb_atom_t netWmPid = atom(c, "_NET_WM_PID");

    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    if (Reply<xcb_generic_error_t>(
            xcb_request_check(c, xcb_change_window_attributes_checked(c, root, XCB_CW_EVENT_MASK, &mask))))
        fail("cannot watch the root window");
    const xcb_damage_damage_t damage = xcb_generate_id(c);
    if (Reply<xcb_generic_error_t>(xcb_request_check(
            c, xcb_damage_create_checked(c, damage, root, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES))))
        fail("cannot watch the screen for drawing");

    const int64_t start = nowMicros();
    const pid_t child = fork();
    if (child < 0) fail("cannot fork");
    if (child == 0) {
        dup2(2, 1);  // the program's own output goes to stderr; stdout carries the figures only
        if (chdir(folder) != 0) {
            std::perror("window_probe: chdir");
            _exit(127);
        }
        execvp(program[0], program);
        std::perror("window_probe: exec");
        _exit(127);
    }

    int64_t mapped = -1, painted = -1;
    xcb_window_t window = XCB_WINDOW_NONE;
    Coverage coverage;
    const int64_t deadline = start + timeoutS * 1000000;
    int status = 0;
    bool ended = false;
    while (painted < 0) {
        while (xcb_generic_event_t* raw = xcb_poll_for_event(c)) {
            Reply<xcb_generic_event_t> ev(raw);
            const uint8_t type = ev->response_type & 0x7f;
            if (type == XCB_MAP_NOTIFY && window == XCB_WINDOW_NONE) {
                const auto* map = reinterpret_cast<xcb_map_notify_event_t*>(ev.get());
                if (map->override_redirect || windowPid(c, map->window, netWmPid) != uint32_t(child)) continue;
                mapped = nowMicros();
                window = map->window;
                coverage.reset(screenRect(c, window, root));
            } else if (type == XCB_CONFIGURE_NOTIFY && window != XCB_WINDOW_NONE) {
                // Moved or resized before its first frame was complete: start counting again.
                if (reinterpret_cast<xcb_configure_notify_event_t*>(ev.get())->window != window) continue;
                const Rect now = screenRect(c, window, root), was = coverage.window();
                if (now.x != was.x || now.y != was.y || now.w != was.w || now.h != was.h) coverage.reset(now);
            } else if (type == damageNotify && window != XCB_WINDOW_NONE) {
                const auto* d = reinterpret_cast<xcb_damage_notify_event_t*>(ev.get());
                coverage.add({d->area.x, d->area.y, d->area.width, d->area.height});
                if (coverage.complete()) {
                    painted = nowMicros();
                    break;
                }
            }
        }
        if (xcb_connection_has_error(c)) fail("lost the X display");
        if (painted >= 0) break;
        if (waitpid(child, &status, WNOHANG) == child) {
            ended = true;
            break;
        }
        if (nowMicros() > deadline) break;
        pollfd pfd{xcb_get_file_descriptor(c), POLLIN, 0};
        poll(&pfd, 1, 5);
    }

    if (painted >= 0) {
        usleep(useconds_t(settleMs) * 1000);
        if (shot && !saveShot(c, window, shot)) std::fprintf(stderr, "window_probe: cannot save %s\n", shot);
    }
    rusage usage{};
    if (!ended) {
        kill(child, SIGTERM);
        for (int i = 0; i < 200 && !ended; ++i) {
            if (wait4(child, &status, WNOHANG, &usage) == child)
                ended = true;
            else
                usleep(10000);
        }
        if (!ended) {
            kill(child, SIGKILL);
            wait4(child, &status, 0, &usage);
        }
    } else {
        // Ended by itself: its figures are of no use, but collect them all the same.
        getrusage(RUSAGE_CHILDREN, &usage);
    }
    xcb_disconnect(c);

    if (painted < 0) {
        if (ended)
            std::fprintf(stderr, "window_probe: %s ended (status %d) before its window was shown\n", program[0],
                         status);
        else if (mapped < 0)
            std::fprintf(stderr, "window_probe: %s mapped no window within %ld s\n", program[0], timeoutS);
        else
            std::fprintf(stderr, "window_probe: %s mapped its window but did not paint all of it within %ld s\n",
                         program[0], timeoutS);
        return 1;
    }
    std::printf("%lld %lld %ld\n", static_cast<long long>(mapped - start), static_cast<long long>(painted - start),
                usage.ru_maxrss);
    return 0;
}
