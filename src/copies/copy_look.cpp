#include "copies/copy_look.hpp"

#include "batch/collected_messages.hpp"
#include "batch/opened_archive.hpp"
#include "batch/restoration.hpp"

namespace pelrath::copies {

namespace {

CopyLook compare(const Session& session, const std::string& path, GivenUp& givenUp,
                 const std::function<void(int percent)>& progress) {
    Session copy;
    batch::openArchive(copy, path);
    const batch::CopyComparison comparison{session, copy};
    CopyLook look{CopyState::Compared, 0, {}, {}};
    const std::size_t count = session.archive.textures.size();
    for (std::size_t i = 0; i < count; ++i) {
        const auto index = static_cast<std::int16_t>(i);
        const batch::CopyComparison::LevelData data = comparison.dataInCopy(index);
        batch::PlannedTexture different;
        if (!givenUp.guarded([&] { different = comparison.compare(index, data); })) return {};
        if (!different.files.empty()) look.differences.push_back(std::move(different));
        const int percent = static_cast<int>((i + 1) * 100 / count);
        if (percent > look.percent) progress(percent);
        look.percent = percent;
    }
    return look;
}

} // namespace

std::shared_ptr<const Session> archiveAlone(const Session& session) {
    auto alone = std::make_shared<Session>();
    alone->archive = session.archive;
    alone->archiveFile = session.archiveFile;
    alone->archivePath = session.archivePath;
    return alone;
}

CopyLook lookAtCopy(const Session& session, const std::string& path, GivenUp& givenUp,
                    const std::function<void(int percent)>& progress) try {
    return compare(session, path, givenUp, progress);
} catch (const batch::NoCopy& error) {
    return {CopyState::OfAnother, 0, {}, error.what()};
} catch (const std::exception& error) {
    return {CopyState::Unreadable, 0, {}, batch::asOneLine(error.what())};
}

} // namespace pelrath::copies
