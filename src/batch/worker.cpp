#include "batch/worker.hpp"

#include "archive/journal_record.hpp"
#include "batch/extraction.hpp"
#include "platform/posix/child_process.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <future>
#include <istream>
#include <mutex>
#include <ostream>
#include <string_view>
#include <thread>

namespace pelrath::batch {

namespace {

void add(std::string& texts, std::string_view text) { texts.append(text).push_back('\0'); }

template <class Number>
bool read(std::istream& in, Number& number) {
    std::string text;
    if (!std::getline(in, text, '\0') || text.empty()) return false;
    number = static_cast<Number>(std::stoi(text));
    return true;
}

std::optional<PlannedTexture> readJob(std::istream& in) {
    PlannedTexture texture;
    std::size_t count = 0;
    if (!read(in, texture.texture) || !read(in, count)) return std::nullopt;
    texture.files.resize(count);
    for (PlannedFile& file : texture.files) {
        int kind = 0;
        if (!read(in, file.level) || !read(in, kind) || !std::getline(in, file.path, '\0'))
            return std::nullopt;
        file.kind = static_cast<ImageFileKind>(kind);
    }
    return texture;
}

class Workers {
public:
    Workers(const WorkerStart& start, const Plan& plan, RunWatcher& watcher)
        : start_(start), plan_(plan), watcher_(watcher) {
        for (const PlannedTexture& texture : plan) {
            report_.textures.push_back(untried(texture));
        }
    }

    Report run() {
        const std::size_t cores = std::max(std::thread::hardware_concurrency(), 1U);
        std::vector<std::future<void>> others;
        for (std::size_t i = 1; i < std::min(cores, plan_.size()); ++i) {
            others.push_back(std::async(std::launch::async, [this] { work(); }));
        }
        work();
        for (std::future<void>& other : others) {
            other.get();
        }
        return std::move(report_);
    }

private:
    void work() {
        std::unique_ptr<ChildProcess> worker;
        while (const std::optional<std::size_t> index = take()) {
            TextureReport& report = report_.textures[*index]; // this thread's own
            if (plan_[*index].hasWork()) extract(worker, plan_[*index], report);
            const std::scoped_lock lock{watching_};
            watcher_.ended(report);
        }
    }

    std::optional<std::size_t> take() {
        const std::scoped_lock lock{watching_};
        if (next_ == plan_.size() || report_.stopped) return std::nullopt;
        report_.stopped = watcher_.stopIsAsked();
        if (report_.stopped) return std::nullopt;
        watcher_.begins(plan_[next_].name, next_ + 1, plan_.size());
        return next_++;
    }

    void extract(std::unique_ptr<ChildProcess>& worker, const PlannedTexture& texture,
                 TextureReport& report) const try {
        if (!worker) worker = std::make_unique<ChildProcess>(start_.executable, start_.arguments);
        const auto readText = [&worker] { return worker->readText(); };
        if (worker->write(encodeJob(texture)) && decodeAnswer(readText, report)) return;
        worker.reset();
        settle(report, Outcome::Failed, "the process that worked on it has ended");
    } catch (const RuntimeError& error) {
        settle(report, Outcome::Failed, error.description());
    }

    const WorkerStart& start_;
    const Plan& plan_;
    RunWatcher& watcher_;
    std::mutex watching_; ///< held for the watcher, and for what follows
    std::size_t next_ = 0;
    Report report_; ///< its textures belong to whoever took them
};

} // namespace

std::string encodeJob(const PlannedTexture& texture) {
    const auto planned = std::ranges::count(texture.files, Fate::Planned, &PlannedFile::fate);
    std::string job;
    add(job, std::to_string(texture.texture));
    add(job, std::to_string(planned));
    for (const PlannedFile& file : texture.files) {
        if (file.fate != Fate::Planned) continue;
        add(job, std::to_string(file.level));
        add(job, std::to_string(static_cast<int>(file.kind)));
        add(job, file.path);
    }
    return job;
}

bool decodeAnswer(const std::function<std::optional<std::string>()>& readText, TextureReport& report) {
    for (FileReport& file : report.files) {
        if (file.outcome != Outcome::NotReached) continue;
        const auto outcome = readText();
        const auto message = outcome ? readText() : std::nullopt;
        if (!message) return false;
        file.outcome = static_cast<Outcome>(std::stoi(*outcome));
        file.message = *message;
    }
    return true;
}

void doJobs(Session& session, bool overwrite, std::istream& in, std::ostream& out) {
    Extraction extraction{session, overwrite};
    while (const std::optional<PlannedTexture> job = readJob(in)) {
        std::string answer;
        for (const FileReport& file : extraction.extract(*job).files) {
            add(answer, std::to_string(static_cast<int>(file.outcome)));
            add(answer, file.message);
        }
        out << answer << std::flush;
    }
}

Report runExtractionInWorkers(const WorkerStart& start, const Plan& plan, RunWatcher& watcher) {
    return Workers{start, plan, watcher}.run();
}

Report extractOnAllCores(Session& session, const Plan& plan, bool overwrite, const std::string& executable,
                         RunWatcher& watcher) {
    const bool alone = executable.empty() || plan.size() < 2 || !needsLibrary(plan);
    if (alone) return runExtraction(session, plan, overwrite, watcher);
    WorkerStart start{executable, {"work", "--tables", std::to_string(tablesChecksum(session.archive))}};
    if (overwrite) start.arguments.emplace_back("--overwrite");
    start.arguments.insert(start.arguments.end(), {"--", session.archivePath});
    return runExtractionInWorkers(start, plan, watcher);
}

} // namespace pelrath::batch
