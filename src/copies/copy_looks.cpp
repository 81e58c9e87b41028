#include "copies/copy_looks.hpp"

#include "batch/collected_messages.hpp"

#include <utility>

namespace pelrath::copies {

void CopyLooks::start(std::function<void(GivenUp& givenUp, const Post& post)> work) {
    work_ = std::make_shared<GivenUp>();
    beside_([this, work = std::move(work), own = work_](const Post& post) {
        work(*own, [&](std::function<void()> function) {
            post([this, own, function = std::move(function)] {
                if (own == work_) function();
            });
        });
    });
}

void CopyLooks::begin(const std::string& folder) {
    stop();
    list_.fill({});
    failure_.clear();
    start([this, folder, archive = session_.archivePath](GivenUp& /*givenUp*/, const Post& post) {
        std::vector<FoundCopy> copies;
        std::string failure;
        try {
            copies = findCopies(archive, folder);
        } catch (const std::exception& error) {
            failure = batch::asOneLine(error.what());
        }
        post([this, copies, failure] { take(copies, failure); });
    });
}

void CopyLooks::take(std::vector<FoundCopy> copies, std::string failure) {
    work_.reset();
    failure_ = std::move(failure);
    list_.fill(std::move(copies));
    found.emit();
    if (!isRunning()) compareNext();
}

void CopyLooks::compareNext() {
    for (int row = 0; row < list_.count(); ++row) {
        if (list_.row(row).look.state == CopyState::Waiting) return compare(row);
    }
    ended.emit();
}

void CopyLooks::prefer(int row) {
    const CopyState state = list_.row(row).look.state;
    if (state == CopyState::Looking || state == CopyState::Compared || state == CopyState::OfAnother) return;
    giveUp(CopyState::Waiting);
    compare(row);
}

void CopyLooks::compare(int row) {
    row_ = row;
    list_.setLook(row, {CopyState::Looking, 0, {}, {}});
    const auto posted = [this, row](CopyLook look) {
        const bool over = look.state != CopyState::Looking;
        const auto own = work_; // which still runs for who hears of the row: the next copy follows
        if (over) row_ = -1;
        list_.setLook(row, std::move(look));
        if (!over || own != work_) return;
        work_.reset();
        compareNext();
    };
    start([archive = archiveAlone(session_), path = list_.row(row).copy.path, posted](GivenUp& givenUp,
                                                                                      const Post& post) {
        const auto progress = [&](int percent) {
            post([=] { posted({CopyState::Looking, percent, {}, {}}); });
        };
        post([posted, look = lookAtCopy(*archive, path, givenUp, progress)] { posted(look); });
    });
}

void CopyLooks::stop() {
    if (work_ == nullptr) return;
    giveUp(CopyState::Stopped);
    for (int row = 0; row < list_.count(); ++row) {
        if (list_.row(row).look.state == CopyState::Waiting) {
            list_.setLook(row, {CopyState::Stopped, 0, {}, {}});
        }
    }
    ended.emit();
}

void CopyLooks::giveUp(CopyState left) {
    if (work_ == nullptr) return;
    std::exchange(work_, nullptr)->giveUp();
    const int row = std::exchange(row_, -1);
    if (row >= 0) list_.setLook(row, {left, 0, {}, {}});
}

} // namespace pelrath::copies
