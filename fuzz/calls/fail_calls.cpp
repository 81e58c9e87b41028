#include "calls/judge.hpp"
#include "calls/spoils.hpp"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>

#include <fcntl.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

// Lets each system call of a sitting fail once, in every way that it can, and judges what that leads to.
// Usage, through fuzz/fail-calls:
//
//     fail-calls SITTING [COUNT|all]                  COUNT trials, spread over all calls and errors
//     fail-calls SITTING SCENARIO CALL NUMBER ERROR   the one trial that a finding names, told in full
//
// Every call between the lines "act ready" and "act done" is taken: what comes before belongs to the loader
// and to static objects, what comes behind to their end. What a sitting says to its judge, by descriptor 1,
// is left alone.

namespace pelrath::calls {
namespace {

namespace fs = std::filesystem;

struct Scenario {
    const char* name;
    const char* words; ///< to the sitting
    std::size_t texture = 1;
    bool readOnly = false;
    bool plainDisk = false; ///< without nameless files, locks, exclusive renames and copies by the kernel
    bool whole = false;     ///< all acts, not the insertion alone, which the others have in common
};

const Scenario scenarios[] = {
    {"embedded", "embedded", 1, false, false, true},
    {"external", "noextract external nocopy"},
    {"single", "noextract single level=3"},
    {"dds-create", "noextract create"},
    {"image-single", "noextract images single level=2"},
    {"image-chain", "noextract images create"},
    {"image-filter", "noextract images create filter=3"},
    {"bazar", "noextract embedded bazar"},
    {"bazar-only", "noextract noarchive bazar"},
    {"read-only", "noextract embedded", 1, true},
    {"read-only-image", "noextract images create nocopy", 1, true},
    {"dxt1", "texture=0 embedded", 0, false, false, true},
    {"dxt1-image", "noextract texture=0 images create filter=7", 0},
    {"plain-disk", "embedded", 1, false, true, true},
};

std::vector<std::string> wordsOf(const std::string& text) {
    std::istringstream in{text};
    std::vector<std::string> words;
    for (std::string word; in >> word;) {
        words.push_back(word);
    }
    return words;
}

/// Which call: the `ordinal`-th (from 0) of its number between "ready" and "done", among those of the first
/// thread or of all others.
struct Place {
    int number = -1;
    bool first = true;
    int ordinal = 0;
};

bool ofFirstThread(const Call& call) { return call.thread == call.process; }

/// A sitting waits for its threads, and sees in /proc whether there are any.
bool isWaiting(const Call& call) {
    switch (call.number) {
    case SYS_openat:
        return textAt(call.process, call.arguments[1]) == "/proc/self/task";
    case SYS_newfstatat:
    case SYS_fstat:
    case SYS_fcntl:
    case SYS_getdents64:
    case SYS_close: {
        const std::string path = pathOf(call.process, call.descriptor());
        return path.starts_with("/proc/") && path.ends_with("/task");
    }
    default:
        return call.number == SYS_clock_nanosleep;
    }
}

/// Follows the acts of a sitting through its lines.
class ActWatch : public Observer {
public:
    explicit ActWatch(bool plainDisk) : plainDisk_(plainDisk) {}

    Fate entered(const Call& call) final {
        if (call.number == SYS_write && call.descriptor() == 1) {
            follow(bytesAt(call.process, call.arguments[1], static_cast<std::size_t>(call.arguments[2])));
            return Fate::untouched();
        }
        if (act_.empty() || (ofFirstThread(call) && isWaiting(call))) return Fate::untouched();
        const Fate fate = within(call);
        return fate.kind == Fate::Untouched ? ofDisk(call) : fate;
    }

protected:
    [[nodiscard]] const std::string& act() const { return act_; }
    virtual Fate within(const Call& call) = 0;

private:
    void follow(const std::string& line) {
        if (!line.starts_with("act ")) return;
        act_ = line.substr(4, line.size() - 5);
        if (act_ == "done") act_.clear();
    }
    [[nodiscard]] Fate ofDisk(const Call& call) const {
        if (!plainDisk_) return Fate::untouched();
        switch (call.number) {
        case SYS_openat:
            return makesNamelessFile(call) ? Fate::failed(EOPNOTSUPP) : Fate::untouched();
        case SYS_renameat2:
            return Fate::failed(EINVAL);
        case SYS_copy_file_range:
            return Fate::failed(EXDEV);
        case SYS_flock:
            return Fate::failed(ENOLCK);
        default:
            return Fate::untouched();
        }
    }

