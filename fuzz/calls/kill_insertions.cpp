#include "calls/crash_insertion.hpp"

#include <atomic>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <random>
#include <set>
#include <thread>

#include <fcntl.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

// Kills insertions with all their processes, before and behind their system calls and inside their writes,
// and looks at what the next start makes of it. Usage: kill-insertions SITTING [COUNT] [SEED]

namespace pelrath::calls {
namespace {

constexpr std::uint64_t pageSize = 4096;

/// Where an insertion is killed.
struct Place {
    int number = 0;       ///< of the call
    std::size_t turn = 0; ///< among the insertion's calls of that number
    enum { Before, Behind, Inside } kind = Before;
    std::uint64_t written = 0; ///< bytes, where it is inside
    bool intoArchive = false;
};

/// One call of an insertion.
struct Seen {
    int number = 0;
    bool changesFiles = false;
    bool intoFolder = false, intoArchive = false; ///< by a write
    std::uint64_t offset = 0, count = 0;          ///< in bytes, of a write into the archive
};

/// How far an insertion had come.
enum class Phase { BeforeCopy, InCopy, BeforeJournal, WithJournal, Behind };
constexpr std::array phases{"before the safe copy", "in it", "before the journal", "with the journal",
                            "behind it"};

/// Sees the calls of an insertion, from its beginning to its end.
class InsertionObserver : public Observer {
public:
    Fate entered(const Call& call) final {
        if (beginsAct(call, "insert")) {
            inside_ = true;
            return Fate::untouched();
        }
        if (beginsAct(call, "quit")) inside_ = false;
        return inside_ ? during(call) : Fate::untouched();
    }

protected:
    virtual Fate during(const Call& call) = 0;

private:
    bool inside_ = false;
};

bool isWrite(int number) {
    return number == SYS_write || number == SYS_pwrite64 || number == SYS_copy_file_range;
}

bool changesFiles(const Call& call) {
    switch (call.number) {
    case SYS_openat:
        return (call.arguments[2] & (O_CREAT | O_TRUNC | O_TMPFILE)) > O_DIRECTORY;
    case SYS_ftruncate:
    case SYS_fsync:
    case SYS_fdatasync:
    case SYS_fchmod:
    case SYS_rename:
    case SYS_renameat:
    case SYS_renameat2:
    case SYS_link:
    case SYS_linkat:
    case SYS_unlink:
    case SYS_unlinkat:
    case SYS_mkdir:
    case SYS_mkdirat:
    case SYS_rmdir:
        return true;
    default:
        return false;
    }
}

/// Writes down all of them.
class Listing : public InsertionObserver {
public:
    explicit Listing(std::string folder) : folder_(std::move(folder)) {}
    std::vector<Seen> seen;

private:
    Fate during(const Call& call) override {
        Seen& one = seen.emplace_back();
        one.number = call.number;
        one.changesFiles = changesFiles(call);
        if (!isWrite(call.number)) return Fate::untouched();
        const int file =
            call.number == SYS_copy_file_range ? static_cast<int>(call.arguments[2]) : call.descriptor();
        const std::string path = pathOf(call.process, file);
        one.intoFolder = path.starts_with(folder_ + "/");
        one.changesFiles = one.intoFolder;
        one.intoArchive = path == folder_ + "/a.cdds" && call.number == SYS_pwrite64;
        one.offset = one.intoArchive ? call.arguments[3] : 0;
        one.count = call.arguments.at(static_cast<std::size_t>(countArgument(call.number)));
        return Fate::untouched();
    }
    std::string folder_;
};

/// Kills at one place.
class Killing : public InsertionObserver {
public:
    Killing(const std::string& folder, const Place& place) : folder_(folder), place_(place) {}

    [[nodiscard]] bool copying() const { return copying_; } ///< when it was killed

    bool left(const Call&) override { return false; }

private:
    Fate during(const Call& call) override {
        if (call.number != place_.number || turn_++ != place_.turn) return Fate::untouched();
        look(call.process);
        if (place_.kind == Place::Before) return Fate::killed();
        return place_.kind == Place::Behind ? Fate::seen() : Fate::shortened(place_.written);
    }
    void look(pid_t process) {
        std::error_code gone;
        for (const auto& entry :
             std::filesystem::directory_iterator{"/proc/" + std::to_string(process) + "/fd", gone}) {
            const std::string path = std::filesystem::read_symlink(entry.path(), gone);
            copying_ = copying_ || path.starts_with(folder_ + "/copies/");
        }
    }

