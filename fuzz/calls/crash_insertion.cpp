#include "calls/crash_insertion.hpp"

#include "calls/sitting.hpp"

#include <sstream>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace pelrath::calls {

namespace {

/// What a program writes to its descriptors 1 and 2.
class Output {
public:
    explicit Output(const std::string& path)
        : path_(path), handle_(::open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600)) {}
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    ~Output() {
        ::close(handle_);
        ::unlink(path_.c_str());
    }

    [[nodiscard]] int handle() const { return handle_; }
    [[nodiscard]] std::vector<std::string> linesBehind(const std::string& word) const {
        std::vector<std::string> found;
        std::ifstream in{path_};
        for (std::string line; std::getline(in, line);) {
            if (line.starts_with(word + " ")) found.push_back(line.substr(word.size() + 1));
        }
        return found;
    }

private:
    std::string path_;
    int handle_;
};

/// A file system that refuses what some do.
class PoorFileSystem : public Observer {
public:
    PoorFileSystem(const CrashScenario& scenario, std::string archive, int refusedWrite, Observer& observer)
        : scenario_(scenario), archive_(std::move(archive)), refusedWrite_(refusedWrite),
          observer_(observer) {}

    Fate entered(const Call& call) override {
        const bool nameless = call.number == SYS_openat && (call.arguments[2] & O_TMPFILE) == O_TMPFILE;
        if (nameless && !scenario_.namelessFiles) return Fate::failed(EOPNOTSUPP);
        if (call.number == SYS_linkat && !scenario_.links) return Fate::failed(EPERM);
        const bool writes = refusedWrite_ > 0 && call.number == SYS_pwrite64 &&
                            pathOf(call.process, call.descriptor()) == archive_;
        if (writes && --refusedWrite_ == 0) return Fate::failed(ENOSPC);
        return observer_.entered(call);
    }
    bool left(const Call& call) override { return observer_.left(call); }

private:
    const CrashScenario& scenario_;
    std::string archive_;
    int refusedWrite_;
    Observer& observer_;
};

} // namespace

std::vector<CrashScenario> crashScenarios() {
    constexpr std::pair<const char*, const char*> ways[] = {
        {"DDS single", "texture=1 dds single level=0"},
        {"DDS embedded", "texture=1 dds embedded"},
        {"DDS external", "texture=1 dds external"},
        {"DDS create", "texture=1 dds create"},
        {"image single", "texture=0 images single level=0"},
        {"image create", "texture=0 images create"},
        {"image create, filtered", "texture=1 images create filter=3"}};
    std::vector<CrashScenario> all;
    for (const auto& [name, words] : ways) {
        for (const bool safeCopy : {true, false}) {
            for (const bool readOnly : {false, true}) {
                all.push_back(
                    {std::string{name} + (safeCopy ? "" : ", no safe copy") + (readOnly ? ", read-only" : ""),
                     std::string{words} + (safeCopy ? "" : " nocopy"), safeCopy, readOnly});
            }
        }
    }
    all.push_back({"DDS embedded and loose copy", "texture=1 dds embedded bazar"});
    all.push_back({"DDS embedded, no nameless files", "texture=1 dds embedded", true, true, false});
    all.push_back({"DDS embedded, no links", "texture=1 dds embedded", true, true, false, false});
    all.push_back({"DDS embedded, refused", "texture=1 dds embedded", true, false, true, true, 3});
    all.push_back(
        {"DDS embedded, read-only, refused", "texture=1 dds embedded nocopy", false, true, true, true, 3});
    return all;
}

bool beginsAct(const Call& call, const std::string& act) {
    const std::string line = "act " + act + "\n";
    return call.number == SYS_write && call.descriptor() == STDOUT_FILENO &&
           call.arguments[2] == line.size() && bytesAt(call.process, call.arguments[1], line.size()) == line;
}

CrashInsertion::CrashInsertion(CrashScenario scenario, std::string sitting, int side)
    : scenario_(std::move(scenario)), sitting_(std::move(sitting)) {
    prepare(folder(), side);
    if (scenario_.readOnly && ::chmod(folder_.file("a.cdds").c_str(), 0444) != 0)
        throw std::runtime_error{"no permissions"};
    before_ = restart(folder()).left; // the settings are as the program writes them from now on
}

Program CrashInsertion::program(const std::vector<std::string>& arguments,
                                const std::vector<int>& calls) const {
    Program program{
        .arguments = {sitting_}, .environment = {"TMPDIR=" + folder_.file("tmp")}, .calls = calls};
    program.arguments.insert(program.arguments.end(), arguments.begin(), arguments.end());
    return program;
}

End CrashInsertion::follow(Observer& observer, const std::vector<int>& calls, int refusedWrite) {
    const Output output{folder() + ".output"};
    std::vector<std::string> arguments{folder(), "noextract"};
    std::istringstream words{scenario_.words};
    for (std::string word; words >> word;) {
        arguments.push_back(word);
    }
    Program insertion = program(arguments, calls);
    insertion.output = output.handle();
    PoorFileSystem fileSystem{scenario_, folder_.file("a.cdds"), refusedWrite, observer};
    const End end = calls::follow(insertion, fileSystem);
    for (const std::string& box : output.linesBehind("box")) {
        const bool question = box.starts_with("CDDS is read only | ") || box.starts_with("File exists | ");
        if (!question && refusedWrite == 0) throw std::logic_error{"unexpected message: " + box};
    }
    return end;
}

void CrashInsertion::learn(Observer& observer, const std::vector<int>& calls) {
    if (!follow(observer, calls, 0).well()) throw std::logic_error{"the insertion comes to no good end"};
    aftermath_.emplace(before_, inventoryOf(folder()), scenario_.safeCopy);
}

End CrashInsertion::repeat(Observer& observer, const std::vector<int>& calls) {
    restore(folder(), before_);
    return follow(observer, calls, scenario_.refusedWrite);
}

std::string CrashInsertion::wrongsAfterStarts(Observer* watching, const std::vector<int>& calls) const try {
    Restarted first{inventoryOf(folder()), {}, {}};
    if (watching == nullptr) {
        first = restart(folder());
    } else {
        const Output output{folder() + ".output"};
        Program start = program({"--recover", folder()}, calls);
        start.output = output.handle();
        if (!calls::follow(start, *watching).well()) return "the start comes to no good end; ";
        first.left = inventoryOf(folder());
        first.boxes = output.linesBehind("box");
    }
    return aftermath().wrongs(first, restart(folder()));
} catch (const std::exception& failure) {
    return "the start fails: " + std::string{failure.what()} + "; ";
}

} // namespace pelrath::calls