    bool plainDisk_;
    std::string act_;
};

struct Candidate {
    Place place;
    std::string act;
    Spoil spoil;
    std::string of; ///< the file
};

std::string fileOf(const Call& call) {
    switch (call.number) {
    case SYS_openat:
    case SYS_newfstatat:
    case SYS_statx:
    case SYS_unlinkat:
    case SYS_fchmodat:
        return pathArgument(call, 0, 1);
    case SYS_rename:
    case SYS_unlink:
    case SYS_mkdir:
    case SYS_rmdir:
    case SYS_chmod:
    case SYS_access:
    case SYS_readlink:
        return pathArgument(call, -1, 0);
    case SYS_renameat:
    case SYS_renameat2:
    case SYS_linkat:
        return pathArgument(call, 2, 3);
    case SYS_copy_file_range:
        return pathOf(call.process, static_cast<int>(call.arguments[2]));
    case SYS_mmap:
    case SYS_munmap:
    case SYS_mremap:
    case SYS_clone:
    case SYS_clone3:
    case SYS_getcwd:
    case SYS_getrandom:
    case SYS_pipe2:
    case SYS_wait4:
        return "";
    default:
        return pathOf(call.process, call.descriptor());
    }
}

/// Learns all calls, and how each can fail.
class Learning : public ActWatch {
public:
    Learning(const Scenario& scenario) : ActWatch(scenario.plainDisk), whole_(scenario.whole) {}

    std::vector<Candidate> candidates;
    std::set<int> calls;        ///< all there are
    std::map<int, int> untried; ///< by number: those that cannot fail, or for which no errors are known
    int ofOtherScenarios = 0;
    int firstStarts = 0; ///< see saysThatSettingsAreMissing()
    int clearings = 0;   ///< see saysThatSomebodyClearsUp()

private:
    /// Which makes it the program's first start, where settings begin anew.
    static bool saysThatSettingsAreMissing(const Call& call, const std::string& file, const Spoil& spoil) {
        const bool looksForIt = call.number == SYS_openat || call.number == SYS_newfstatat;
        return looksForIt && file.ends_with("/Pelrath.ini") &&
               (spoil.name == "ENOENT" || spoil.name == "ENOTDIR");
    }
    Fate within(const Call& call) override {
        calls.insert(call.number);
        const bool first = ofFirstThread(call);
        const Place place{call.number, first, count_[{call.number, first}]++};
        if (!whole_ && act() != "insert") {
            ++ofOtherScenarios;
            return Fate::untouched();
        }
        const std::vector<Spoil> spoils = spoilsOf(call);
        if (spoils.empty()) ++untried[call.number];
        const std::string file = spoils.empty() ? "" : fileOf(call);
        for (const Spoil& spoil : spoils) {
            if (saysThatSettingsAreMissing(call, file, spoil)) {
                ++firstStarts;
                continue;
            }
            if (saysThatSomebodyClearsUp(call, file, spoil)) {
                ++clearings;
                continue;
            }
            candidates.push_back({place, act(), spoil, file});
        }
        return Fate::untouched();
    }

    /// A new hidden file is locked by others only to be removed, which here nobody would do.
    static bool saysThatSomebodyClearsUp(const Call& call, const std::string& file, const Spoil& spoil) {
        const bool taken = spoil.name.starts_with("EWOULDBLOCK");
        return call.number == SYS_flock && taken && file.find("/.pelrath-") != std::string::npos;
    }

    bool whole_;
    std::map<std::pair<int, bool>, int> count_;
};

class Spoiling : public ActWatch {
public:
    Spoiling(const Scenario& scenario, const Candidate& candidate)
        : ActWatch(scenario.plainDisk), candidate_(candidate) {}
    bool done = false;

private:
    Fate within(const Call& call) override {
        const Place& place = candidate_.place;
        if (call.number != place.number || ofFirstThread(call) != place.first) return Fate::untouched();
        const bool now = seen_++ == place.ordinal;
        if (now) file_ = fileOf(call);
        done = done || now;
        const bool again = done && candidate_.spoil.lasts && fileOf(call) == file_;
        return now || again ? candidate_.spoil.fate : Fate::untouched();
    }