    const std::string& folder_;
    const Place& place_;
    std::size_t turn_ = 0;
    bool copying_ = false;
};

/// Kills while the first write into the archive runs, as soon as one of its bytes is another.
class KillingByTime : public InsertionObserver {
public:
    KillingByTime(const std::string& archive, std::size_t at) : archive_(archive) {
        const int file = ::open(archive.c_str(), O_RDONLY | O_CLOEXEC);
        size_ = std::filesystem::file_size(archive);
        mapped_ = ::mmap(nullptr, size_, PROT_READ, MAP_SHARED, file, 0);
        ::close(file);
        if (mapped_ == MAP_FAILED) throw std::runtime_error{"no view of the archive"};
        byte_ = static_cast<const char*>(mapped_) + at;
        old_ = *byte_;
    }
    ~KillingByTime() override {
        over_ = true;
        if (watch_.joinable()) watch_.join();
        ::munmap(mapped_, size_);
    }

private:
    Fate during(const Call& call) override {
        processes_.insert(call.process);
        if (call.number != SYS_pwrite64 || watch_.joinable() ||
            pathOf(call.process, call.descriptor()) != archive_)
            return Fate::untouched();
        const sched_param none{};
        (void)::sched_setscheduler(call.thread, SCHED_IDLE, &none); // it is to be the slower of the two
        watch_ = std::thread{[this, all = processes_] { watch(all); }};
        while (!watching_) {
        }
        return Fate::untouched();
    }
    void watch(const std::set<pid_t>& processes) {
        watching_ = true;
        while (*byte_ == old_ && !over_) {
        }
        for (const pid_t process : processes) {
            ::kill(process, SIGKILL);
        }
    }

    const std::string& archive_;
    std::size_t size_ = 0;
    void* mapped_ = nullptr;
    const volatile char* byte_ = nullptr;
    char old_ = 0;
    std::set<pid_t> processes_;
    std::atomic<bool> watching_ = false, over_ = false;
    std::thread watch_;
};

struct Tally {
    std::array<int, phases.size()> at{};
    int kills = 0, finished = 0, insideWrites = 0, insideArchive = 0, wrong = 0;
    std::size_t ends = 0, endsTried = 0; ///< befores and behinds of calls that change files

    void add(const Tally& other) {
        for (std::size_t i = 0; i < at.size(); ++i) {
            at.at(i) += other.at.at(i);
        }
        kills += other.kills;
        finished += other.finished;
        insideWrites += other.insideWrites;
        insideArchive += other.insideArchive;
        wrong += other.wrong;
        ends += other.ends;
        endsTried += other.endsTried;
    }
    [[nodiscard]] std::string text() const {
        std::string all = std::to_string(kills) + " kills";
        for (std::size_t i = 0; i < at.size(); ++i) {
            all += ", " + std::to_string(at.at(i)) + " " + phases.at(i);
        }
        return all + ", " + std::to_string(finished) + " too late; " + std::to_string(insideWrites) +
               " inside a write, " + std::to_string(insideArchive) + " of them into the archive; " +
               (ends == 0 ? ""
                          : std::to_string(endsTried) + " at the " + std::to_string(ends) +
                                " entries and exits of calls that change files; ") +
               std::to_string(wrong) + " left something wrong";
    }
};

/// Many kills of one kind of insertion.
class Kills {
public:
    Kills(const CrashScenario& scenario, const std::string& sitting, int side, unsigned seed)
        : insertion_(scenario, sitting, side), random_(seed) {
        Listing listing{insertion_.folder()};
        insertion_.learn(listing, {});
        seen_ = std::move(listing.seen);
    }

    Tally atCalls(std::size_t count) {
        for (const Place& place : choosePlaces(count)) {
            Killing killing{insertion_.folder(), place};
            const bool killed = insertion_.repeat(killing, {}).kind == End::Killed;
            judge(killed, killing.copying(), [&] {
                return std::string{place.kind == Place::Before   ? "before "
                                   : place.kind == Place::Behind ? "behind "
                                                                 : "inside "} +
                       nameOf(place.number) + " " + std::to_string(place.turn) +
                       (place.written > 0 ? ", after " + std::to_string(place.written) + " bytes" : "");
            });
            if (place.kind != Place::Inside || !killed) continue;
            ++tally_.insideWrites;
            if (place.intoArchive) ++tally_.insideArchive;
        }
        return tally_;
    }

