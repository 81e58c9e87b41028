#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

// Times the program from its start as a process until its window is there, is painted, and rests, and the
// processor time of all its threads until then. Prints the median of each; judges nothing. RUNS and another
// PROGRAM may be given.

namespace {

using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;

constexpr auto glance = std::chrono::milliseconds{2};
constexpr auto patience = std::chrono::seconds{20};
constexpr auto rest = std::chrono::milliseconds{500};

template <class T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

class Display {
public:
    Display() : connection_(xcb_connect(nullptr, nullptr)) {
        const std::string name = "_NET_WM_PID";
        const auto cookie =
            xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
        const Reply<xcb_intern_atom_reply_t> atom{xcb_intern_atom_reply(connection_, cookie, nullptr),
                                                  std::free};
        processOf_ = atom ? atom->atom : XCB_NONE;
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    }
    ~Display() { xcb_disconnect(connection_); }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// The visible window of the process.
    [[nodiscard]] std::optional<xcb_window_t> windowOf(pid_t process) const { return find(root_, process); }

    /// Whether a corner that the window's ground fills is no longer black, as the display is below.
    [[nodiscard]] bool isPainted(xcb_window_t window) const {
        const auto cookie = xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 2, 2, 1, 1, ~0U);
        const Reply<xcb_get_image_reply_t> image{xcb_get_image_reply(connection_, cookie, nullptr),
                                                 std::free};
        return image && xcb_get_image_data_length(image.get()) > 0 && *xcb_get_image_data(image.get()) != 0;
    }

private:
    [[nodiscard]] std::optional<xcb_window_t> find(xcb_window_t inside, pid_t process) const {
        const Reply<xcb_query_tree_reply_t> tree{
            xcb_query_tree_reply(connection_, xcb_query_tree(connection_, inside), nullptr), std::free};
        if (!tree) return std::nullopt;
        const xcb_window_t* const children = xcb_query_tree_children(tree.get());
        for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
            if (isOf(children[i], process)) return children[i];
            if (const auto found = find(children[i], process)) return found;
        }
        return std::nullopt;
    }
    [[nodiscard]] bool isOf(xcb_window_t window, pid_t process) const {
        const auto asked = xcb_get_property(connection_, 0, window, processOf_, XCB_ATOM_CARDINAL, 0, 1);
        const Reply<xcb_get_property_reply_t> owner{xcb_get_property_reply(connection_, asked, nullptr),
                                                    std::free};
        if (!owner || xcb_get_property_value_length(owner.get()) != 4) return false;
        if (*static_cast<std::uint32_t*>(xcb_get_property_value(owner.get())) !=
            static_cast<std::uint32_t>(process))
            return false;
        const auto looked = xcb_get_window_attributes(connection_, window);
        const Reply<xcb_get_window_attributes_reply_t> state{
            xcb_get_window_attributes_reply(connection_, looked, nullptr), std::free};
        return state && state->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    xcb_connection_t* connection_;
    xcb_atom_t processOf_ = XCB_NONE;
    xcb_window_t root_ = XCB_NONE;
};

// Of all threads that live, in milliseconds.
double processorTime(pid_t process) {
    double nanoseconds = 0;
    std::error_code gone;
    for (const auto& task : fs::directory_iterator{"/proc/" + std::to_string(process) + "/task", gone}) {
        double ran = 0;
        std::ifstream{task.path() / "schedstat"} >> ran;
        nanoseconds += ran;
    }
    return nanoseconds / 1e6;
}

struct Moment {
    double clock = 0;     // milliseconds since the start
    double processor = 0; // milliseconds
};

class Run {
public:
    Run(const Display& display, const std::string& program) : display_(display), start_(Clock::now()) {
        process_ = fork();
        if (process_ == 0) {
            execl(program.c_str(), program.c_str(), static_cast<char*>(nullptr));
            _exit(127);
        }
    }
    ~Run() {
        kill(process_, SIGTERM);
        waitpid(process_, nullptr, 0);
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    Moment mapped() {
        return until([this] { return (window_ = display_.windowOf(process_)).has_value(); });
    }
    Moment painted() {
        return until([this] { return window_ && display_.isPainted(*window_); });
    }
    Moment resting() {
        Moment last = now();
        while (Clock::now() - start_ < patience) {
            std::this_thread::sleep_for(rest);
            const Moment next = now();
            if (next.processor - last.processor < 1) return last;
            last = next;
        }
        return last;
    }

private:
    [[nodiscard]] Moment now() const {
        return {std::chrono::duration<double, std::milli>(Clock::now() - start_).count(),
                processorTime(process_)};
    }
    template <class Condition>
    Moment until(const Condition& condition) const {
        while (!condition() && Clock::now() - start_ < patience) {
            std::this_thread::sleep_for(glance);
        }
        return now();
    }

    const Display& display_;
    Clock::time_point start_;
    pid_t process_ = 0;
    std::optional<xcb_window_t> window_;
};

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void print(const char* what, const std::vector<Moment>& moments) {
    std::vector<double> clock, processor;
    for (const Moment& moment : moments) {
        clock.push_back(moment.clock);
        processor.push_back(moment.processor);
    }
    std::cout << what << ": " << std::fixed << std::setprecision(0) << median(clock) << " ms, "
              << median(processor) << " ms of processor time ("
              << *std::min_element(processor.begin(), processor.end()) << " to "
              << *std::max_element(processor.begin(), processor.end()) << ")\n";
}

} // namespace

int main(int argc, char* argv[]) {
    const int runs = argc > 1 ? std::max(std::atoi(argv[1]), 1) : 15;
    const fs::path folder = fs::temp_directory_path() / "pelrath-start-bench";
    fs::create_directories(folder);
    fs::copy_file(argc > 2 ? argv[2] : PELRATH_PROGRAM, folder / "pelrath",
                  fs::copy_options::overwrite_existing);
    std::ofstream{folder / "Pelrath.ini"} << "[Setup]\nfirsttimedone=True\n"; // not the first run
    std::vector<Moment> mapped, painted, resting;
    {
        const Display display;
        Run{display, folder / "pelrath"}.resting(); // reads what later ones find in memory
        for (int i = 0; i < runs; ++i) {
            Run run{display, folder / "pelrath"};
            mapped.push_back(run.mapped());
            painted.push_back(run.painted());
            resting.push_back(run.resting());
        }
    }
    print("the window is there", mapped);
    print("the window is painted", painted);
    print("the program rests", resting);
    fs::remove_all(folder);
    return 0;
}