    const Candidate& candidate_;
    int seen_ = 0;
    std::string file_;
};

/// One scenario in a folder of its own.
class Trials {
public:
    Trials(const Scenario& scenario, std::string sitting, std::string folder)
        : scenario_(scenario), sitting_(std::move(sitting)), folder_(std::move(folder)),
          output_(memfd_create("output", MFD_CLOEXEC)), learning_(scenario) {
        fs::create_directories(folder_);
        std::vector<std::string> preparation{sitting_, "--prepare", folder_, "64"};
        if (scenario_.readOnly) preparation.push_back("read-only");
        Observer nobody;
        follow({.arguments = preparation, .calls = {SYS_exit_group}}, nobody);
        before_ = stateOf(folder_);
        Trial trial = sit(learning_, {});
        restore(folder_, before_);
        judge_ = std::make_unique<Judge>(folder_, before_, std::move(trial), scenario_.texture);
    }
    Trials(const Trials&) = delete;
    Trials& operator=(const Trials&) = delete;
    ~Trials() {
        close(output_);
        fs::remove_all(folder_);
    }

    [[nodiscard]] const Learning& learnt() const { return learning_; }
    [[nodiscard]] const Judge& judge() const { return *judge_; }

    /// Nothing where that call never came.
    std::optional<Trial> spoil(const Candidate& candidate) {
        restore(folder_, before_);
        Spoiling spoiling{scenario_, candidate};
        std::set<int> calls{SYS_write, candidate.place.number};
        if (scenario_.plainDisk) calls.insert({SYS_openat, SYS_renameat2, SYS_copy_file_range, SYS_flock});
        Trial trial = sit(spoiling, {calls.begin(), calls.end()});
        if (!spoiling.done) return std::nullopt;
        return trial;
    }

private:
    [[nodiscard]] std::string output() const {
        std::string text(1 << 20, '\0');
        const ssize_t count = pread(output_, text.data(), text.size(), 0);
        text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return text;
    }
    Trial sit(Observer& observer, const std::vector<int>& calls) {
        std::vector<std::string> arguments{sitting_, folder_};
        const std::vector<std::string> words = wordsOf(scenario_.words);
        arguments.insert(arguments.end(), words.begin(), words.end());
        Trial trial;
        trial.end = run(arguments, observer, calls);
        trial.output = output();
        trial.acts = actsOf(trial.output);
        trial.left = stateOf(folder_);
        if (judge_ != nullptr && !judge_->clean(trial.left)) {
            Observer nobody;
            const End end = run({sitting_, "--recover", folder_}, nobody, {SYS_exit_group});
            if (!end.well()) trial.end = end;
            trial.startedAgain = true;
            trial.outputOfStart = output();
            trial.start = actsOf(trial.outputOfStart);
        }
        trial.final = trial.startedAgain ? stateOf(folder_) : trial.left;
        return trial;
    }
    End run(const std::vector<std::string>& arguments, Observer& observer, const std::vector<int>& calls) {
        if (ftruncate(output_, 0) != 0) throw std::runtime_error{"no output"};
        lseek(output_, 0, SEEK_SET);
        return follow({.arguments = arguments,
                       .environment = {"TMPDIR=" + folder_ + "/tmp", "HOME=" + folder_,
                                       "XDG_DATA_HOME=" + folder_ + "/data"},
                       .output = output_,
                       .calls = calls},
                      observer);
    }

    Scenario scenario_;
    std::string sitting_, folder_;
    int output_;
    FolderState before_;
    Learning learning_;
    std::unique_ptr<Judge> judge_;
};

std::string describe(const Scenario& scenario, const Candidate& candidate) {
    return std::string{scenario.name} + " " + nameOf(candidate.place.number) + " " +
           (candidate.place.first ? "" : "t") + std::to_string(candidate.place.ordinal) + " " +
           candidate.spoil.name;
}

/// Those of `all` candidates that are tried: the first of each call and error, and others evenly up to
/// `count`.
class Choice {
public:
    Choice(std::size_t all, std::size_t count) : all_(std::max<std::size_t>(all, 1)), count_(count) {}

