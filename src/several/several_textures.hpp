#pragma once

#include "controls/modal_windows.hpp"
#include "platform/message_boxes.hpp"
#include "platform/screen.hpp"
#include "session/session.hpp"
#include "several/choices.hpp"
#include "several/plan_run.hpp"
#include "several/several_controls.hpp"
#include "transfer/insertion_recovery.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace pelrath::several {

/// What the window needs of the system.
struct SeveralServices {
    /// Runs `work` beside the window, then `done` in it, unless the program has ended by then.
    using InBackground = std::function<void(std::function<void()> work, std::function<void()> done)>;
    /// Where a report is to be saved; nothing where it is not.
    using ChooseReport = std::function<std::optional<std::string>(const std::string& suggestion)>;

    MessageBoxes& boxes;
    ModalWindows& windows;
    const Screen& screen;
    InsertionRecovery& recovery;
    Choices::ChooseFolder chooseFolder;
    InBackground inBackground;
    ChooseReport chooseReport;
    std::function<void()> beforeInsertion; ///< the archive may be changed behind it
    std::function<bool()> stopIsAsked;     ///< the run is to end; lets events run
    std::string workerExecutable;          ///< as for extractOnAllCores()
    /// Something was written, or was to be.
    std::function<void(const PlannedRun&, const batch::Report&)> afterRun = [](auto&, auto&) {};
};

/// The window through which many textures of the open archive are extracted to files or put back from them:
/// the plan is shown before anything is done, then what was done.
class SeveralTextures : public SeveralControls {
public:
    SeveralTextures(Session& session, const SeveralServices& services);

    /// An archive with textures has been read.
    [[nodiscard]] bool isPossible() const { return !session_.archive.textures.empty(); }
    /// Opens it over `owner`, with this folder for the files, and returns when it has been closed. Where it
    /// is not possible, that is told.
    void show(const Window& owner, const std::string& usualFolder);

    Signal<> runBegins; ///< until show() goes on, nothing but the wish to stop is heard

private:
    enum class Phase { Planning, Running, Told };

    void connectAll();
    void begin(const Window& owner, const std::string& usualFolder);
    /// As the main window has read it; otherwise that has been told.
    [[nodiscard]] std::optional<InputFile> archiveInPlace();
    void showPhase(Phase phase);
    void showMarks();

    void choicesChanged();
    void switchMarks();
    void askForPlan();
    void take(const Wish& wish, PlanAnswer answer);

    void runPlan();
    /// An interrupted insertion has been completed, and what needs the user's consent has it.
    [[nodiscard]] bool isReady();
    void showProgress(const RunProgress& progress);
    void tellReport(const batch::Report& report);
    void saveReportAs();

    Session& session_;
    SeveralServices services_;
    Choices choices_;
    Phase phase_ = Phase::Planning;
    std::shared_ptr<const Session> plannedFor_; ///< the archive, for what plans beside the window
    std::uint64_t asked_ = 0;                   ///< plans, of which the last is wanted
    PlannedRun planned_;                        ///< what is shown
    bool isInsertion_ = false;                  ///< the marks are of one
    std::vector<std::int16_t> otherMarks_;      ///< of the extraction, during an insertion
    std::optional<Wish> found_;                 ///< the insertion whose files the marks were found by
    std::shared_ptr<const batch::Plan> folderPlan_;
    bool finding_ = false;
    std::string report_;
    Connections connections_;
};

} // namespace pelrath::several
