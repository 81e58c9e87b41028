#include "transfer/transfer_harness.hpp"

#include <chrono>
#include <iostream>
#include <random>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

// Kills insertions at random moments and looks at what is left. Usage: kill-insertions [COUNT] [SEED]

namespace pelrath::test {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;

struct Scenario {
    const char* name;
    Steps steps; ///< of the user, from opening the dialog on
};
const Scenario scenarios[] = {{"dds embedded", {embedded}},
                              {"dds external", {external}},
                              {"dds single", {single}},
                              {"dds create", {create}},
                              {"tga single", {images, single}},
                              {"tga create", {images, create}},
                              {"tga create box", {images, filter(3)}}};

/// Which parts of an insertion a killed one had done.
struct Tally {
    int nothing = 0, copied = 0, someLevels = 0, allLevels = 0, finished = 0, wrong = 0;
};

class Killing {
public:
    explicit Killing(unsigned seed) : random_(seed) {
        TexturePlan wall = chainOf("wall", "DXT5", 2048, 2048);
        std::int32_t at = 12'000'000; // out of order and with gaps
        for (LevelPlan& level : wall.levels) {
            level.at = at -= static_cast<std::int32_t>(level.data.size()) + 4321;
        }
        h_.open({CddsType::TypeCdds, {chainOf("other", "DXT1", 64, 64), wall}});
        h_.choose(1);
        for (int level = 0; level < static_cast<int>(wall.levels.size()); ++level) {
            h_.extract({mark(level)});
        }
        h_.extract({embedded, overwriting}); // of level 0's name as well
        h_.extract({images});
        // Every level of the archive is now other than what is inserted.
        before_ = h_.outside(h_.archive());
    }

    /// An insertion that nobody disturbs: how long it takes and what it makes.
    void learn(const Scenario& scenario) {
        reset();
        const auto start = Clock::now();
        start_(scenario);
        wait_();
        duration_ = std::chrono::duration_cast<microseconds>(Clock::now() - start);
        after_ = h_.archive();
        if (after_ == before_) throw std::logic_error{"nothing is inserted"};
    }

    /// At any moment, or while a level is being written.
    void killOne(const Scenario& scenario, bool insideAWrite, Tally& tally) {
        reset();
        start_(scenario);
        if (insideAWrite) {
            waitForAWrite();
        } else {
            usleep(below(static_cast<unsigned>(duration_.count() * 21 / 20)));
        }
        kill(child_, SIGKILL);
        judge(wait_(), tally);
    }

private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
    void reset() {
        h_.rewrite(before_);
        for (const std::string& name : h_.folder.names("copies")) {
            std::filesystem::remove(h_.folder.file("copies/" + name));
        }
    }
    /// Until a byte somewhere in a level has become another: what is behind it is then mostly still to come.
    void waitForAWrite() {
        const MipmapRecord& level = h_.chosen().mipmaps[below(2) * below(4)];
        const std::size_t at =
            static_cast<std::size_t>(level.dataOffset) + below(static_cast<unsigned>(level.dataSize));
        const int file = open(h_.session.archivePath.c_str(), O_RDONLY | O_CLOEXEC);
        void* const mapped = mmap(nullptr, before_.size(), PROT_READ, MAP_SHARED, file, 0);
        close(file);
        if (mapped == MAP_FAILED) throw std::runtime_error{"no view of the archive"};
        const volatile char* const byte = static_cast<const char*>(mapped) + at;
        const auto deadline = Clock::now() + 2 * duration_;
        while (*byte == before_[at] && Clock::now() < deadline) {
        }
        munmap(mapped, before_.size());
    }

    // Whoever still writes into the archive holds the pipe's other end.
    void start_(const Scenario& scenario) {
        if (pipe(ends_) != 0) throw std::runtime_error{"no pipe"};
        child_ = fork();
        if (child_ != 0) {
            close(ends_[1]);
            return;
        }
        h_.insert(scenario.steps);
        _exit(h_.boxes.take().empty() ? 0 : 1);
    }
    /// Whether it came to its end.
    bool wait_() {
        int status = 0;
        waitpid(child_, &status, 0);
        char end = 0;
        while (read(ends_[0], &end, 1) > 0) {
        }
        close(ends_[0]);
        if (WIFEXITED(status) && WEXITSTATUS(status) != 0)
            throw std::logic_error{"an insertion failed by itself"};
        return WIFEXITED(status);
    }

    void judge(bool finished, Tally& tally) {
        const std::string found = h_.archive();
        bool whole = found.size() == before_.size() && h_.outside(found) == before_;
        int changed = 0, toChange = 0;
        for (std::size_t i = 0; i < h_.chosen().mipmaps.size(); ++i) {
            const std::string level = whole ? h_.levelOf(found, i) : "", fresh = h_.levelOf(after_, i),
                              old = h_.levelOf(before_, i);
            toChange += fresh != old ? 1 : 0;
            changed += level == fresh && fresh != old ? 1 : 0;
            whole = whole && (level == fresh || level == old);
        }
        const std::vector<std::string> copies = h_.folder.names("copies");
        for (const std::string& name : copies) {
            whole = whole && name == "a-0.cdds" && h_.folder.read("copies/" + name) == before_;
        }
        if (!whole || (changed > 0 && copies.empty())) ++tally.wrong;
        ++(finished              ? tally.finished
           : changed == toChange ? tally.allLevels
           : changed > 0         ? tally.someLevels
           : copies.empty()      ? tally.nothing
                                 : tally.copied);
    }

    TransferHarness h_;
    std::mt19937 random_;
    std::string before_, after_;
    microseconds duration_{};
    int ends_[2] = {-1, -1};
    pid_t child_ = -1;
};

int killInsertions(int count, unsigned seed) {
    Killing killing{seed};
    int wrong = 0;
    for (const Scenario& scenario : scenarios) {
        const int runs =
            (count + static_cast<int>(std::size(scenarios)) - 1) / static_cast<int>(std::size(scenarios));
        Tally tally;
        killing.learn(scenario);
        for (int i = 0; i < runs; ++i) {
            killing.killOne(scenario, i % 2 == 1, tally);
        }
        std::cout << scenario.name << ": " << runs << " kills, " << tally.nothing << " before the safe copy, "
                  << tally.copied << " before the first level, " << tally.someLevels << " between levels, "
                  << tally.allLevels << " behind the last, " << tally.finished << " too late; " << tally.wrong
                  << " left something wrong" << std::endl;
        wrong += tally.wrong;
    }
    return wrong;
}

} // namespace
} // namespace pelrath::test

int main(int argc, char* argv[]) {
    return pelrath::test::killInsertions(argc > 1 ? std::stoi(argv[1]) : 500,
                                         argc > 2 ? static_cast<unsigned>(std::stoul(argv[2])) : 1) == 0
               ? 0
               : 1;
}
