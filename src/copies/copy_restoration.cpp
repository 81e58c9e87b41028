#include "copies/copy_restoration.hpp"

#include "batch/opened_archive.hpp"
#include "batch/restoration.hpp"
#include "platform/text.hpp"

#include <chrono>
#include <future>
#include <optional>
#include <utility>

namespace pelrath::copies {

namespace {

constexpr const char* lineBreak = "\r\n";
constexpr std::chrono::milliseconds glance{30};

class Watcher : public batch::RunWatcher {
public:
    explicit Watcher(const RestorationWatch& watch) : watch_(watch) {}

    bool stopIsAsked() override { return watch_.stopIsAsked(); }
    void begins(const std::string& texture, std::size_t number, std::size_t count) override {
        watch_.begins("Putting back " + std::to_string(number) + " of " + std::to_string(count) + ": " +
                      visibleText(texture));
    }
    void ended(const batch::TextureReport& /*report*/) override {}

private:
    const RestorationWatch& watch_;
};

std::string textures(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " texture" : " textures");
}

bool isDone(const batch::TextureReport& texture) {
    return texture.files.front().outcome == batch::Outcome::Done;
}

// What was agreed on is what the listed file holds.
void requireAsListed(const FoundCopy& copy) {
    const std::optional<FileIdentity> now = identityOf(copy.path);
    if (now && now->sameFile(copy.file) && now->size == copy.file.size && now->modified == copy.file.modified)
        return;
    throw batch::NoCopy{copy.path + " has been changed since it was listed"};
}

using Opened = std::shared_ptr<Session>;

Opened openListed(const FoundCopy& copy, const Session& archive) {
    Opened opened = std::make_shared<Session>();
    batch::openArchive(*opened, copy.path);
    batch::requireCopy(archive, *opened);
    requireAsListed(copy);
    return opened;
}

/// Null where it is waited for in vain until the user has enough.
Opened openBeside(const FoundCopy& copy, const Session& session, const RestorationWatch& watch) {
    auto opened = std::make_shared<std::promise<Opened>>();
    std::future<Opened> answer = opened->get_future();
    watch.begins("Opening " + copy.path + " ...");
    watch.beside([opened, copy, archive = archiveAlone(session)](const Post& /*post*/) {
        try {
            opened->set_value(openListed(copy, *archive));
        } catch (...) {
            opened->set_exception(std::current_exception());
        }
    });
    while (answer.wait_for(glance) != std::future_status::ready) {
        if (watch.stopIsAsked()) return nullptr;
    }
    return answer.get();
}

std::string linesOf(const batch::Report& report, const FoundCopy& copy) {
    std::string lines;
    if (!report.safeCopy.empty()) lines += "Safe copy done as " + report.safeCopy + lineBreak;
    std::string refused;
    std::size_t done = 0;
    for (const batch::TextureReport& texture : report.textures) {
        if (isDone(texture)) ++done;
        const std::string name = visibleText(texture.name) + ": ";
        const std::string& message = texture.files.front().message;
        if (!message.empty()) refused += name + message + "." + lineBreak;
        for (const std::string& remark : texture.remarks) {
            refused += name + remark + "." + lineBreak;
        }
    }
    if (!report.ended.empty()) return lines + "Not restored: " + report.ended + "." + lineBreak;
    lines += textures(done) + " put back from " + copy.path + lineBreak + refused;
    if (!report.stopped) return lines;
    return lines + "Stopped: " + textures(report.textures.size() - done) + " left as they are." + lineBreak;
}

} // namespace

std::string restoreFrom(const FoundCopy& copy, const batch::Plan& plan, const std::string& safeCopyFolder,
                        Session& session, const RestorationWatch& watch) try {
    const Opened then = openBeside(copy, session, watch);
    if (then == nullptr) {
        return "Not restored: stopped before " + copy.path + " could be read." + lineBreak;
    }
    batch::WritingTerms terms;
    terms.safeCopyFolder = safeCopyFolder;
    terms.writeReadOnly = watch.writeReadOnly;
    terms.busy = watch.busy;
    Watcher watcher{watch};
    watch.begins("Making a safe copy ...");
    return linesOf(batch::runRestoration(session, *then, plan, terms, watcher), copy);
} catch (const std::exception& error) {
    return "Not restored: " + batch::asOneLine(error.what()) + "." + lineBreak;
}

} // namespace pelrath::copies
