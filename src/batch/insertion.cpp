#include "batch/insertion.hpp"

#include "batch/library_run.hpp"
#include "batch/source_look.hpp"
#include "platform/posix/scratch_file.hpp"
#include "platform/runtime_error.hpp"
#include "transfer/picture_levels.hpp"

namespace pelrath::batch {

namespace {

[[noreturn]] void refuse(const std::string& reason) {
    throw RuntimeError{static_cast<int>(ErrorNumber::PathFileAccess), "Insertion", reason};
}

class Insertion {
public:
    Insertion(Session& session, const InsertionWish& wish, CollectedMessages& messages)
        : session_(session), wish_(wish), library_(messages) {}

    bool hold(const PlannedTexture& texture, HeldArchive& archive, LevelWriter& writer) {
        for (const PlannedFile& file : texture.files) {
            if (file.fate == Fate::Planned && !holdFile(file, archive, writer)) return false;
        }
        return true;
    }

private:
    bool holdFile(const PlannedFile& file, HeldArchive& archive, LevelWriter& writer) try {
        if (file.kind != ImageFileKind::Dds || wish_.create) return holdPicture(file, archive, writer);
        requireAsPlanned(file);
        const bool chain = file.level == wholeChain;
        writer.readMipmapLevels(file.path, session_.selectedTexture, chain,
                                chain ? LevelWriter::everyLevel : file.level);
        return true;
    } catch (const SourceTooShort&) {
        refuse(file.path + " is too short");
    }

    bool holdPicture(const PlannedFile& file, HeldArchive& archive, LevelWriter& writer) {
        if (!library_.start()) return false;
        PictureLevels picture{library_.imaging(), session_.programFolder, file.path};
        if (!picture) return false;
        requireSides(file, picture.sides());
        if (!picture.chooseFormat(session_.chosenTexture())) return false;
        const ScratchFile built{session_.programFolder.pathFor("tmp1.dds")};
        if (!picture.hold(built.path(), wishFor(file), archive, writer)) return false;
        built.remove();
        picture.remove();
        return true;
    }

    [[nodiscard]] LevelWish wishFor(const PlannedFile& file) const {
        if (file.level == wholeChain) return {0, true, LevelWriter::everyLevel, wish_.filter};
        return {file.level, false, file.level, wish_.filter};
    }

    // It may have been saved anew since it was planned. What is taken as it is shows that by its header
    // alone.
    void requireAsPlanned(const PlannedFile& file) const {
        const FilePlace place{session_.selectedTexture,
                              file.level == wholeChain ? std::int16_t{0} : file.level, file.kind};
        const PlannedFile now = lookAtSource(file.path, session_.chosenTexture(), place, wish_.create);
        if (now.fate != Fate::Planned) refuse(file.path + " is another by now: " + now.reason);
        if (now.level != file.level) refuse(file.path + " has other levels by now");
    }

    void requireSides(const PlannedFile& file, Sides sides) const {
        const MipmapRecord& level = session_.chosenTexture().mipmaps.at(
            static_cast<std::size_t>(file.level == wholeChain ? 0 : file.level));
        const bool same = sides.width == static_cast<std::int64_t>(level.width) &&
                          sides.height == static_cast<std::int64_t>(level.height);
        if (!same) refuse(file.path + " has other sides than the level by now");
    }

    Session& session_;
    InsertionWish wish_;
    LibraryRun library_;
};

} // namespace

Report runInsertion(Session& session, const Plan& plan, const InsertionWish& wish, const WritingTerms& terms,
                    RunWatcher& watcher) {
    CollectedMessages messages{terms.writeReadOnly};
    Insertion insertion{session, wish, messages};
    Writing writing{session, terms, messages,
                    [&](const PlannedTexture& texture, HeldArchive& archive, LevelWriter& writer) {
                        return insertion.hold(texture, archive, writer);
                    }};
    return writing.run(plan, watcher);
}

} // namespace pelrath::batch
