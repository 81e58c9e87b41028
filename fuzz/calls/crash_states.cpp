#include "calls/crash_insertion.hpp"
#include "calls/power_cuts.hpp"
#include "calls/recorder.hpp"

#include <iostream>

#include <sys/syscall.h>

// Records insertions, cuts the power behind each of their system calls, and looks at what the next start
// makes of each disk that there can be then. Usage: crash-states SITTING [COUNT] [SEED] [SCENARIO]

namespace pelrath::calls {
namespace {

constexpr int side = 256; ///< texels: the largest level takes 17 pages of the disk

struct Tally {
    std::size_t disks = 0, torn = 0, realStarts = 0, cutStarts = 0, wrong = 0;
};

struct Finding {
    std::size_t times = 0;
    std::string example;
};

/// The six letters that make a name of the program's a new one each time are drawn.
std::string withoutRandomNames(std::string text) {
    constexpr std::string_view prefix = ".pelrath-";
    for (std::size_t at = 0; (at = text.find(prefix, at)) != std::string::npos; at += prefix.size()) {
        text.replace(at + prefix.size(), 6, "XXXXXX");
    }
    return text;
}

class CrashStates {
public:
    CrashStates(const CrashScenario& scenario, const std::string& sitting, unsigned seed)
        : insertion_(scenario, sitting, side), random_(seed) {
        Observer nothing;
        insertion_.learn(nothing, Recorder::calls());
        Recorder recorder = recorderOf("insert", "quit");
        if (!insertion_.repeat(recorder, Recorder::calls()).well())
            throw std::logic_error{"the insertion comes to no good end"};
        log_ = recorder.finish();
    }

    Tally cut(std::size_t count) {
        visitPowerCuts(log_, choosePowerCuts(log_, count, random_),
                       [this](const PowerCut& power, const Inventory& disk) { look(power, disk); });
        return tally_;
    }
    [[nodiscard]] std::size_t steps() const { return log_.steps.size(); }
    /// What was wrong, a line for each kind.
    [[nodiscard]] std::string findings() const {
        std::string lines;
        for (const auto& [wrongs, finding] : findings_) {
            lines += "  WRONG, " + std::to_string(finding.times) + " times: " + wrongs +
                     "\n    first by a power cut " + finding.example + "\n";
        }
        return lines;
    }

private:
    static constexpr std::size_t realStartEach = 25, cutsOfAStart = 12; ///< disks, and of one start

    [[nodiscard]] Recorder recorderOf(const std::string& begin, const std::string& end) const {
        return {insertion_.folder(), [begin](const Call& call) { return beginsAct(call, begin); },
                [end](const Call& call) { return beginsAct(call, end); }};
    }

    void look(const PowerCut& power, const Inventory& disk) {
        restore(insertion_.folder(), disk);
        if (insertion_.aftermath().extentOf(disk.bytesOf("a.cdds")) == Aftermath::Some) ++tally_.torn;
        if (tally_.disks++ % realStartEach != 0) {
            report(power, disk, insertion_.wrongsAfterStarts());
            return;
        }
        ++tally_.realStarts;
        Recorder recorder = recorderOf("start", "done");
        report(power, disk, insertion_.wrongsAfterStarts(&recorder, Recorder::calls()));
        const Log start = recorder.finish();
        visitPowerCuts(start, choosePowerCuts(start, cutsOfAStart, random_),
                       [&](const PowerCut&, const Inventory& inside) {
                           restore(insertion_.folder(), inside);
                           ++tally_.cutStarts;
                           const std::string wrongs = insertion_.wrongsAfterStarts();
                           report(power, inside, wrongs.empty() ? wrongs : "after a cut start: " + wrongs);
                       });
    }

    void report(const PowerCut& power, const Inventory& disk, const std::string& wrongs) {
        if (wrongs.empty()) return;
        ++tally_.wrong;
        Finding& finding = findings_[withoutRandomNames(wrongs)];
        if (finding.times++ > 0) return;
        const std::string behind = power.behind == 0 ? "all" : log_.steps[power.behind - 1].call;
        finding.example = (power.behind == 0 ? "before " : "behind ") + behind + " (" +
                          std::to_string(power.behind) + " of " + std::to_string(steps()) + "), with";
        for (const auto& [name, key] : disk.names) {
            const StoredFile* const old = insertion_.aftermath().before().at(name);
            const StoredFile& now = disk.files.at(key);
            if (old == nullptr || *old->bytes != *now.bytes || old->mode != now.mode)
                finding.example += " " + name + " (" + std::to_string(now.bytes->size()) + " bytes)";
        }
    }

    CrashInsertion insertion_;
    std::mt19937 random_;
    Log log_;
    Tally tally_;
    std::map<std::string, Finding> findings_;
};

int crashStates(const std::string& sitting, std::size_t count, unsigned seed, const std::string& only) {
    requireTracing();
    const std::vector<CrashScenario> scenarios = crashScenarios();
    Tally all;
    for (const CrashScenario& scenario : scenarios) {
        if (!only.empty() && scenario.name != only) continue;
        CrashStates states{scenario, sitting, seed};
        const Tally one = states.cut((count + scenarios.size() - 1) / scenarios.size());
        std::cout << scenario.name << ": " << states.steps() << " calls, " << one.disks << " disks, "
                  << one.torn << " with a torn archive, " << one.wrong << " wrong\n"
                  << states.findings() << std::flush;
        all.disks += one.disks;
        all.torn += one.torn;
        all.realStarts += one.realStarts;
        all.cutStarts += one.cutStarts;
        all.wrong += one.wrong;
    }
    std::cout << all.disks << " disks after a power cut, " << all.torn << " of them with a torn archive, "
              << all.realStarts << " started by a program of its own, and " << all.cutStarts
              << " after a power cut in such a start: " << all.wrong << " wrong" << std::endl;
    if (all.torn == 0)
        std::cout << "No archive was torn: the power was never cut inside a write." << std::endl;
    return all.wrong == 0 && all.torn > 0 ? 0 : 1;
}

} // namespace
} // namespace pelrath::calls

int main(int argc, char* argv[]) try {
    const std::vector<std::string> words{argv, argv + argc};
    if (argc < 2) return 2;
    return pelrath::calls::crashStates(words[1], argc > 2 ? std::stoul(words[2]) : 10000,
                                       argc > 3 ? static_cast<unsigned>(std::stoul(words[3])) : 1,
                                       argc > 4 ? words[4] : "");
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 2;
}