    bool take(const Candidate& candidate) {
        const std::size_t at = at_++;
        const bool isFirst = seen_.insert({candidate.place.number, candidate.spoil.name}).second;
        return isFirst || (at + 1) * count_ / all_ != at * count_ / all_;
    }

private:
    std::size_t all_, count_, at_ = 0;
    std::set<std::pair<int, std::string>> seen_;
};

/// A line to the tool's first process; short enough to arrive whole.
void report(int pipe, std::string line) {
    line.resize(std::min<std::size_t>(line.size(), 4000));
    line += '\n';
    if (write(pipe, line.data(), line.size()) < 0) std::exit(3);
}

struct Work {
    std::string sitting, folder;
    std::size_t count = 0; ///< trials in all
    std::size_t workers = 1, worker = 0;
};

void tryOne(Trials& trials, const Scenario& scenario, const Candidate& candidate, int pipe) {
    const std::optional<Trial> trial = trials.spoil(candidate);
    const std::vector<std::string> faults =
        trial ? trials.judge().faults(*trial) : std::vector<std::string>{};
    const char* const outcome = !trial                             ? "never came"
                                : !faults.empty()                  ? "wrong"
                                : trials.judge().unnoticed(*trial) ? "unnoticed"
                                : trial->startedAgain              ? "put right"
                                : trials.judge().told(*trial)      ? "told"
                                                                   : "silent";
    report(pipe, "trial\t" + nameOf(candidate.place.number) + "\t" + candidate.act + "\t" + outcome);
    if (!trial) report(pipe, "never\t" + describe(scenario, candidate) + " (" + candidate.of + ")");
    for (const std::string& fault : faults) {
        report(pipe, "fault\t" + describe(scenario, candidate) + "\t" + fault + " (" + candidate.act + ", " +
                         candidate.of + ")");
    }
}

/// A worker's share. All workers learn alike, each in a folder of its own whose name is as long as the
/// others'.
void work(const Work& work, int pipe) {
    std::vector<std::unique_ptr<Trials>> all;
    std::size_t candidates = 0;
    for (const Scenario& scenario : scenarios) {
        const std::string folder = work.folder + "/" + std::to_string(work.worker) + scenario.name;
        all.push_back(std::make_unique<Trials>(scenario, work.sitting, folder));
        const Learning& learnt = all.back()->learnt();
        candidates += learnt.candidates.size();
        if (work.worker != 0) continue;
        for (const auto& [number, times] : learnt.untried) {
            report(pipe, std::string{cannotFail(number) ? "sure" : "unknown"} + "\t" + nameOf(number) + "\t" +
                             std::to_string(times));
        }
        report(pipe, "same\t" + std::to_string(learnt.ofOtherScenarios));
        report(pipe, "first\t" + std::to_string(learnt.firstStarts));
        report(pipe, "cleared\t" + std::to_string(learnt.clearings));
    }
    if (work.worker == 0) report(pipe, "all\t" + std::to_string(candidates));
    Choice choice{candidates, work.count == 0 ? candidates : work.count};
    std::size_t taken = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (const Candidate& candidate : all[i]->learnt().candidates) {
            if (!choice.take(candidate) || taken++ % work.workers != work.worker) continue;
            tryOne(*all[i], scenarios[i], candidate, pipe);
        }
    }
}

class Tally {
public:
    void take(const std::string& line) {
        std::vector<std::string> parts;
        std::istringstream in{line};
        for (std::string part; std::getline(in, part, '\t');) {
            parts.push_back(part);
        }
        const std::string& kind = parts.at(0);
        if (kind == "trial") {
            ++trials;
            ++byCall_[parts.at(1)][parts.at(3)];
            ++byAct_[parts.at(2)][parts.at(3)];
        } else if (kind == "fault") {
            faults.push_back("fuzz/fail-calls " + parts.at(1) + "\n    " + parts.at(2));
        } else if (kind == "sure" || kind == "unknown") {
            (kind == "sure" ? sure_ : unknown_)[parts.at(1)] += std::stoi(parts.at(2));
        } else if (kind == "same") {
            same_ += std::stoi(parts.at(1));
        } else if (kind == "never") {
            never_.push_back(parts.at(1));
        } else if (kind == "first") {
            first_ += std::stoi(parts.at(1));
        } else if (kind == "cleared") {
            cleared_ += std::stoi(parts.at(1));
        } else if (kind == "all") {
            all_ = std::stoi(parts.at(1));
        }
    }

    /// False where something is wrong.
    [[nodiscard]] bool print() const {
        print("by call", byCall_);
        print("by act", byAct_);
        std::cout << all_ << " ways to fail; not tried: calls that cannot fail (" << listed(sure_) << "), "
                  << same_ << " calls outside the insertion, which another scenario tries, " << first_
                  << " ways to say that there are no settings, which is a first start, " << cleared_
                  << " ways to say that another program removes a file\n";
        for (const std::string& candidate : never_) {
            std::cout << "never came again: " << candidate << "\n";
        }
        for (const std::string& fault : faults) {
            std::cout << "WRONG " << fault << "\n";
        }
        if (!unknown_.empty()) std::cout << "WRONG: no errors are known of " << listed(unknown_) << "\n";
        std::cout << trials << " trials, " << faults.size() << " faults" << std::endl;
        return trials > 0 && faults.empty() && unknown_.empty();
    }

private:
    using Counts = std::map<std::string, std::map<std::string, int>>;

