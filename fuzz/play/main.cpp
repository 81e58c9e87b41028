#include "player.hpp"

#include <chrono>
#include <csignal>
#include <iostream>
#include <thread>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

// Plays with the real program, as someone would who presses everything. Usage: monkey MINUTES SEED. Whatever
// can be written is fair game, so fuzz/monkey starts it where nothing can be but a folder of its own.

namespace pelrath::monkey {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::seconds;

constexpr seconds patience{60}; ///< with a program that does not react
constexpr std::string_view mnemonics = "abcdefgimnoprstuvxz25";
constexpr std::array keys{"Return", "Return", "Tab",  "Tab", "space",  "Down",      "Up",       "Right",
                          "Escape", "Next",   "Home", "End", "Delete", "BackSpace", "Menu",     "F2",
                          "t",      "w",      "plus", "2",   "ctrl+o", "shift+Tab", "shift+End"};

/// One start of the program, to its end.
class Run {
public:
    Run(unsigned seed, Board& board) : seed_(seed), board_(board), world_(seed) {}

    /// What was wrong; empty when nothing was.
    std::string play() {
        board_.beginRun();
        program_ = fork();
        if (program_ == 0) {
            const int log = open(world_.log().c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
            dup2(log, STDOUT_FILENO);
            dup2(log, STDERR_FILENO);
            std::exit(monkey::play(world_, seed_, board_));
        }
        const int length = 50 + Dice{seed_, 0, 1}.below(200);
        for (int turn = 0; !hasEnded() && !isStuck(turn > length + 1000); ++turn) {
            Dice dice{seed_, 1, static_cast<unsigned>(turn)};
            std::this_thread::sleep_for(std::chrono::milliseconds{20 + dice.below(80)});
            if (turn < length) {
                dice.onceIn(25) ? world_.disturb(dice, board_) : useDisplay(dice);
            } else if (turn < length + 20) {
                onDisplay("window", "key alt+F4");
            } else if (turn == length + 20) { // one is enough
                board_.act("close", "by a signal");
                kill(program_, dice.onceIn(2) ? SIGTERM : SIGHUP);
            }
        }
        return verdict();
    }

private:
    void onDisplay(std::string_view kind, const std::string& act) {
        board_.act(kind, act);
        (void)std::system(("xdotool " + act + " >/dev/null 2>&1").c_str());
    }
    // As a hand that knows nothing of the program but where its active window is.
    void useDisplay(Dice& dice) {
        const int kind = dice.below(20), reach = dice.onceIn(2) ? 1100 : 400;
        const std::string point =
            std::to_string(dice.below(reach)) + " " + std::to_string(dice.below(reach * 2 / 3));
        if (kind < 9) {
            std::string several; // faster than the program can follow
            for (int i = dice.below(4); i >= 0; --i) {
                several += kind < 6 ? std::string{" "} + dice.oneOf(keys)
                                    : std::string{" alt+"} + dice.oneOf(mnemonics);
            }
            onDisplay("key", "key --delay 0" + several);
        } else if (kind < 18) {
            constexpr std::array presses{"click 1",
                                         "click 1",
                                         "click 1",
                                         "click --delay 0 --repeat 2 1",
                                         "click 3",
                                         "click --repeat 3 4",
                                         "click --repeat 3 5",
                                         "mousedown 1 mousemove_relative -- 40 90 mouseup 1"};
            onDisplay("mouse", "getactivewindow mousemove --window %1 " + point + " " + dice.oneOf(presses));
        } else {
            constexpr std::array acts{"windowsize %1 ", "windowsize %1 ", "windowmove %1 ",
                                      "windowminimize %1 sleep 0.1 windowactivate %1 windowmove %1 "};
            dice.onceIn(20) ? onDisplay("window", "key alt+F4")
                            : onDisplay("window", std::string{"getactivewindow "} + dice.oneOf(acts) + point);
        }
    }

    bool hasEnded() { return waitpid(program_, &status_, WNOHANG) == program_; }
    // It hangs, or does not end. Tells then where it is.
    bool isStuck(bool tooLong) {
        const unsigned beats = board_.beats;
        if (std::exchange(beats_, beats) != beats) lastBeat_ = Clock::now();
        stuck_ = tooLong || Clock::now() - lastBeat_ > patience;
        if (!stuck_) return false;
        kill(program_, SIGABRT);
        std::this_thread::sleep_for(seconds{5});
        kill(program_, SIGKILL);
        waitpid(program_, &status_, 0);
        return true;
    }
    [[nodiscard]] std::string verdict() const {
        if (stuck_) return "it hangs\n" + complaints();
        if (status_ != 0) return "it ends with the status " + std::to_string(status_) + "\n" + complaints();
        return world_.wrongs();
    }
    // What it said from the first complaint on, but not without end.
    [[nodiscard]] std::string complaints() const {
        std::ifstream log{world_.log()};
        std::string said;
        int lines = 0;
        for (std::string line; std::getline(log, line) && lines < 60;) {
            if (lines == 0 && !line.starts_with("wrong: ") && line.find("rror: ") == std::string::npos &&
                line.find("ERROR: ") == std::string::npos)
                continue;
            said += line + "\n";
            ++lines;
        }
        return said;
    }

    unsigned seed_;
    Board& board_;
    World world_;
    pid_t program_ = -1;
    int status_ = 0;
    unsigned beats_ = 0;
    bool stuck_ = false;
    Clock::time_point lastBeat_ = Clock::now();
};

int playFor(std::chrono::minutes time, unsigned seed) {
    void* const shared =
        mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) throw std::runtime_error{"no shared memory"};
    Board& board = *new (shared) Board;
    for (const auto end = Clock::now() + time; Clock::now() < end; ++seed) {
        const std::string wrong = Run{seed, board}.play();
        if (wrong.empty()) continue;
        board.count("finding");
        std::cout << "Seed " << seed << ": " << wrong << "after\n" << board.lastActs() << std::endl;
    }
    for (const std::string_view kind : Board::kinds) {
        std::cout << kind << ": " << board.counted(kind) << "\n";
    }
    return board.counted("finding") == 0 ? 0 : 1;
}

} // namespace
} // namespace pelrath::monkey

int main(int argc, char* argv[]) {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    if (argc != 3 || access(self.substr(0, self.rfind('/')).c_str(), W_OK) == 0) {
        std::cerr << "To be started by fuzz/monkey.\n";
        return 2;
    }
    return pelrath::monkey::playFor(std::chrono::minutes{std::stoi(argv[1])},
                                    static_cast<unsigned>(std::stoul(argv[2])));
}