    Tally byTime(int count) {
        const std::string archive = insertion_.folder() + "/a.cdds";
        const std::string &old = insertion_.aftermath().before().bytesOf("a.cdds"),
                          &fresh = insertion_.aftermath().after().bytesOf("a.cdds");
        std::size_t first = 0, last = 0;
        for (std::size_t i = 0; i < old.size(); ++i) {
            if (old[i] == fresh[i]) continue;
            first = first == 0 ? i : first;
            last = i;
        }
        for (int i = 0; i < count; ++i) {
            std::size_t at =
                first + random_() % ((last - first) / 4 + 1); // most of the write is still to come
            while (old[at] == fresh[at]) {
                ++at;
            }
            restore(insertion_.folder(), insertion_.aftermath().before());
            KillingByTime killing{archive, at};
            const bool killed = insertion_.repeat(killing, {}).kind == End::Signalled;
            const bool torn =
                judge(killed, false, [] { return std::string{"while the archive was written"}; });
            tally_.insideWrites += torn ? 1 : 0;
            tally_.insideArchive += torn ? 1 : 0;
        }
        return tally_;
    }

private:
    /// A third inside of writes, and the rest before and behind calls, those first that change files.
    [[nodiscard]] std::vector<Place> choosePlaces(std::size_t count) {
        std::vector<Place> inside, around, elsewhere;
        std::map<int, std::size_t> turns;
        for (const Seen& call : seen_) {
            const std::size_t turn = turns[call.number]++;
            for (const auto kind : {Place::Before, Place::Behind}) {
                (call.changesFiles ? around : elsewhere).push_back({call.number, turn, kind});
            }
            const std::uint64_t firstPage = pageSize - call.offset % pageSize;
            for (std::uint64_t end = firstPage; call.intoFolder && end < call.count; end += pageSize) {
                inside.push_back({call.number, turn, Place::Inside, end, call.intoArchive});
            }
        }
        for (std::vector<Place>* places : {&inside, &around, &elsewhere}) {
            std::shuffle(places->begin(), places->end(), random_);
        }
        std::stable_partition(inside.begin(), inside.end(),
                              [](const Place& place) { return place.intoArchive; });
        inside.resize(std::min(inside.size(), count / 3));
        tally_.ends = around.size();
        tally_.endsTried = std::min(around.size(), count - inside.size());
        around.insert(around.end(), elsewhere.begin(), elsewhere.end());
        around.resize(std::min(around.size(), count - inside.size()));
        inside.insert(inside.end(), around.begin(), around.end());
        return inside;
    }
    /// Whether the archive was torn.
    template <class Where>
    bool judge(bool killed, bool copying, const Where& where) {
        const Inventory found = inventoryOf(insertion_.folder());
        const Aftermath::Extent extent = insertion_.aftermath().extentOf(found.bytesOf("a.cdds"));
        ++tally_.kills;
        ++(killed ? tally_.at.at(static_cast<std::size_t>(phaseOf(found, extent, copying)))
                  : tally_.finished);
        const std::string wrongs = insertion_.wrongsAfterStarts();
        if (!wrongs.empty()) {
            ++tally_.wrong;
            std::cout << "  WRONG, killed " << where() << ": " << wrongs << std::endl;
        }
        return extent == Aftermath::Some;
    }
    [[nodiscard]] Phase phaseOf(const Inventory& found, Aftermath::Extent extent, bool copying) const {
        for (const auto& [name, key] : found.names) {
            if (name.starts_with("program/insertion-")) return Phase::WithJournal;
        }
        if (extent == Aftermath::All) return Phase::Behind;
        if (!insertion_.scenario().safeCopy || found.at("copies/a-0.cdds") != nullptr)
            return Phase::BeforeJournal;
        return copying ? Phase::InCopy : Phase::BeforeCopy;
    }

    CrashInsertion insertion_;
    std::mt19937 random_;
    std::vector<Seen> seen_;
    Tally tally_;
};

int killInsertions(const std::string& sitting, int count, unsigned seed) {
    requireTracing();
    constexpr int usualSide = 256, largeSide = 2048; // texels: a write that takes its time
    const int timed = count / 20;
    Tally all;
    const auto tell = [&all](const std::string& name, const Tally& tally) {
        std::cout << name << ": " << tally.text() << std::endl;
        all.add(tally);
    };
    const std::vector<CrashScenario> scenarios = crashScenarios();
    const std::size_t share = static_cast<std::size_t>(count - timed) / scenarios.size() + 1;
    for (const CrashScenario& scenario : scenarios) {
        tell(scenario.name, Kills{scenario, sitting, usualSide, seed}.atCalls(share));
    }
    const CrashScenario large{"DDS single, killed by time", "texture=1 dds single level=0"};
    tell(large.name, Kills{large, sitting, largeSide, seed}.byTime(timed));
    std::cout << all.text() << std::endl;
    const bool enough = 5 * all.insideArchive >= all.kills;
    if (!enough) std::cout << "Too few kills fell inside a write into the archive." << std::endl;
    return all.wrong == 0 && enough ? 0 : 1;
}

} // namespace
} // namespace pelrath::calls

int main(int argc, char* argv[]) try {
    const std::vector<std::string> words{argv, argv + argc};
    if (argc < 2) return 2;
    return pelrath::calls::killInsertions(words[1], argc > 2 ? std::stoi(words[2]) : 2000,
                                          argc > 3 ? static_cast<unsigned>(std::stoul(words[3])) : 1);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 2;
}
