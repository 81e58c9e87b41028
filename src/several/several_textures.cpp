#include "several/several_textures.hpp"

#include "platform/posix/file_mode.hpp"
#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"
#include "platform/scoped_flag.hpp"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace pelrath::several {

namespace {

constexpr const char* title = "Pelrath - Several textures";
constexpr double firstWidth = 15900;  // twips: 1060 pixels
constexpr double firstHeight = 10500; // 700 pixels
constexpr double margin = 900;        // left of the screen around it

std::shared_ptr<const Session> planningSession(const Session& session) {
    auto own = std::make_shared<Session>();
    own->archive = session.archive;
    own->archivePath = session.archivePath;
    return own;
}

} // namespace

SeveralTextures::SeveralTextures(Session& session, const SeveralServices& services)
    : session_(session), services_(services), choices_(*this, session, services.chooseFolder) {
    connectAll();
}

void SeveralTextures::connectAll() {
    const auto on = [this](Signal<>& event, auto reaction) {
        connections_.push_back(event.connect(reaction));
    };
    on(filter.change, [this] {
        textures.filter(filter.text());
        showMarks();
    });
    on(all.click, [this] { textures.checkShown(true); });
    on(none.click, [this] { textures.checkShown(false); });
    on(textures.marked, [this] {
        showMarks();
        choicesChanged();
    });
    on(choices_.changed, [this] { choicesChanged(); });
    on(rest.tick, [this] { askForPlan(); });
    on(run.click, [this] { runPlan(); });
    on(saveReport.click, [this] { saveReportAs(); });
    on(backToPlan.click, [this] {
        folderPlan_.reset(); // what is in the folder may be another by now
        showPhase(Phase::Planning);
        askForPlan();
        run.focus();
    });
    on(close.click, [this] { window.unload(); });
    on(window.queryUnload, [this] {
        ++asked_;
        rest.setEnabled(false);
        choices_.remember();
    });
}

std::optional<InputFile> SeveralTextures::archiveInPlace() {
    if (!isPossible()) {
        services_.boxes.exclamation("No archive with textures has been read. Please choose one first.",
                                    title);
        return std::nullopt;
    }
    try {
        return session_.archiveFile.open(session_.archivePath, session_.archive);
    } catch (const RuntimeError& error) {
        services_.boxes.exclamation(error.description() + ".", title);
        return std::nullopt;
    }
}

void SeveralTextures::show(const Window& owner, const std::string& usualFolder) {
    if (window.isLoaded() || !archiveInPlace()) return;
    begin(owner, usualFolder);
    services_.windows.showModal(window);
    plannedFor_.reset();
}

void SeveralTextures::begin(const Window& owner, const std::string& usualFolder) {
    window.load();
    const Screen& screen = services_.screen;
    if (window.box().width == 0) {
        window.setSize(std::min(firstWidth, screen.width() - margin),
                       std::min(firstHeight, screen.height() - margin));
    }
    const Box& over = owner.box();
    window.moveTo(over.left + (over.width - window.box().width) / 2,
                  over.top + (over.height - window.box().height) / 2);
    plannedFor_ = planningSession(session_);
    folderPlan_.reset();
    found_.reset();
    otherMarks_.clear();
    isInsertion_ = false;
    filter.setText("");
    textures.fill(session_.archive);
    textures.goTo(session_.selectedTexture);
    choices_.begin(usualFolder);
    showMarks();
    showPhase(Phase::Planning);
    choicesChanged();
    filter.focus();
}

void SeveralTextures::showMarks() {
    const std::size_t shown = static_cast<std::size_t>(textures.count());
    std::string text =
        std::to_string(textures.checkedCount()) + " of " + std::to_string(textures.countOfAll()) + " checked";
    if (shown < textures.countOfAll()) text += ", " + std::to_string(shown) + " shown";
    marks.setCaption(text);
}

void SeveralTextures::showPhase(Phase phase) {
    phase_ = phase;
    const bool planning = phase == Phase::Planning;
    choices_.show(planning);
    for (Control* of : std::initializer_list<Control*>{&filter, &textures, &all, &none}) {
        of->setEnabled(planning);
    }
    toldLabel.setCaption(phase == Phase::Told ? "Report :" : "Plan :");
    told.setAccessibleName(phase == Phase::Told ? "Report" : "Plan");
    run.setCaption(choices_.isInsertion() ? "Insert" : "Extract");
    run.setVisible(planning);
    run.setEnabled(false);
    for (Control* of : std::initializer_list<Control*>{&progress, &progressText, &stop}) {
        of->setVisible(phase == Phase::Running);
    }
    saveReport.setVisible(phase == Phase::Told);
    backToPlan.setVisible(phase == Phase::Told);
    close.setEnabled(phase != Phase::Running);
}