    static void print(const char* title, const Counts& counts) {
        std::cout << title << ":\n";
        for (const auto& [name, outcomes] : counts) {
            std::cout << "  " << name << ":";
            int sum = 0;
            for (const auto& [outcome, times] : outcomes) {
                sum += times;
            }
            std::cout << " " << sum;
            for (const auto& [outcome, times] : outcomes) {
                std::cout << ", " << times << " " << outcome;
            }
            std::cout << "\n";
        }
    }
    static std::string listed(const std::map<std::string, int>& counts) {
        std::string list;
        for (const auto& [name, times] : counts) {
            list += (list.empty() ? "" : ", ") + name + " " + std::to_string(times);
        }
        return list;
    }

    Counts byCall_, byAct_;
    std::map<std::string, int> sure_, unknown_;
    std::vector<std::string> never_;
    int all_ = 0, same_ = 0, first_ = 0, cleared_ = 0;

public:
    int trials = 0;
    std::vector<std::string> faults;
};

int tryMany(const std::string& sitting, const std::string& folder, std::size_t count) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return 3;
    cpu_set_t cpus;
    sched_getaffinity(0, sizeof cpus, &cpus);
    const auto workers = static_cast<std::size_t>(CPU_COUNT(&cpus));
    std::vector<pid_t> processes;
    for (std::size_t worker = 0; worker < workers; ++worker) {
        processes.push_back(fork());
        if (processes.back() != 0) continue;
        close(ends[0]);
        work({sitting, folder, count, workers, worker}, ends[1]);
        _exit(0);
    }
    close(ends[1]);
    Tally tally;
    std::string text, buffer(65536, '\0');
    for (ssize_t got = 0; (got = read(ends[0], buffer.data(), buffer.size())) > 0;) {
        text.append(buffer, 0, static_cast<std::size_t>(got));
        for (std::size_t at = 0; (at = text.find('\n')) != std::string::npos; text.erase(0, at + 1)) {
            tally.take(text.substr(0, at));
        }
    }
    bool well = true;
    for (const pid_t process : processes) {
        int status = 0;
        waitpid(process, &status, 0);
        well = well && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
    if (!well) std::cout << "WRONG: a worker did not come to its end\n";
    return tally.print() && well ? 0 : 1;
}

int tryAgain(const std::string& sitting, const std::string& folder, const std::vector<std::string>& which) {
    for (const Scenario& scenario : scenarios) {
        if (which.at(0) != scenario.name) continue;
        Trials trials{scenario, sitting, folder + "/0" + scenario.name};
        for (const Candidate& candidate : trials.learnt().candidates) {
            if (describe(scenario, candidate) !=
                which.at(0) + " " + which.at(1) + " " + which.at(2) + " " + which.at(3))
                continue;
            std::cout << candidate.act << ", " << candidate.of << "\n";
            const std::optional<Trial> trial = trials.spoil(candidate);
            if (!trial) break;
            std::cout << trial->output
                      << (trial->startedAgain ? "STARTED AGAIN\n" + trial->outputOfStart : "");
            for (const std::string& fault : trials.judge().faults(*trial)) {
                std::cout << "WRONG " << fault << "\n";
            }
            for (const auto& [name, file] : trial->left) {
                std::cout << (trial->final.count(name) == 0 ? "left until the next start: " + name + "\n"
                                                            : "");
            }
            return trials.judge().faults(*trial).empty() ? 0 : 1;
        }
    }
    std::cout << "no such call\n";
    return 2;
}

int run(const std::vector<std::string>& arguments) {
    requireTracing();
    std::string folder = (fs::temp_directory_path() / "pelrath-calls-XXXXXX").string();
    if (arguments.size() < 2 || mkdtemp(folder.data()) == nullptr) return 2;
    const std::string sitting = fs::absolute(arguments[1]).string();
    int status = 2;
    if (arguments.size() == 6) {
        status = tryAgain(sitting, folder, {arguments.begin() + 2, arguments.end()});
    } else {
        const std::string count = arguments.size() > 2 ? arguments[2] : "6000";
        const auto start = std::chrono::steady_clock::now();
        status = tryMany(sitting, folder, count == "all" ? 0 : std::stoul(count));
        const auto took =
            std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start);
        std::cout << took.count() << " s" << std::endl;
    }
    fs::remove_all(folder);
    return status;
}

} // namespace
} // namespace pelrath::calls

int main(int argc, char* argv[]) { return pelrath::calls::run({argv, argv + argc}); }