// The plan on show is of other choices from here on, until the next has been made.
void SeveralTextures::choicesChanged() {
    if (phase_ != Phase::Planning || !window.isLoaded() || finding_) return;
    ++asked_;
    switchMarks();
    showPhase(Phase::Planning);
    rest.setEnabled(false);
    rest.setEnabled(true);
}

void SeveralTextures::switchMarks() {
    if (isInsertion_ == choices_.isInsertion()) return;
    const ScopedFlag finding{finding_};
    isInsertion_ = !isInsertion_;
    folderPlan_.reset();
    found_.reset();
    if (isInsertion_) otherMarks_ = textures.checked();
    textures.check(isInsertion_ ? std::vector<std::int16_t>{} : otherMarks_);
}

void SeveralTextures::askForPlan() {
    rest.setEnabled(false);
    PlanQuestion question{choices_.wish(), textures.checked(), nullptr, false};
    const Wish& wish = question.wish;
    question.findsTextures =
        !found_ || found_->folder != wish.folder || found_->files.files != wish.files.files;
    const bool isKnown = !question.findsTextures && found_->files.create == wish.files.create;
    if (isKnown) question.folderPlan = folderPlan_;
    auto made = std::make_shared<PlanAnswer>();
    services_.inBackground([made, question, session = plannedFor_] { *made = answer(*session, question); },
                           [this, made, wish, asked = ++asked_] {
                               if (asked == asked_) take(wish, std::move(*made));
                           });
}

void SeveralTextures::take(const Wish& wish, PlanAnswer answer) {
    if (answer.folderPlan) {
        folderPlan_ = answer.folderPlan;
        found_ = wish;
    }
    if (answer.found) {
        const ScopedFlag finding{finding_};
        textures.check(*answer.found);
    }
    planned_ = {wish, std::move(answer.plan), false, services_.workerExecutable};
    told.setLines(std::move(answer.lines));
    summary.setCaption(answer.summary);
    run.setEnabled(answer.workable);
}

bool SeveralTextures::isReady() {
    if (!planned_.wish.insertion) return archiveInPlace().has_value();
    services_.recovery.look();
    const auto archive = archiveInPlace();
    if (!archive) return false;
    planned_.writeReadOnly = isReadOnly(fileMode(*archive));
    if (!planned_.writeReadOnly) return true;
    const BoxAnswer consent = services_.boxes.show(
        session_.archivePath + " is Read Only.\r\n\r\n- Select Ok to make it writable for the insertion,\r\n"
                               "- Select Cancel to write nothing.",
        title, BoxIcon::Question, BoxButtons::OkCancel);
    return consent == BoxAnswer::Ok;
}

void SeveralTextures::runPlan() {
    if (!isReady()) return;
    if (planned_.wish.insertion) {
        if (planned_.wish.safeCopy) session_.settings.cddsBackupFolder = planned_.wish.safeCopyFolder;
        services_.beforeInsertion();
    }
    RunProgress state;
    showPhase(Phase::Running);
    showProgress(state);
    stop.focus();
    runBegins.emit();
    const auto lookUp = [&] {
        showProgress(state);
        if (services_.stopIsAsked()) state.stop();
    };
    lookUp();
    const batch::Report report = carryOut(session_, planned_, state, lookUp);
    services_.afterRun(planned_, report);
    tellReport(report);
}

void SeveralTextures::showProgress(const RunProgress& state) {
    const RunProgress::State now = state.state();
    progressText.setCaption(now.text);
    progress.set(now.done, now.total);
}

void SeveralTextures::tellReport(const batch::Report& report) {
    report_ = reportText(session_.archivePath, planned_, report);
    told.setLines(linesOf(planned_, report));
    summary.setCaption(summaryOf(planned_, report));
    showPhase(Phase::Told);
    close.focus();
}

void SeveralTextures::saveReportAs() {
    const std::string base{withoutExtension(fileName(session_.archivePath))};
    const auto chosen = services_.chooseReport(joinPath(planned_.wish.folder, base + "-report.txt"));
    if (!chosen) return;
    try {
        const std::array<Bytes, 1> pieces{std::as_bytes(std::span{report_})};
        replaceFile(*chosen, pieces, Durability::Flushed);
    } catch (const RuntimeError& error) {
        services_.boxes.exclamation("The report cannot be saved: " + error.description() + ".", title);
    }
}

} // namespace pelrath::several
